#!/bin/sh
# From a fresh Debian 12 machine to the fifteen script files of the example definition.
# The scripts land in out/scripts, the repository they come from in out/orders.db.
set -eu
cd "$(dirname "$0")/.."

sh tools/packages.sh build
cmake --preset release -DKORVEX_BUILD_TESTS=OFF -DKORVEX_BUILD_BENCH=OFF -B build/start >/dev/null
cmake --build build/start

korvex=build/start/hosts/cli/korvex
mkdir -p out
rm -f out/orders.db out/orders.db-wal out/orders.db-shm
$korvex repository new out/orders.db
$korvex repository import out/orders.db examples/orders.json
$korvex script --repository out/orders.db --storage Orders --dialect all --out out/scripts
