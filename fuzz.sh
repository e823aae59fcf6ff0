#!/bin/bash
# Fuzzes the parts that need no Windows, under the address and undefined-behaviour sanitizers.
#   ./fuzz.sh                    every target with 10 million inputs
#   ./fuzz.sh path_tokens        one target; its name is that of a folder in tests/fuzz/corpus
#   ./fuzz.sh all 100000         every target with that many inputs
#   ./fuzz.sh --short            what ./test.sh runs: the same inputs each time, some seconds
# Inputs with which a target fails are kept in build/fuzz/findings, and the exit code is 1. One of them again,
# with its stack: build/fuzz/tests/fuzz/<target>_fuzz <file>
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
# shellcheck source=tools/wine/messages.sh
source tools/wine/messages.sh
# shellcheck source=tools/wine/build.sh
source tools/wine/build.sh

# Targets and how long their inputs may be: longer ones find no more, and take longer.
declare -A longest=(
    [coordinates]=64
    [group_query]=128
    [path_tokens]=128
    [performance_data]=600
    [registration_script]=256
    [search_text]=400
    [type_library]=2100
)
short_runs=60000
findings=build/fuzz/findings

# fuzz_target TARGET RUNS [OPTION...]: runs one target and prints its line.
fuzz_target() {
    local target=$1 runs=$2 log=build/fuzz/$1.log corpus=build/fuzz/corpus/$1 status=0 began=$SECONDS options=()
    local progress='^#[0-9]+.(INITED|pulse)' # at every doubling of the number of inputs
    [[ -z $short ]] || { corpus=$(mktemp -d) && options+=(-seed=1) && progress='$.'; }
    mkdir -p "$corpus" "$findings"
    touch build/fuzz/began
    [[ ! -e tests/fuzz/$target.dict ]] || options+=(-dict="tests/fuzz/$target.dict")
    # What is new goes to the first folder of inputs only.
    UBSAN_OPTIONS=print_stacktrace=1 nice -n 19 "build/fuzz/tests/fuzz/${target}_fuzz" -runs="$runs" \
        -max_len="${longest[$target]}" -timeout=10 -rss_limit_mb=2048 -print_final_stats=1 "${options[@]}" \
        -artifact_prefix="$findings/$target-" "$corpus" "tests/fuzz/corpus/$target" 2>&1 |
        tee "$log" | { grep --line-buffered -E "$progress" || true; } || status=1
    [[ -z $short ]] || rm -r "$corpus"
    local coverage inputs kept
    coverage=$(grep -oE 'cov: [0-9]+' "$log" | tail -n 1 | grep -oE '[0-9]+' || echo 0)
    inputs=$(grep -oE '^stat::number_of_executed_units: +[0-9]+' "$log" | grep -oE '[0-9]+' || echo 0)
    kept=$(find "$findings" -name "$target-*" -newer build/fuzz/began | wc -l)
    printf '%-20s %9d inputs %6d s   coverage %4d   findings %d\n' \
        "$target" "$inputs" $((SECONDS - began)) "$coverage" "$kept"
    ((status == 0)) || { failed+=("$target") && tail -n 60 "$log" >&2; }
}

short=
[[ ${1:-} != --short ]] || { short=yes && shift; }
target=${1:-all}
runs=${2:-10000000}
[[ -z $short ]] || runs=$short_runs
[[ $target == all || -n ${longest[$target]:-} ]] ||
    fail "There is no target $target." "The targets are: $(printf '%s\n' "${!longest[@]}" | sort | tr '\n' ' ')"
[[ $runs =~ ^[0-9]+$ ]] || fail "$runs is not a number of inputs."

tools/wine/setup.sh clang-19 libclang-rt-19-dev || {
    [[ -n $short ]] || fail "Fuzzing needs clang."
    say "Fuzzing is left out: clang 19 cannot be had here"
    exit 0
}
build fuzz
say "Fuzzing, $runs inputs for each target"
failed=()
if [[ $target == all ]]; then
    while read -r each; do
        fuzz_target "$each" "$runs"
    done < <(printf '%s\n' "${!longest[@]}" | sort)
else
    fuzz_target "$target" "$runs"
fi
((${#failed[@]} == 0)) || fail "Fuzzing found something: ${failed[*]}" "The inputs are in $findings."
