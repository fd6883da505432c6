#!/bin/sh
# Ends the servers that start.sh started in FOLDER: stop.sh FOLDER [all | mariadb | postgresql]
# Their data stay, unless "all" is asked for. Does nothing when there are none.
folder=$1
which=${2:-both}
[ -f "$folder/sockets" ] || exit 0
sockets=$(cat "$folder/sockets")

# stop NAME PIDFILE SIGNAL: by its own process number, and only when that still is such a server.
stop() {
    [ -f "$2" ] || return 0
    number=$(head -n 1 "$2")
    case "$(cat "/proc/$number/comm" 2>/dev/null)" in
        "$1"*) ;;
        *) return 0 ;;
    esac
    kill -s "$3" "$number"
    while kill -0 "$number" 2>/dev/null; do sleep 0.05; done
}
[ "$which" = postgresql ] || stop mariadbd "$folder/mariadb.pid" TERM
[ "$which" = mariadb ] || stop postgres "$sockets/postgresql/postmaster.pid" INT
[ "$which" = all ] || exit 0
case "$sockets" in
    /tmp/korvex-servers.*) rm -rf "$sockets" "$folder" ;;
esac
