#!/bin/sh
# The file korvex.dll itself: check_dll.sh OBJDUMP FORMAT DLL TYPELIB
# It exports the four entry points and nothing else, needs nothing but what every Windows has, holds the type library,
# and is neither a stub nor blown up.
set -eu
objdump=$1
format=$2
dll=$3
typelib=$4
headers=$("$objdump" -p "$dll")

expect() {
    [ "$2" = "$3" ] || { printf '%s:\n%s\nshould be:\n%s\n' "$1" "$2" "$3"; exit 1; }
}

expect "file format" "$(printf '%s\n' "$headers" | sed -n 's/.*file format //p')" "$format"

exports=$(printf '%s\n' "$headers" | sed -n '/Ordinal\/Name Pointer/,/^$/s/^[[:space:]]*\[ *[0-9]*\] //p')
expect "exports" "$exports" "DllCanUnloadNow
DllGetClassObject
DllRegisterServer
DllUnregisterServer"

imports=$(printf '%s\n' "$headers" | sed -n 's/.*DLL Name: //p' | tr '[:upper:]' '[:lower:]' | LC_ALL=C sort)
expect "imports" "$imports" "advapi32.dll
kernel32.dll
msvcrt.dll
ole32.dll
oleaut32.dll
user32.dll"

perl -0777 -e 'open $_, "<:raw", shift for my ($dll, $typelib); exit(index(<$dll>, <$typelib>) < 0)' "$dll" "$typelib" ||
    { echo "the type library is not inside"; exit 1; }

# Version resources are UTF-16.
for text in CompanyName "The Korvex project" ProductName; do
    grep -qaP "$(printf %s "$text" | sed 's/./&\\x00/g')" "$dll" || { echo "no $text in the version resource"; exit 1; }
done

size=$(wc -c <"$dll")
[ "$size" -gt 300000 ] && [ "$size" -lt 2000000 ] || { echo "size: $size bytes"; exit 1; }
echo "$size bytes"
