#!/bin/sh
# The tests that need database servers, from a fresh Debian 12 machine: a private MariaDB and a private PostgreSQL are
# started for the run and stopped behind it. Takes arguments of ctest: tools/test-servers.sh -R Persistence
set -eu
cd "$(dirname "$0")/.."

sh tools/packages.sh build test servers
cmake --preset release -DKORVEX_TEST_SERVERS=ON >/dev/null
cmake --build --preset release
# The run stops its servers itself; this is for one that was interrupted.
trap 'sh tests/servers/stop.sh build/release/test-servers all' EXIT
trap 'exit 130' INT TERM
ctest --preset release -R 'servers|MariaDb|PostgreSql' "$@"
