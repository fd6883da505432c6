#!/bin/sh
# One zip with all that a Windows host needs: package-windows.sh [OUTPUT FOLDER]
# Both widths of korvex.dll, manifests, type library, header, samples, documentation, scripts that register it. The same
# sources give the same bytes.
set -eu
cd "$(dirname "$0")/.."
output=$(mkdir -p "${1:-out}" && cd "${1:-out}" && pwd)

for preset in windows-x64 windows-x86; do
    cmake --preset $preset >/dev/null
    cmake --build --preset $preset --target korvex_dll >/dev/null
done
version=$(sed -n 's/^project(Korvex VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
name=korvex-$version-windows

stage=$(mktemp -d)
trap 'rm -rf "$stage"' EXIT
umask 022
to() {
    folder=$stage/$name/$1
    shift
    mkdir -p "$folder"
    cp "$@" "$folder"
}
for width in x64 x86; do
    build=build/windows-$width
    to $width $build/korvex.dll $build/korvex.sxs.manifest $build/surface/com/korvex.tlb
done
to include build/windows-x64/surface/com/include/korvex_com.h surface/com/korvex.idl surface/korvex_help.h
to docs docs/*.md
to examples examples/*.json examples/windows/*
to . tools/windows/*.cmd
# What Windows' own programs read has their line ends; some of them take no others.
find "$stage/$name" -name '*.cmd' -o -path '*/examples/*' -type f | xargs sed -i 's/$/\r/'
find "$stage" -type f -exec chmod 644 {} +

cd "$stage"
rm -f "$output/$name.zip"
# Without the times and owners of the files, in a fixed order.
find "$name" -exec touch -d '2000-01-01 00:00:00 UTC' {} +
find "$name" -type f | LC_ALL=C sort | TZ=UTC zip -q -X -@ "$output/$name.zip"
echo "$output/$name.zip"
