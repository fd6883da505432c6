#!/bin/sh
# Installs the build tree $1 under $2, builds the consumer project against that copy and runs it.
set -eu
source=$(cd "$(dirname "$0")/../.." && pwd)
build=$(cd "$1" && pwd)
rm -rf "$2"
mkdir -p "$2/scripts"
work=$(cd "$2" && pwd)

cmake --install "$build" --prefix "$work/prefix" >/dev/null
cmake -G Ninja -S "$source/tests/consumer" -B "$work/build" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_PREFIX_PATH="$work/prefix" >/dev/null
cmake --build "$work/build"
"$work/prefix/bin/korvex" repository new "$work/orders.db"
"$work/prefix/bin/korvex" repository import "$work/orders.db" "$source/examples/orders.json"
"$work/build/consumer" "$work/orders.db" Orders "$work/scripts"
