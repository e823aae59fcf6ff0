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
session_disposable_prefix=

# session_start [PREFIX]: starts the desktop and makes the Wine prefix ready: PREFIX, which is kept, or
# without an argument a fresh one that goes away with the session.
session_start() {
    trap session_end EXIT
    trap 'exit 130' INT
    trap 'exit 143' TERM
    mkdir -p "$session_cache"
    session_start_display
    if (($#)); then
        export WINEPREFIX=$1
    else
        session_remove_abandoned_prefixes
        session_disposable_prefix=$session_cache/session-$$
        export WINEPREFIX=$session_disposable_prefix
    fi
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
    if [[ -n $session_display_pid ]]; then
        kill "$session_display_pid" 2>/dev/null || true
    fi
    [[ -z $session_disposable_prefix ]] || rm -rf "$session_disposable_prefix"
}

session_start_display() {
    local number_file=$session_cache/display-$$ number=
    : >"$number_file"
    # -displayfd picks a free number; -noreset keeps the desktop when its last program ends; setpriv ends
    # it even when this script is killed.
    setpriv --pdeathsig TERM Xvfb -displayfd 3 -screen 0 1280x1024x24 -noreset -nolisten tcp \
        3>"$number_file" </dev/null >"$session_cache/xvfb.log" 2>&1 &
    session_display_pid=$!
    for _ in {1..150}; do
        number=$(<"$number_file")
        [[ -z $number ]] || break
        kill -0 "$session_display_pid" 2>/dev/null || break
        sleep 0.1
    done
    rm -f "$number_file"
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

# A prefix takes ten seconds to make and one to copy: each version of Wine gets a template.
session_copy_template() {
    local template
    template=$session_cache/template-$(wine --version | tr -dc 'a-zA-Z0-9.-')
    (
        flock 9
        [[ -e $template ]] || session_make_template "$template"
    ) 9>"$session_cache/lock"
    mkdir -p "$(dirname "$1")"
    cp -a --reflink=auto "$template" "$1"
}

session_make_template() {
    say "Preparing Wine (once, 10 to 60 s)"
    local unfinished=$1.unfinished link
    rm -rf "$unfinished"
    WINEPREFIX=$unfinished timeout 300 wine wineboot -i </dev/null >"$session_cache/wineboot.log" 2>&1 ||
        fail "Wine could not make its prefix." "Read $session_cache/wineboot.log"
    WINEPREFIX=$unfinished timeout 60 wineserver -w || true
    # Wine links Documents, Desktop and so on to the user's own folders, where no test has any business.
    while IFS= read -r -d '' link; do
        rm "$link"
        mkdir "$link"
    done < <(find "$unfinished/drive_c/users" -type l -print0)
    mv "$unfinished" "$1"
}

# What sessions left behind that were killed before they could clean up.
session_remove_abandoned_prefixes() {
    local prefix
    for prefix in "$session_cache"/session-*; do
        [[ -d $prefix ]] || continue
        kill -0 "${prefix##*-}" 2>/dev/null && continue
        WINEPREFIX=$prefix timeout 30 wineserver -k || true
        rm -rf "$prefix"
    done
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
