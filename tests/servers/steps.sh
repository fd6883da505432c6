#!/bin/sh
# The steps of docs/servers.md, on the servers that start.sh started: steps.sh FOLDER KORVEX MariaDB | PostgreSQL
set -eu
source=$(cd "$(dirname "$0")/../.." && pwd)
place=$(cat "$1/place")
PATH=$(dirname "$2"):$PATH
engine=$3

# Nobody is asked for a password.
sudo() { [ "$1" != -u ] || shift 2; "$@"; }
mariadb() { command mariadb --no-defaults --socket="$place/mariadb.sock" --user=root "$@"; }
psql() { command psql --quiet -v ON_ERROR_STOP=1 --host="$place" --username=postgres "$@"; }
remove() {
    if [ "$engine" = MariaDB ]; then
        echo "drop database if exists shop; drop user if exists korvex@localhost" | mariadb
    else
        printf 'drop database if exists shop;\ndrop user if exists korvex;\n' | psql
    fi
}

work=$(mktemp -d)
trap 'remove; rm -rf "$work"' EXIT
remove
cp -r "$source/examples" "$work"
cd "$work"
export HOME="$work" ODBCINI="$work/.odbc.ini"
for heading in "### $engine" "### On both"; do
    awk -v heading="$heading" '/^```/ && inside { exit } inside; $0 == heading { found = 1 }
        found && /^```sh/ { inside = 1 }' "$source/docs/servers.md"
done | sed "/apt-get/d; s#/run/mysqld/mysqld.sock#$place/mariadb.sock#; s#^Servername = localhost#Servername = $place#" >steps
. ./steps >output
korvex script $D --dialect all-engines --out scripts >/dev/null
korvex database check $D --connection "$C"
korvex repository check "$R" --dialect all-engines 2>&1 | grep -qx "korvex: 0 errors, 0 warnings"
grep -q '"OrderNumber": "2026-004711"' output
