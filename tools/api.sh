#!/bin/sh
# Makes the reference of the C++ interface, from exactly the headers that are installed: api.sh [FOLDER]
# (docs/api unless given). Prints FOLDER/index.html. Fails where a member says nothing, and, in the headers of the
# classes that hosts call, where an argument or a result says nothing. Needs doxygen (packages.sh docs); ends with 77 without.
set -eu
command -v doxygen >/dev/null || { echo "doxygen is missing: sh tools/packages.sh docs" >&2; exit 77; }
source=$(cd "$(dirname "$0")/.." && pwd)
target=${1:-$source/docs/api}
mkdir -p "$target"
target=$(cd "$target" && pwd)
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

cmake "-DKORVEX_SOURCES=$source" "-DKORVEX_INCLUDES=$work" -P "$source/cmake/InstallHeaders.cmake"
doxygen - <<END 2>"$work/warnings"
@INCLUDE         = $source/tools/api/Doxyfile
PROJECT_NUMBER   = $(sed -n 's/^project(Korvex VERSION \([0-9.]*\).*/\1/p' "$source/CMakeLists.txt")
INPUT            = $work/korvex $source/tools/api/main.md
STRIP_FROM_PATH  = $work
STRIP_FROM_INC_PATH = $work
EXAMPLE_PATH     = $source/examples/cpp
INPUT_FILTER     = "python3 $source/tools/api/comments.py"
OUTPUT_DIRECTORY = $target
HTML_OUTPUT      = .
END

# One sentence says what most members take and give. What hosts call says it argument by argument.
called='cls(CreateDb|CRUD)::|QORObject::|TargetTables::|DefinitionChanges::|CreateObject |objects::([A-Z][a-z]*Json|LoadDefinition|Find|ReadCondition) '
sed "s|^$work/||" "$work/warnings" | awk -v called="of member korvex::($called)" '
    !/(parameters|return type) of member/ || ($0 ~ called && !/::(Class|IsA) is/)' >"$work/shown"
if [ -s "$work/shown" ]; then
    cat "$work/shown" >&2
    exit 1
fi
echo "$target/index.html"
