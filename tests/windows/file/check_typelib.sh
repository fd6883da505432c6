#!/bin/sh
# The same sources give the same type library, byte for byte: check_typelib.sh TYPELIB COMPILE IDL COMPILER [ARGUMENT ...]
set -eu
typelib=$1
compile=$2
shift 2
again=$(mktemp)
trap 'rm -f "$again"' EXIT
sh "$compile" "$again" "$@"
cmp "$typelib" "$again"
