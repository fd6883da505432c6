#!/bin/sh
# Feeds the readers of what comes from outside with mutants of good input: fuzz.sh [SECONDS [TARGET ...]]
# Each target runs so long, from a new seed, and replays its corpus first; what it has learnt stays in build/fuzz for the
# next run. Where nothing is said it is 10 seconds, and always the same mutants, so that a change is judged by its own faults.
# What a run finds stands in build/fuzz/findings; mended, it belongs into tests/fuzz/corpus.
set -eu
cd "$(dirname "$0")/.."
seconds=${1:-10}
learnt=build/fuzz
seed=0  # a new one
if [ $# -eq 0 ]; then
    learnt=build/fuzz/same
    seed=1
    rm -rf "$learnt"
else
    shift
fi
build=build/asan-ubsan

sh tools/packages.sh build test
cmake --preset fuzz >/dev/null
cmake --build --preset fuzz
[ $# -gt 0 ] || set -- connection_string data_json jet_file model_json script_divider statement_scanner

mkdir -p build/fuzz/findings
# Good input that stands in the tree anyway.
seeds() {
    case "$1" in
        jet_file) ls tests/data/jet/* ;;
        model_json) ls tests/data/orders.json examples/orders.json tests/hosts/cli/expected/every_member.json ;;
        script_divider) ls tests/data/scripts/* tests/hosts/cli/expected/engines/* ;;
    esac | paste -sd,
}
fuzz() {
    mkdir -p "$learnt/$1"
    set -- "$1" "$(seeds "$1")"
    # A slow input is a finding, too: 5 seconds with all sanitizers, where good input takes milliseconds.
    "$build/tests/fuzz/$1" "$learnt/$1" "tests/fuzz/corpus/$1" -dict="tests/fuzz/words/$1" ${2:+-seed_inputs=$2} \
        -seed="$seed" -max_total_time="$seconds" -timeout=5 -rss_limit_mb=2048 -print_final_stats=1 \
        -artifact_prefix="build/fuzz/findings/$1-" >"build/fuzz/$1.log" 2>&1 || { cat "build/fuzz/$1.log"; return 1; }
    echo "$1: $(sed -n 's/^stat::number_of_executed_units: *//p' "build/fuzz/$1.log") inputs"
}
for target in "$@"; do
    fuzz "$target"
done
