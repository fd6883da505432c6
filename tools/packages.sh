#!/bin/sh
# Installs the Debian packages that a job needs: packages.sh build | test [more sets ...]
# Sets: build (compile and run korvex), python (its Python module, with tests), test (GoogleTest, sanitizers, the ODBC
# driver of SQLite, a browser, what shells and manual pages are tried with), docs (the reference of the C++ interface),
# servers (MariaDB, PostgreSQL and their ODBC drivers), packages (making and trying the Debian packages), windows (cross
# compilers and Wine).
# Packages that are there already are left alone; without them it needs root or sudo.
set -eu

packages=""
for set in "$@"; do
    case "$set" in
        build) packages="$packages g++ cmake ninja-build libsqlite3-dev unixodbc-dev libcli11-dev nlohmann-json3-dev mdbtools-dev" ;;
        test) packages="$packages git clang libclang-rt-14-dev clang-format clang-tidy libgtest-dev libgmock-dev libbenchmark-dev unixodbc libsqliteodbc sqlite3 python3-jsonschema graphviz chromium tmux zsh groff-base" ;;
        python) packages="$packages python3-dev pybind11-dev python3-pytest mypy" ;;
        packages) packages="$packages dpkg-dev lintian mmdebstrap" ;;
        docs) packages="$packages doxygen python3" ;;
        servers) packages="$packages unixodbc odbc-mariadb mariadb-server odbc-postgresql postgresql" ;;
        windows) packages="$packages g++-mingw-w64-x86-64-posix g++-mingw-w64-i686-posix mingw-w64-tools googletest wine wine64 xvfb xauth unixodbc libsqliteodbc sqlite3 zip" ;;
        *) echo "packages.sh: no such set: $set" >&2; exit 2 ;;
    esac
done

missing=""
for package in $packages; do
    dpkg-query -W -f '${Status}' "$package" 2>/dev/null | grep -q 'ok installed' || missing="$missing $package"
done
[ -n "$missing" ] || exit 0

as_root=""
[ "$(id -u)" = 0 ] || as_root="sudo"
echo "installing:$missing" >&2
log=$(mktemp)
trap 'rm -f "$log"' EXIT
if ! { $as_root apt-get update && DEBIAN_FRONTEND=noninteractive $as_root apt-get install -y --no-install-recommends $missing; } >"$log" 2>&1; then
    cat "$log" >&2
    exit 1
fi
