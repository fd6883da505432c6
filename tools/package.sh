#!/bin/sh
# The Debian packages korvex, libkorvex-dev and python3-korvex: package.sh [OUTPUT FOLDER [BUILD FOLDER]]
# The same sources give the same bytes: what is written into the packages carries the time of the last commit. A build
# folder of one's own has to be configured with the prefix /usr.
set -eu
cd "$(dirname "$0")/.."
output=$(mkdir -p "${1:-out}" && cd "${1:-out}" && pwd)
build=${2:-build/package}

sh tools/packages.sh build python packages
export SOURCE_DATE_EPOCH="${SOURCE_DATE_EPOCH:-$(git log -1 --format=%ct)}"
if [ $# -lt 2 ]; then
    set -- --preset release -DCMAKE_INSTALL_PREFIX=/usr -DKORVEX_BUILD_TESTS=OFF -DKORVEX_BUILD_BENCH=OFF
else
    set --
fi
cmake -B "$build" "$@" >/dev/null
cmake --build "$build" >&2

umask 022
stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT
cpack --config "$build/CPackConfig.cmake" -B "$stage" >"$stage/log" 2>&1 || { cat "$stage/log" >&2; exit 1; }
for package in "$stage"/*.deb; do
    mv "$package" "$output"
    echo "$output/${package##*/}"
done
