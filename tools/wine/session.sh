# shellcheck shell=bash
# Sourced: a desktop (Xvfb) and a Wine prefix of the script's own, both gone when the script ends.
# Only processes that were started here are ended, and by their id.

session_root=$(cd "$(dirname "${BASH_SOURCE[0]}")/../.." && pwd)
session_cache=$session_root/build/wine
# shellcheck source=tools/wine/messages.sh
source "$session_root/tools/wine/messages.sh"

# No debug channels: they slow everything down, and without them Wine does not ask for its 32-bit half.
export WINEDEBUG=${WINEDEBUG:--all}
# No Mono and Gecko downloads, no debugger that a crashed program would wait for, no menu entries in
# the user's home.
export WINEDLLOVERRIDES='mscoree,mshtml,winedbg.exe,winemenubuilder.exe='

# Language, code page and the character set of file names are the same on every machine, whoever starts the script.
export LC_ALL=C.UTF-8
unset LANGUAGE

session_prefix_open=
session_display_pid=
session_folder=

# session_start [PREFIX]: starts the desktop and makes the Wine prefix ready: PREFIX, which is kept, or
# without an argument a fresh one that goes away with the session.
session_start() {
    trap session_end EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM
    mkdir -p "$session_cache"
    session_make_folder
    session_start_display
    export WINEPREFIX=${1:-$session_folder/prefix}
    [[ -e $WINEPREFIX/system.reg ]] || session_copy_template "$WINEPREFIX"
    session_prefix_open=yes
    # Tells tools/wine/run that there is a session to use.
    export GHOSTHAND_SESSION=$$
}

session_end() {
    trap - EXIT
    if [[ -n $session_prefix_open ]]; then
        # Ends what runs in this prefix and nothing else.
        timeout 30 wineserver -k || true
        timeout 30 wineserver -w || true
    fi
    [[ -z $session_folder ]] || rm -rf "$session_folder"
    # Last, as the folder is its own until then.
    if [[ -n $session_display_pid ]]; then
        kill "$session_display_pid" 2>/dev/null || true
    fi
}

# The session's own folder, and the end of those that sessions left behind that were killed before they could
# clean up. A lock tells which are in use, as process ids mean nothing to sessions in other containers.
session_make_folder() {
    local creation
    exec {creation}>"$session_cache/lock"
    flock "$creation"
    session_remove_abandoned_folders
    session_folder=$(mktemp -d "$session_cache/session-XXXXXX")
    exec {session_lock}<"$session_folder"
    flock "$session_lock"
    exec {creation}>&-
}

session_remove_abandoned_folders() {
    local folder lock
    for folder in "$session_cache"/session-*/; do
        [[ -d $folder ]] || continue
        exec {lock}<"$folder"
        if flock -n "$lock"; then
            WINEPREFIX=${folder}prefix timeout 30 wineserver -k || true
            rm -rf "$folder"
        fi
        exec {lock}<&-
    done
}

session_start_display() {
    local number_file=$session_folder/display number=
    : >"$number_file"
    # -displayfd picks a free number; -noreset keeps the desktop when its last program ends; setpriv ends
    # it even when this script is killed. The folder's lock is the desktop's from now on, and ends with it.
    setpriv --pdeathsig TERM Xvfb -displayfd 3 -screen 0 1280x1024x24 -noreset -nolisten tcp \
        3>"$number_file" </dev/null >"$session_cache/xvfb.log" 2>&1 &
    session_display_pid=$!
    exec {session_lock}<&-
    for _ in {1..150}; do
        number=$(<"$number_file")
        [[ -z $number ]] || break
        kill -0 "$session_display_pid" 2>/dev/null || break
        sleep 0.1
    done
    [[ -n $number ]] || fail "The virtual desktop (Xvfb) did not start." "Read $session_cache/xvfb.log"
    export DISPLAY=:$number
}

# session_scale_display DPI: to programs that start from now on the display has that many dots per inch, and
# they see it as their DPI awareness has it. What runs in the session ends.
session_scale_display() {
    local setting
    # Without DpiScalingVer, Wine takes every program for one that is aware of each monitor's scale.
    for setting in "LogPixels $1" "DpiScalingVer 4096"; do
        timeout 60 wine reg add 'HKCU\Control Panel\Desktop' /f /t REG_DWORD \
            /v "${setting% *}" /d "${setting#* }" >/dev/null 2>&1 </dev/null ||
            fail "The display could not be scaled." "Is there disk space left?"
    done
    timeout 30 wineserver -k || true
    timeout 30 wineserver -w || true
}

# A prefix takes ten seconds to make and one to copy: each version of Wine gets a template, and another one when
# this script makes it otherwise.
session_copy_template() {
    local templates template recipe
    templates=$session_cache/template-$(wine --version | tr -dc 'a-zA-Z0-9.-')
    recipe=$(declare -f session_make_template | cksum)
    template=$templates-${recipe%% *}
    (
        flock 9
        [[ -e $template ]] || { rm -rf "$templates"* && session_make_template "$template"; }
    ) 9>"$session_cache/lock"
    mkdir -p "$(dirname "$1")"
    cp -a --reflink=auto "$template" "$1"
}

session_make_template() {
    say "Preparing Wine (once, 10 to 60 s)"
    local unfinished=$1.unfinished link
    WINEPREFIX=$unfinished timeout 300 wine wineboot -i </dev/null >"$session_cache/wineboot.log" 2>&1 ||
        fail "Wine could not make its prefix." "Read $session_cache/wineboot.log"
    # Whoever queries performance data is given that of the printing system, which leaves handles and, with Wine 10,
    # memory behind.
    WINEPREFIX=$unfinished timeout 60 wine reg delete 'HKLM\System\CurrentControlSet\Services\Spooler\Performance' /f \
        </dev/null >>"$session_cache/wineboot.log" 2>&1 || true
    WINEPREFIX=$unfinished timeout 60 wineserver -w || true
    # Wine links Documents, Desktop and so on to the user's own folders, where no test has any business.
    while IFS= read -r -d '' link; do
        rm "$link"
        mkdir "$link"
    done < <(find "$unfinished/drive_c/users" -type l -print0)
    mv "$unfinished" "$1"
}

# session_run SECONDS PROGRAM [ARGUMENT...]: runs a Windows program, shows its output as it comes and
# returns its exit code, 124 when it had to be ended. SESSION_OUTPUT: a file that keeps the output.
session_run() {
    local limit=$1 output=${SESSION_OUTPUT:-} program_pid viewer_pid code=0
    shift
    # The output takes the way through a file: programs that stay behind (Wine's own explorer) inherit
    # it, and whoever reads a pipe would wait for those.
    [[ -n $output ]] || output=$(mktemp)
    timeout --kill-after=5 "$limit" wine "$@" </dev/null >"$output" 2>&1 &
    program_pid=$!
    tail -n +1 -f -s 0.1 --pid="$program_pid" "$output" | sed -u 's/\r$//' &
    viewer_pid=$!
    # Waiting here, unlike for a command in the foreground, lets a signal end the script at once.
    wait "$program_pid" || code=$?
    wait "$viewer_pid" || true
    [[ -n ${SESSION_OUTPUT:-} ]] || rm -f "$output"
    if ((code == 124 || code == 137)); then
        printf 'Ended after %s s: %s\n' "$limit" "$*" >&2
        code=124
    fi
    return "$code"
}

# windows_path PATH: how a Windows program names a file of this machine.
windows_path() {
    local path
    path=Z:$(realpath "$1")
    printf '%s\n' "${path//\//\\}"
}

# session_screenshot FILE.png: the whole desktop.
session_screenshot() {
    timeout 30 import -display "$DISPLAY" -window root "$1"
}
