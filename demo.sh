#!/bin/bash
# Shows Ghosthand at work: installs what is missing, builds the server, registers it in a Wine prefix of
# its own and lets scripts drive two programs, Wine's Notepad and the sample host.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
# shellcheck source=tools/wine/session.sh
source tools/wine/session.sh
# shellcheck source=tools/wine/build.sh
source tools/wine/build.sh

demo=$PWD/build/demo

# drive NAME PROGRAM: starts the program, runs samples/vbscript/NAME.vbs on it, takes its picture.
drive() {
    local name=$1 program=$2 script program_pid
    script=$(windows_path "samples/vbscript/$name.vbs")
    say "Starting $program, driven by samples/vbscript/$name.vbs"
    timeout 300 wine "$program" </dev/null >"$demo/$name.log" 2>&1 &
    program_pid=$!
    SESSION_OUTPUT=$demo/$name.txt session_run 180 cscript.exe //nologo "$script" || true
    # Wine's cscript answers 0 for an error in a script, too: the last line tells the truth.
    grep -q '^Done' "$demo/$name.txt" ||
        fail "The script samples/vbscript/$name.vbs failed." "Its last line says where. What $program wrote: $demo/$name.log"
    # What a closed dialog covered is painted when the program gets to it.
    sleep 1
    session_screenshot "$demo/$name.png" || fail "No screenshot could be taken of the desktop $DISPLAY."
    kill "$program_pid" 2>/dev/null || true
    wait "$program_pid" 2>/dev/null || true
}

tools/wine/setup.sh
build cross ghosthand sample_host

mkdir -p "$demo"
rm -f "$demo"/*.png
say "Starting a desktop and Wine"
session_start "$demo/prefix"
# Wine's own desktop draws title bars, which would need a window manager otherwise.
session_run 60 reg.exe add 'HKCU\Software\Wine\Explorer' /v Desktop /d Default /f >/dev/null
session_run 60 reg.exe add 'HKCU\Software\Wine\Explorer\Desktops' /v Default /d 1280x1024 /f >/dev/null
module=build/cross/src/server/ghosthand.dll
say "Registering $module"
session_run 60 regsvr32.exe /s "$(windows_path "$module")" ||
    fail "regsvr32 refused the server." "Start over with a new prefix: rm -r build/demo && ./demo.sh"

sample_host=$(windows_path build/cross/samples/host/sample_host.exe)
drive notepad notepad.exe
drive sample_host "$sample_host"
drive cad_story "$sample_host"

printf '\nThe desktop after each script:\n'
printf '%s\n' "$demo/cad_story.png" "$demo/sample_host.png" "$demo/notepad.png"
