#!/bin/sh
# The tests that need database servers, from a fresh Debian 12 machine: a private MariaDB and a private PostgreSQL are
# started for the run and stopped behind it. Takes arguments of ctest: tools/test-servers.sh -R repository
set -eu
cd "$(dirname "$0")/.."

sh tools/packages.sh build test servers
cmake --preset release -B build/servers -DKORVEX_TEST_SERVERS=ON >/dev/null
cmake --build build/servers
ctest --test-dir build/servers --output-on-failure --timeout 300 -j 2 -R 'repository_tests|cli_tests.*Fifteen|servers' "$@"
