#!/bin/sh
# Compiles a type library, the same one for the same sources: make_typelib.sh TYPELIB IDL COMPILER [ARGUMENT ...]
# The compiler notes the time of day inside, as a text and as a number; both become the time zero.
set -eu
typelib=$1
idl=$2
shift 2
"$@" -t -o "$typelib" "$idl"
perl -0777 -pi -e 's/(Created by WIDL version \S+ at ).{24}(\n.{0,3}\x13\0).{4}/${1}Thu Jan  1 00:00:00 1970$2\0\0\0\0/s' "$typelib"
