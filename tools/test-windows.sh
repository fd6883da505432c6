#!/bin/sh
# korvex.dll for Windows, from a fresh Debian 12 machine to passing tests: both widths are cross-built and checked, the
# tests of the 64-bit one run under Wine. Takes arguments of ctest: tools/test-windows.sh -R com_tests
set -eu
cd "$(dirname "$0")/.."

sh tools/packages.sh build windows

for preset in windows-x86 windows-x64; do
    cmake --preset $preset >/dev/null
    cmake --build --preset $preset
    ctest --preset $preset "$@"
done
