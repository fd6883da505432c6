#!/bin/sh
# From a fresh Debian 12 machine to passing tests: test.sh [--quick | --all]
# Formatting, the optimised build with GCC (its tests also run on private database servers), clang-tidy on the files of
# the last commit and behind it, an installed copy used by a separate project, the sanitizer build with clang and its fuzz
# targets, korvex.dll under Wine. Says how long each step took, and ends with the test runner's summary.
# The sources of a folder are compiled as one; clang-tidy reads what changed source by source.
# --quick is for one's own loop: formatting, a debug build and its tests on the embedded engines.
# --all compiles source by source (which finds what one of them forgot to include), has clang-tidy read every file, runs the
# fuzz targets for longer, and tries the Debian packages in a bare root (it has to run as root).
set -eu
cd "$(dirname "$0")/.."

scope=${1:-}
case "$scope" in
    "" | --quick | --all) ;;
    *) echo "usage: test.sh [--quick | --all]" >&2; exit 2 ;;
esac
# Compilers go through ccache where it is installed.
! command -v ccache >/dev/null || export CMAKE_CXX_COMPILER_LAUNCHER="${CMAKE_CXX_COMPILER_LAUNCHER:-ccache}"

began=$(date +%s)
step_began=$began
# step TITLE: what it will do; and how long the step before it took.
step() {
    now=$(date +%s)
    [ "$step_began" = "$began" ] || printf '(%d s, %d s in all)\n' $((now - step_began)) $((now - began))
    step_began=$now
    printf '\n== %s\n' "$1"
}
# quietly LOG COMMAND...: shows the end of its output, and all of it where it fails
quietly() {
    log=$1
    shift
    "$@" --output-log "$log" -Q || { cat "$log"; exit 1; }
    tail -n 4 "$log"
}

step "formatting"
sh tools/packages.sh build python test docs
git ls-files '*.h' '*.cpp' | xargs clang-format --dry-run -Werror

if [ "$scope" = --quick ]; then
    step "debug build (GCC)"
    cmake --preset debug -B build/quick -DCMAKE_CXX_FLAGS_DEBUG=-O0 -DCMAKE_UNITY_BUILD=ON >/dev/null
    cmake --build build/quick
    step "tests, without servers"
    quietly build/quick-tests.log ctest --test-dir build/quick -j "$(nproc)" --output-on-failure
    exit
fi

step "optimised build (GCC)"
sh tools/packages.sh servers
[ "$scope" = --all ] && unite=OFF || unite=ON
cmake --preset release -DKORVEX_TEST_SERVERS=ON -DCMAKE_INSTALL_PREFIX=/usr -DCMAKE_UNITY_BUILD=$unite >/dev/null
cmake --build --preset release

step "clang-tidy"
cmake --preset debug -B build/tidy -DKORVEX_TEST_SERVERS=ON >/dev/null  # it is not built: what it says of the sources is read
sh tools/tidy.sh build/tidy $scope

step "an installed copy, used by a project of its own"
sh tests/consumer/run.sh build/release build/consumer

if [ "$scope" = --all ]; then
    step "the Debian packages, in a bare root"
    sh tools/test-packages.sh build/release
fi

step "sanitizer build (clang)"
cmake --preset asan-ubsan >/dev/null
cmake --build --preset asan-ubsan

step "korvex.dll for Windows: both widths built, the 64-bit one tested under Wine"
quietly build/windows-tests.log sh tools/test-windows.sh

step "tests, optimised"
trap 'sh tests/servers/stop.sh build/release/test-servers all' EXIT  # of a run that was interrupted
quietly build/release-tests.log ctest --preset release

step "fuzz targets"
if [ "$scope" = --all ]; then sh tools/fuzz.sh 120; else sh tools/fuzz.sh; fi

step "tests, with address and undefined-behaviour sanitizers"
ulimit -s 131072  # instrumented frames are many times as large: what nests deeply needs more stack
ctest --preset asan-ubsan
