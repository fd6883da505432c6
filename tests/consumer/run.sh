#!/bin/sh
# Installs the build tree $1 under $2, builds the consumer project and the first program of each page against
# that copy and runs them.
set -eu
source=$(cd "$(dirname "$0")/../.." && pwd)
build=$(cd "$1" && pwd)
rm -rf "$2"
mkdir -p "$2/scripts"
work=$(cd "$2" && pwd)

cmake --install "$build" --prefix "$work/prefix" >/dev/null
for page in README.md docs/data.md; do
    awk '/^```/ && inside { exit } inside; /^```cpp/ { inside = 1 }' "$source/$page" \
        >"$work/$(basename "$page" .md).cpp"
done
cmake -G Ninja -S "$source/tests/consumer" -B "$work/build" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_PREFIX_PATH="$work/prefix" -DSAMPLES="$work" >/dev/null
cmake --build "$work/build"
"$work/prefix/bin/korvex" repository new "$work/orders.db"
"$work/prefix/bin/korvex" repository import "$work/orders.db" "$source/examples/orders.json"
"$work/build/main" "$work/orders.db" Orders "$work/scripts"

cd "$work"
build/README
prefix/bin/korvex database create --repository orders.db --storage Orders \
    --connection "Provider=SQLite;Data Source=target.db"
build/data | grep '"Rating": 5'  # the object as the last program has updated it
