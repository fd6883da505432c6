#!/bin/sh
# korvex.dll for Windows, from a fresh Debian 12 machine to passing tests: both widths are cross-built, the tests of the
# 64-bit one run under Wine. Takes arguments of ctest: tools/test-windows.sh -R com_tests
set -eu
cd "$(dirname "$0")/.."

sh tools/packages.sh build windows

cmake --preset windows-x64 >/dev/null
cmake --build --preset windows-x64
cmake --preset windows-x86 >/dev/null
cmake --build --preset windows-x86

ctest --preset windows-x64 "$@"
