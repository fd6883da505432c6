#!/bin/sh
# Starts a private MariaDB and a private PostgreSQL for the tests: start.sh FOLDER
# Data, logs and odbc.ini lie in FOLDER; what is there already is started again. The data sources are named
# korvex_mariadb and korvex_postgresql. Nothing listens on the network. stop.sh FOLDER ends both.
set -eu
here=$(dirname "$0")
folder=$1
sh "$here/stop.sh" "$folder"
mkdir -p "$folder"
folder=$(cd "$folder" && pwd)
# Socket paths must be short, wherever the build tree is, and one server drops root's rights.
[ -f "$folder/sockets" ] || mktemp -d /tmp/korvex-servers.XXXXXX >"$folder/sockets"
sockets=$(cat "$folder/sockets")
mkdir -p "$sockets/postgresql"

# run LOG COMMAND...: the log goes to standard error when the command fails. Output and input are redirected, or
# whoever waits for the end of this script's output would wait for the servers' end.
run() {
    log=$1
    shift
    "$@" </dev/null >>"$log" 2>&1 && return
    cat "$log" >&2
    echo "start.sh: $1 failed; the packages are installed by: tools/packages.sh servers" >&2
    exit 1
}

me=$(id -un)
log=$folder/mariadb.log
[ -d "$folder/mariadb" ] || run "$log" mariadb-install-db --no-defaults --datadir="$folder/mariadb" --user="$me" \
    --auth-root-authentication-method=normal --skip-test-db
# The tests stop the servers in the middle, never the machine: nothing need be forced to the disk.
nohup mariadbd --no-defaults --user="$me" --datadir="$folder/mariadb" --socket="$sockets/mariadb.sock" \
    --pid-file="$folder/mariadb.pid" --skip-networking --innodb-buffer-pool-size=32M --lower-case-table-names=0 \
    --innodb-flush-log-at-trx-commit=0 --max-recursive-iterations=1000000 --character-set-server=utf8mb4 \
    </dev/null >>"$log" 2>&1 &

log=$folder/postgresql.log
programs=$(ls -d /usr/lib/postgresql/*/bin 2>/dev/null | sort -V | tail -n 1)
as_user=""
if [ "$me" = root ]; then
    as_user="setpriv --reuid=postgres --regid=postgres --init-groups"
    chown postgres "$sockets" "$sockets/postgresql"
fi
[ -f "$sockets/postgresql/PG_VERSION" ] || run "$log" $as_user "$programs/initdb" -D "$sockets/postgresql" -A trust \
    -U postgres --no-sync --no-locale -E UTF8
run "$log" $as_user "$programs/pg_ctl" -D "$sockets/postgresql" -w -l "$sockets/postgresql/server.log" \
    -o "-c listen_addresses='' -c unix_socket_directories=$sockets -c fsync=off" start

ready() { mariadb-admin --no-defaults --socket="$sockets/mariadb.sock" --user=root ping >/dev/null 2>&1; }
tries=0
until ready; do
    tries=$((tries + 1))
    [ $tries -lt 300 ] || run "$folder/mariadb.log" ready
    sleep 0.1
done

cat >"$folder/odbc.ini" <<INI
[korvex_mariadb]
Driver=MariaDB Unicode
SOCKET=$sockets/mariadb.sock
UID=root

[korvex_postgresql]
Driver=PostgreSQL Unicode
Servername=$sockets
Port=5432
UserName=postgres
BoolsAsChar=0
MaxVarcharSize=4000
INI
