#!/bin/sh
# The published scripts in the tree are SQL to parsers of these languages: check.sh FOLDER
# The parsers are installed into FOLDER; 77 is the answer where that cannot be.
set -eu
here=$(cd "$(dirname "$0")" && pwd)
skip() { echo "skipped: $1"; exit 77; }

command -v node >/dev/null && command -v npm >/dev/null || skip "there is no node or no npm"
mkdir -p "$1"
cd "$1"
if ! cmp -s "$here/package-lock.json" installed.json; then
    cp "$here/package.json" "$here/package-lock.json" .
    if ! npm ci --no-audit --no-fund >npm.log 2>&1; then
        cat npm.log
        grep -Eq 'ENOTFOUND|EAI_AGAIN|ECONNREFUSED|ECONNRESET|ETIMEDOUT' npm.log && skip "the registry is out of reach"
        exit 1
    fi
    cp package-lock.json installed.json
fi
cp "$here/check.js" .
# Sybase's words for changes are its own.
LC_ALL=C find "$here/../../examples" "$here/.." \
    \( -name 'MS[A-Z]*.sql' -o -name 'Ora[A-Z]*.sql' -o -name 'Sy[A-Z]*.sql' ! -name 'SyAlter*' \) \
    -exec node check.js {} +
