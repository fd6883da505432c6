#!/bin/sh
# Builds the programs of examples/cpp and the first one of each page in the folder $2 and runs them, and the commands of
# the README: against a copy of the build tree $1 that is installed there, or against the packages where $1 is "packages".
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
block() {  # PAGE LANGUAGE [PLACE]: the first block in that language, at or behind the line that holds PLACE
    awk -v place="${3:-}" -v mark="^\`\`\`$2" '/^```/ && inside { exit } inside
        index($0, place) || place == "" { found = 1 } found && $0 ~ mark { inside = 1 }' "$source/$1"
}
for page in README.md docs/data.md; do
    block "$page" cpp >"$(basename "$page" .md).cpp"
done
cmake -G Ninja -S "$source/tests/consumer" -B build -DCMAKE_BUILD_TYPE=Release -DCMAKE_PREFIX_PATH="$prefix" \
    -DSAMPLES="$work" -DPROGRAMS="$source/examples/cpp" >/dev/null
cmake --build build
g++ -std=c++20 "$source/examples/cpp/late.cpp" -o late $(pkg-config --cflags --static --libs korvex)

# The commands of the README, as they stand there.
cp -r "$source/examples" .
{ block README.md sh "Step by step"; block README.md sh "## The command"; } >commands.sh
sh -e commands.sh >commands.txt
grep -qx 4 commands.txt  # the state as the update has left it

build/README

block docs/model.md json >library.json
korvex repository check library.json

# The programs: what they write is what the published scripts say, and what they store is there and goes again.
connection="Provider=SQLite;Data Source=target.db"
tells() {  # FILE PATTERN
    grep -q "$2" "$1" || { echo "$1 does not say $2:"; cat "$1"; exit 1; }
}
mkdir early names engine
build/scripts orders.db Orders early
./late orders.db Orders names 2>late.txt
tells late.txt "^error 383: "
for script in examples/scripts/*; do
    cmp "$script" "early/${script##*/}"
    cmp "$script" "names/${script##*/}"
done
build/tables orders.db Orders "$connection" engine >tables.txt
{ block docs/commands.md sh "## Objects"; block docs/commands.md sh "### korvex list"; } >commands.sh
sh -e commands.sh >commands.txt
tells commands.txt "^2026-004711  *1936.55"
tells commands.txt "^{.*2026-004711"
tells tables.txt "^17 tables"
[ "$(grep -c "^differs" tables.txt)" = 0 ]
[ -s engine/PgCreate.sql ]
build/data >data.txt
tells data.txt '"Rating": 5'  # the object as the program has updated it
build/objects orders.db "$connection" >objects.txt
tells objects.txt "^A-1: 2 lines$"
tells objects.txt "^total 125$"
tells objects.txt "^deleted$"
build/own_objects orders.db "$connection" >own.txt
tells own.txt "^B-7: 2 3$"
tells own.txt "^message: "

# A definition that changed, and the database brought to it.
sed 's/"name": "OrderNumber", "type": "string", "maxLength": 20/"name": "OrderNumber", "type": "string", "maxLength": 30/' \
    examples/orders.json >changed.json
korvex repository new changed.db
korvex repository import changed.db changed.json
build/changes orders.db changed.db Orders sqlite >change.sql 2>changes.txt
tells changes.txt "^safe: tOrder.OrderNumber: "
korvex apply --connection "$connection" change.sql
korvex database check changed.db --storage Orders --connection "$connection"

[ -z "${PYTHONPATH-unset}" ] || /usr/bin/python3 -c \
    'import korvex; print(korvex.load_definition("orders.db", "Orders").value_names)'
