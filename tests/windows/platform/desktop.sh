#!/bin/sh
# Runs the tests of message boxes and editors on the display at hand: desktop.sh BUILD
set -eu
build=$1
export KORVEX_TEST_DISPLAY="$DISPLAY"
mkdir -p "$build/desktop"
cd "$build/desktop"
code=0
sh "$build/wine-desktop.sh" "$build/desktop_tests.exe" || code=$?
sh "$build/wine-desktop.sh" --stop
exit "$code"
