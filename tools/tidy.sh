#!/bin/sh
# What clang-tidy has to say about sources of a build: tidy.sh BUILD [--all]
# Without --all about what is not committed and what the last commit changed; for a header about the source of its name.
set -eu
cd "$(dirname "$0")/.."
build=$1

changed() {
    git diff --name-only --diff-filter=d "$(git rev-parse --verify -q HEAD~1 || echo HEAD)"
    git ls-files --others --exclude-standard
}

if [ "${2:-}" = --all ]; then git ls-files '*.cpp'; else changed | sed -n 's/\.h$/.cpp/; /\.cpp$/p'; fi | sort -u |
    while read -r file; do
        # Other builds have other sources.
        ! grep -qF "\"$PWD/$file\"" "$build/compile_commands.json" || echo "$file"
    done >"$build/tidy.txt"
echo "$(wc -l <"$build/tidy.txt") sources"
[ ! -s "$build/tidy.txt" ] ||
    # The build's compiler knows warnings that clang does not.
    xargs -n 1 -P "$(nproc)" clang-tidy -p "$build" --quiet --extra-arg=-Wno-unknown-warning-option <"$build/tidy.txt"
