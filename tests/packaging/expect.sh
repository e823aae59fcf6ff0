# shellcheck shell=bash
# Sourced after tools/wine/session.sh, for tests that are scripts. $work: a folder that goes with the test.

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

# start_prefix: an empty one, in which the first script and console have made Wine write what they make it write.
start_prefix() {
    # shellcheck disable=SC2119
    session_start
    trap 'session_end; rm -rf "$work"' EXIT
    echo 'WScript.Echo CreateObject("Scripting.FileSystemObject").GetTempName' >"$work/first.vbs"
    session_run 60 cscript.exe //nologo "$(windows_path "$work/first.vbs")" >/dev/null
    session_run 60 cmd.exe /c ver >/dev/null
}

broken() {
    printf 'NOT AS IT SHOULD BE: %s\n' "$1" >&2
    [[ ! -s $work/said ]] || sed 's/^/    /' "$work/said" >&2
    exit 1
}
# expect CODE PROGRAM [ARGUMENT...]: what it says is in $work/said.
expect() {
    local wanted=$1 code=0
    shift
    SESSION_OUTPUT=$(mktemp -p "$work") session_run 180 "$@" >"$work/said" || code=$?
    ((code == wanted)) || broken "exit code $code instead of $wanted: $*"
}
says() { grep -qF -- "$1" "$work/said" || broken "it does not say '$1'"; }
says_not() { ! grep -qF -- "$1" "$work/said" || broken "it says '$1'"; }
# A script gets its object, and reads its type library.
an_object_is_made() {
    expect 0 cscript.exe //nologo "$(windows_path "$work/create.vbs")"
    says "It works"
}
cat >"$work/create.vbs" <<'SCRIPT'
Set ghosthand = CreateObject("Ghosthand.Ghosthand")
Set window = ghosthand.MainWindow("no such program", "", "", 0, 0)
If window Is Nothing Then WScript.Echo "It works"
SCRIPT
