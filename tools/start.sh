#!/bin/sh
# From a fresh Debian 12 machine to the example: the fifteen script files of its definition, and an order that is stored
# and read back. The scripts land in out/scripts, the repository, the target database and the order beside them.
set -eu
cd "$(dirname "$0")/.."

sh tools/packages.sh build
cmake --preset release -DCMAKE_UNITY_BUILD=ON -DKORVEX_BUILD_TESTS=OFF -DKORVEX_BUILD_BENCH=OFF -DKORVEX_BUILD_PYTHON=OFF -B build/start >/dev/null
cmake --build build/start

PATH=$PWD/build/start/hosts/cli:$PATH sh tools/example.sh
