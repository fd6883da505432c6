#!/bin/sh
# Builds the consumer project and the first program of each page in the folder $2 and runs them, and the commands of the
# README: against a copy of the build tree $1 that is installed there, or against the packages where $1 is "packages".
set -eu
source=$(cd "$(dirname "$0")/../.." && pwd)
[ "$1" = packages ] || build=$(cd "$1" && pwd)
rm -rf "$2"
mkdir -p "$2"
work=$(cd "$2" && pwd)

prefix=/usr
if [ "$1" != packages ]; then
    prefix=$work/prefix
    cmake --install "$build" --prefix "$prefix" >/dev/null
    export PATH="$prefix/bin:$PATH"
    export PKG_CONFIG_PATH="$(dirname "$(find "$prefix" -name korvex.pc)")"
    # where the module was built
    export PYTHONPATH="$(find "$prefix" -name dist-packages)"
fi

cd "$work"
for page in README.md docs/data.md; do
    awk '/^```/ && inside { exit } inside; /^```cpp/ { inside = 1 }' "$source/$page" >"$(basename "$page" .md).cpp"
done
cmake -G Ninja -S "$source/tests/consumer" -B build -DCMAKE_BUILD_TYPE=Release -DCMAKE_PREFIX_PATH="$prefix" \
    -DSAMPLES="$work" >/dev/null
cmake --build build
g++ -std=c++20 "$source/tests/consumer/main.cpp" -o main $(pkg-config --cflags --static --libs korvex)

# The commands of the README, as they stand there.
cp -r "$source/examples" .
for place in "Step by step" "## The command"; do
    awk -v place="$place" '/^```/ && inside { exit } inside; index($0, place) { found = 1 }
        found && /^```sh/ { inside = 1 }' "$source/README.md"
done >commands.sh
sh -e commands.sh >commands.txt
grep -qx 4 commands.txt  # the state as the update has left it

./main orders.db Orders scripts
build/README
korvex database create --repository orders.db --storage Orders --connection "Provider=SQLite;Data Source=target.db"
build/data | grep '"Rating": 5'  # the object as the last program has updated it

[ -z "${PYTHONPATH-unset}" ] || /usr/bin/python3 -c \
    'import korvex; print(korvex.load_definition("orders.db", "Orders").value_names)'
