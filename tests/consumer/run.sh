#!/bin/sh
# Installs the build tree $1 under $2, builds the consumer project and the first program of each page against
# that copy and runs them, and the commands of the README.
set -eu
source=$(cd "$(dirname "$0")/../.." && pwd)
build=$(cd "$1" && pwd)
rm -rf "$2"
mkdir -p "$2"
work=$(cd "$2" && pwd)

cmake --install "$build" --prefix "$work/prefix" >/dev/null
for page in README.md docs/data.md; do
    awk '/^```/ && inside { exit } inside; /^```cpp/ { inside = 1 }' "$source/$page" \
        >"$work/$(basename "$page" .md).cpp"
done
cmake -G Ninja -S "$source/tests/consumer" -B "$work/build" -DCMAKE_BUILD_TYPE=Release \
    -DCMAKE_PREFIX_PATH="$work/prefix" -DSAMPLES="$work" >/dev/null
cmake --build "$work/build"

# The commands of the README, as they stand there.
cp -r "$source/examples" "$work"
cd "$work"
PATH=$work/prefix/bin:$PATH
for place in "Step by step" "## The command"; do
    awk -v place="$place" '/^```/ && inside { exit } inside; index($0, place) { found = 1 }
        found && /^```sh/ { inside = 1 }' "$source/README.md"
done >commands.sh
sh -e commands.sh >commands.txt
grep -qx 4 commands.txt  # the state as the update has left it

build/main orders.db Orders scripts
build/README
korvex database create --repository orders.db --storage Orders --connection "Provider=SQLite;Data Source=target.db"
build/data | grep '"Rating": 5'  # the object as the last program has updated it

for packages in "$work"/prefix/lib/python3*/dist-packages; do  # where the module was built
    [ ! -d "$packages" ] || PYTHONPATH=$packages /usr/bin/python3 -B -c \
        'import korvex; print(korvex.load_definition("orders.db", "Orders").value_names)'
done
