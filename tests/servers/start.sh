#!/bin/sh
# Starts a private MariaDB and a private PostgreSQL for the tests: start.sh FOLDER [mariadb | postgresql]
# FOLDER gets odbc.ini and tells where the data are; what is there already is started again. The data sources are named
# korvex_mariadb and korvex_postgresql. Nothing listens on the network. stop.sh FOLDER ends both.
set -eu
here=$(dirname "$0")
folder=$1
which=${2:-both}
sh "$here/stop.sh" "$folder" "$which"
mkdir -p "$folder"
folder=$(cd "$folder" && pwd)
# Outside the build tree: socket paths must be short, one server drops root's rights, and memory is fastest.
if [ ! -f "$folder/place" ]; then
    free=$(df -Pk /dev/shm 2>/dev/null | awk 'NR == 2 { print $4 }')
    if [ -w /dev/shm ] && [ "${free:-0}" -gt 1000000 ]; then base=/dev/shm; else base=/tmp; fi
    mktemp -d "$base/korvex-servers.XXXXXX" >"$folder/place"
fi
place=$(cat "$folder/place")
me=$(id -un)

# run LOG COMMAND...: the log goes to standard error when the command fails. Output and input are redirected, or
# whoever waits for the end of this script's output would wait for the servers' end.
run() {
    log=$1
    shift
    "$@" </dev/null >>"$log" 2>&1 && return
    tail -n 40 "$log" >&2
    echo "start.sh: $1 failed; the packages are installed by: tools/packages.sh servers" >&2
    exit 1
}

# Neither server forces anything to the disk: the tests stop servers in the middle, never the machine.

start_mariadb() {
    log=$place/mariadb.log
    # A server that starts clears its folder for temporary tables, also of what another server has there.
    mkdir -p "$place/temporary"
    files="--no-defaults --user=$me --datadir=$place/mariadb --tmpdir=$place/temporary --innodb-flush-method=nosync
        --innodb-flush-log-at-trx-commit=0 --innodb-log-file-size=8M --innodb-data-file-path=ibdata1:4M:autoextend
        --innodb-temp-data-file-path=ibtmp1:4M:autoextend --innodb-buffer-pool-size=32M
        --innodb-buffer-pool-dump-at-shutdown=0 --innodb-buffer-pool-load-at-startup=0"
    [ -d "$place/mariadb/mysql" ] ||
        run "$log" mariadb-install-db $files --auth-root-authentication-method=normal --skip-test-db
    nohup mariadbd $files --socket="$place/mariadb.sock" --pid-file="$place/mariadb.pid" --skip-networking \
        --lower-case-table-names=0 --max-recursive-iterations=1000000 --character-set-server=utf8mb4 \
        </dev/null >>"$log" 2>&1 &
    server=$!
    until mariadb-admin --no-defaults --socket="$place/mariadb.sock" --user=root ping >/dev/null 2>&1; do
        kill -0 $server 2>/dev/null || run "$log" wait $server
        sleep 0.1
    done
}

start_postgresql() {
    log=$place/postgresql.log
    data=$place/postgresql
    programs=$(ls -d /usr/lib/postgresql/*/bin 2>/dev/null | sort -V | tail -n 1)
    mkdir -p "$data"
    as_user=""
    if [ "$me" = root ]; then  # it refuses to run with root's rights
        as_user="setpriv --reuid=postgres --regid=postgres --init-groups"
        chown postgres "$place" "$data"
    fi
    [ -f "$data/PG_VERSION" ] ||
        run "$log" $as_user "$programs/initdb" -D "$data" -A trust -U postgres --no-sync --no-locale -E UTF8
    run "$log" $as_user "$programs/pg_ctl" -D "$data" -w -l "$data/server.log" \
        -o "-c listen_addresses='' -c unix_socket_directories=$place -c fsync=off" start
}

[ "$which" = postgresql ] || start_mariadb
[ "$which" = mariadb ] || start_postgresql

cat >"$folder/odbc.ini" <<INI
[korvex_mariadb]
Driver=MariaDB Unicode
SOCKET=$place/mariadb.sock
UID=root

[korvex_postgresql]
Driver=PostgreSQL Unicode
Servername=$place
Port=5432
UserName=postgres
BoolsAsChar=0
MaxVarcharSize=4000
INI
