#!/bin/sh
# Ends the servers that start.sh started in FOLDER: stop.sh FOLDER [all | mariadb | postgresql]
# Their data stay, unless "all" is asked for, which also ends servers in folders below it. Does nothing when there are
# none.
folder=$1
which=${2:-both}
if [ "$which" = all ]; then
    for below in "$folder"/*/place; do
        [ ! -f "$below" ] || sh "$0" "$(dirname "$below")" all
    done
fi
[ -f "$folder/place" ] || exit 0
place=$(cat "$folder/place")

# Whether a process of that number and name runs. One that has ended may stay for a while, until its parent asks for it.
runs() {
    case "$(cat "/proc/$1/stat" 2>/dev/null)" in
        *") Z "*) return 1 ;;
        "$1 ($2"*) ;;
        *) return 1 ;;
    esac
}

# stop NAME PIDFILE SIGNAL: by its own process number, and only while that is such a server.
stop() {
    [ -f "$2" ] || return 0
    number=$(head -n 1 "$2")
    tries=0
    while runs "$number" "$1"; do
        if [ $tries -eq 0 ]; then kill -s "$3" "$number"; fi
        if [ $tries -eq 400 ]; then kill -s KILL "$number"; fi
        tries=$((tries + 1))
        sleep 0.05
    done
}
[ "$which" = postgresql ] || stop mariadbd "$place/mariadb.pid" TERM
[ "$which" = mariadb ] || stop postgres "$place/postgresql/postmaster.pid" INT
[ "$which" = all ] || exit 0
case "$place" in
    /dev/shm/korvex-servers.* | /tmp/korvex-servers.*) rm -rf "$place" "$folder" ;;
esac
