#!/bin/sh
# From a fresh Debian 12 machine to passing tests: formatting, the optimised build with GCC (its tests also run on private
# database servers), the sanitizer build with clang, an installed copy used by a separate project, korvex.dll under Wine.
# Ends with the test runner's summary.
set -eu
cd "$(dirname "$0")/.."

sh tools/packages.sh build test servers
step() { printf '\n== %s\n' "$*"; }

step "formatting"
git ls-files '*.h' '*.cpp' | xargs clang-format --dry-run -Werror

step "optimised build (GCC)"
cmake --preset release -DKORVEX_TEST_SERVERS=ON >/dev/null
cmake --build --preset release

step "an installed copy, used by a project of its own"
sh tests/consumer/run.sh build/release build/consumer

step "sanitizer build (clang)"
cmake --preset asan-ubsan >/dev/null
cmake --build --preset asan-ubsan

step "korvex.dll for Windows: both widths built, the 64-bit one tested under Wine"
sh tools/test-windows.sh --output-log build/windows-tests.log -Q || { cat build/windows-tests.log; exit 1; }
tail -n 4 build/windows-tests.log

step "tests, optimised"
trap 'sh tests/servers/stop.sh build/release/test-servers all' EXIT  # of a run that was interrupted
ctest --preset release --output-log build/release-tests.log -Q || { cat build/release-tests.log; exit 1; }
tail -n 4 build/release-tests.log

step "tests, with address and undefined-behaviour sanitizers"
ulimit -s 131072  # instrumented frames are many times as large: what nests deeply needs more stack
ctest --preset asan-ubsan
