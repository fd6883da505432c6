#!/bin/sh
# The zip for Windows hosts: check_package.sh WINE PACKAGE
# It holds what it should, is the same when it is made again, and registers the component from where it was unpacked.
# PACKAGE is the program that makes it, WINE the one that runs Windows programs.
set -eu
wine=$1
package=$2
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
expect() {
    [ "$2" = "$3" ] || { printf '%s:\n%s\nshould be:\n%s\n' "$1" "$2" "$3"; exit 1; }
}

zip=$(sh "$package" "$work/first")
again=$(sh "$package" "$work/second")
cmp "$zip" "$again"

cd "$work"
cmake -E tar xf "$zip"
cd korvex-*-windows
expect "content" "$(find . -type f | grep -v '^./docs/' | LC_ALL=C sort)" "./examples/DataObject.cls
./examples/Orders.bas
./examples/host.cpp
./examples/order.json
./examples/orders.json
./examples/persistence.vbs
./examples/scripts.js
./examples/scripts.ps1
./examples/scripts.py
./examples/scripts.vbs
./include/korvex.idl
./include/korvex_com.h
./include/korvex_help.h
./register.cmd
./unregister.cmd
./x64/korvex.dll
./x64/korvex.sxs.manifest
./x64/korvex.tlb
./x86/korvex.dll
./x86/korvex.sxs.manifest
./x86/korvex.tlb"
[ -s docs/windows.md ] && [ -s docs/data.md ]
expect "lines of text that end as on Windows" "$(grep -c "$(printf '\r')$" register.cmd)" "$(wc -l <register.cmd)"
for width in x64:x86-64 x86:i386; do
    od -An -tx1 -j "$(od -An -tu4 -j 60 -N 4 "${width%:*}/korvex.dll" | tr -d ' ')" -N 6 "${width%:*}/korvex.dll" >>machines
    grep -q "processorArchitecture=\"$([ "$width" = x86:i386 ] && echo x86 || echo amd64)\"" "${width%:*}/korvex.sxs.manifest"
done
expect "machines" "$(cat machines)" " 50 45 00 00 64 86
 50 45 00 00 4c 01"

# What becomes of the 32-bit one depends on whether 32-bit programs run here; it must be said either way.
for action in register unregister; do
    output=$(sh "$wine" cmd /c $action.cmd) || :
    printf '%s\n' "$output"
    expect "$action" "$(printf '%s\n' "$output" | sed -n 1p)" "x64\\korvex.dll is ${action}ed for 64-bit programs."
    printf '%s\n' "$output" | sed -n 2p | grep -q "^x86.korvex.dll is .*${action}ed"
    path=$(sh "$wine" reg query 'HKCR\CLSID\{be95dfae-5754-4973-a72f-d3558649217d}\InprocServer32' /ve | grep -o 'Z:.*') || :
    [ $action = unregister ] || expect "path" "$path" "Z:$(pwd | tr / '\\')\\x64\\korvex.dll"
    [ $action = register ] || expect "path" "$path" ""
done
