#!/bin/bash
# Drives programs for a long time while scripts and programs end, stop, close their windows or do harm.
#   ./soak.sh                    everything, about an hour
#   ./soak.sh fault              either side ends, stops or loses its window in the middle of every kind of step
#   ./soak.sh hostile            somebody writes to the module's shared section while scripts work
#   ./soak.sh actions            thousands of actions by one script: do handles, memory, atoms, hooks grow?
# Options:
#   --times N      fault: how often each fault happens in each step (3)
#   --minutes M    hostile: how long (10)
#   --actions N    actions: how many on the sample host, and a fifth of it on other programs (10000)
#   --only STEP    fault, actions: only steps whose name contains it
#   --seed S       does what a run with that seed did; each run prints its own
# The tables of each part are also in build/soak/. Exit code 0: nothing failed.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
# shellcheck source=tools/wine/session.sh
source tools/wine/session.sh
# shellcheck source=tools/wine/build.sh
source tools/wine/build.sh

usage() {
    sed -n '2,/^set /s/^# \{0,1\}//p' "${BASH_SOURCE[0]}"
}

parts=()
options=()
seed=$RANDOM
while (($#)); do
    case $1 in
        fault | hostile | actions) parts+=("$1") ;;
        --seed) seed=${2:?--seed needs a number} && shift ;;
        --times | --minutes | --actions | --only) options+=("$1" "${2:?$1 needs a value}") && shift ;;
        -h | --help) usage && exit ;;
        *) usage >&2 && exit 2 ;;
    esac
    shift
done
((${#parts[@]})) || parts=(fault hostile actions)

tools/wine/setup.sh
build cross fault_test ghosthand sample_host
mkdir -p build/soak

say "Starting a desktop and a fresh Wine prefix"
# shellcheck disable=SC2119
session_start
GHOSTHAND_DLL=Z:$PWD/build/cross/src/server/ghosthand.dll
GHOSTHAND_SAMPLE_HOST=Z:$PWD/build/cross/samples/host/sample_host.exe
export GHOSTHAND_DLL GHOSTHAND_SAMPLE_HOST

failed=()
for part in "${parts[@]}"; do
    say "Soak: $part, seed $seed"
    rm -f "build/soak/$part.txt"
    # A day: a part that hangs is ended and counts as failed.
    session_run 86400 build/cross/tests/fault/fault_test.exe "$part" --seed "$seed" "${options[@]}" \
        --output "$(windows_path build/soak)\\$part.txt" || failed+=("$part")
done

say "Tables: build/soak/*.txt"
((${#failed[@]} == 0)) || fail "Something failed in: ${failed[*]} (seed $seed)." \
    "Repeat one step with: ./soak.sh ${failed[0]} --seed $seed --only STEP; its name comes first in each failure's line."
say "Nothing failed"
