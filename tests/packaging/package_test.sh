#!/bin/bash
# The installer in an empty Wine prefix: installs, runs a script, installs over what is there, meets a program that
# holds the server, meets folders of all kinds, and removes: then registry and disk are as before.
#   package_test.sh BUILD_FOLDER SAMPLE_HOST
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
# shellcheck source=tools/wine/session.sh
source tools/wine/session.sh

build=$1
# What CTest takes for "skipped".
skipped=77
for program in makensis zip python3; do
    command -v "$program" >/dev/null || { echo "Skipped: $program is not installed (tools/wine/setup.sh nsis zip)"; exit $skipped; }
done

work=$(mktemp -d)
trap 'session_end; rm -rf "$work"' EXIT
package=$work/package
say "Making the packages"
(cd "$build" && cpack -B "$package") >"$work/cpack.log" 2>&1 || { cat "$work/cpack.log"; exit 1; }
installer=$(echo "$package"/ghosthand-*-x64.exe)
archive=$(echo "$package"/ghosthand-*-x64.zip)

# shellcheck disable=SC2119
session_start
trap 'session_end; rm -rf "$work"' EXIT
rest() { timeout 60 wineserver -w; }
# The first program of a prefix makes Wine write this and that.
session_run 60 reg.exe query 'HKCU\Software' >/dev/null
drive=$WINEPREFIX/drive_c
files=$drive/'Program Files'/Ghosthand
settings='Software\Microsoft\Windows\CurrentVersion\Uninstall\Ghosthand'
server='Software\Classes\CLSID\{839220FB-6E90-49C5-B87F-2D00DCD3360E}\InprocServer32'

broken() {
    printf 'NOT AS IT SHOULD BE: %s\n' "$1" >&2
    [[ ! -s $work/said ]] || sed 's/^/    /' "$work/said" >&2
    exit 1
}
# expect CODE PROGRAM [ARGUMENT...]: what it says is in $work/said.
expect() {
    local wanted=$1 code=0
    shift
    SESSION_OUTPUT=$work/said session_run 180 "$@" >/dev/null || code=$?
    ((code == wanted)) || broken "exit code $code instead of $wanted: $*"
}
says() { grep -qF -- "$1" "$work/said" || broken "it does not say '$1'"; }
# The registered server, with the root key HKLM or HKCU; nothing if there is none.
registered() { timeout 60 wine reg.exe query "$1\\$server" /ve 2>/dev/null </dev/null | tr -d '\r' | sed -n 's/.*REG_SZ *//p'; }
snapshot() {
    rest
    python3 tests/packaging/snapshot.py "$WINEPREFIX" >"$work/$1"
}
as_before() {
    snapshot now
    diff "$work/before" "$work/now" >"$work/said" || broken "$1: this has changed"
}
# run_script SCRIPT: with the 64-bit cscript; its last line tells whether it came to its end.
run_script() { expect 0 cscript.exe //nologo "$1"; }
# uninstall FOLDER CODE: waits, as the uninstaller goes on in a copy of itself.
uninstall() {
    expect "$2" "$1\\uninstall.exe" /S "_?=$1"
    # It cannot remove itself where it is run in its place.
    (($2)) || rm -f "$(winepath_unix "$1")/uninstall.exe"
    (($2)) || rmdir --ignore-fail-on-non-empty "$(winepath_unix "$1")" 2>/dev/null || true
}
winepath_unix() { local path=${1#C:}; printf '%s\n' "$drive${path//\\//}"; }

cat >"$work/create.vbs" <<'SCRIPT'
Set ghosthand = CreateObject("Ghosthand.Ghosthand")
Set window = ghosthand.MainWindow("no such program", "", "", 0, 0)
If window Is Nothing Then WScript.Echo "It works"
SCRIPT

start_host() {
    timeout 300 wine "$1" </dev/null >/dev/null 2>&1 &
    host_pid=$!
    sleep 3
}
end_host() {
    kill "$host_pid" 2>/dev/null || true
    wait "$host_pid" 2>/dev/null || true
    session_run 60 taskkill.exe /f /im sample_host.exe >/dev/null 2>&1 || true
    sleep 1
}
# Drives the program, so that it holds the server.
cat >"$work/drive.vbs" <<'SCRIPT'
Set ghosthand = CreateObject("Ghosthand.Ghosthand")
Set window = ghosthand.MainWindow("sample_host")
window.Command 601
Set dialog = window.ActiveDialog(20)
If Not dialog Is Nothing Then
    dialog.Close
    WScript.Echo "Driven"
End If
SCRIPT

say "The archive holds what the installer installs"
unzip -Z1 "$archive" | sed 's|^[^/]*/||' | grep -v '/$' | sort >"$work/archive"
for wanted in ghosthand.dll ghosthand.exe samples/sample_host.exe include/ghosthand/host_contract.h \
    samples/registration_free/registration_free.exe; do
    grep -qx "$wanted" "$work/archive" || broken "the archive lacks $wanted"
done
grep -q '^docs/' "$work/archive" || broken "the archive lacks the documents"

# Things of others, next to which Ghosthand goes.
mkdir -p "$drive/Program Files/Other" "$drive/tools"
echo theirs >"$drive/Program Files/Other/ghosthand.dll"
echo theirs >"$drive/tools/ghosthand.dll"
session_run 60 reg.exe add 'HKLM\Software\Classes\Ghosthandle.Other' /ve /d theirs /f >/dev/null
session_run 60 reg.exe add 'HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Other' /v DisplayName /d theirs /f >/dev/null
session_run 60 reg.exe add 'HKCU\Software\Classes\CLSID\{00000000-0000-0000-0000-000000000001}' /ve /d theirs /f >/dev/null
snapshot before

say "Installing for all users"
expect 0 "$installer" /S
(cd "$files" && find . -type f | sed 's|^\./||' | sort) >"$work/installed"
diff <(grep -vx -e installed-files.txt -e uninstall.exe "$work/installed") "$work/archive" || broken "installer and archive differ"
[[ $(registered HKLM) == 'C:\Program Files\Ghosthand\ghosthand.dll' ]] || broken "registered is '$(registered HKLM)'"
expect 0 'C:\Program Files\Ghosthand\ghosthand.exe' check
run_script "$(windows_path "$work/create.vbs")"
says "It works"
find "$drive" -name 'Sample program.lnk' | grep -q 'Start Menu' || broken "there is no entry in the start menu"

say "Installing over it"
echo "a tester's own" >"$files/samples/own.vbs"
echo obsolete >"$files/docs/obsolete.txt"
printf 'docs\\obsolete.txt\r\n' >>"$files/installed-files.txt"
echo old >"$files/samples/sample_host.exe"
expect 0 "$installer" /S
[[ ! -e $files/docs/obsolete.txt && -e $files/samples/own.vbs && ! -e $files/~old && ! -e $files/~new ]] ||
    broken "the update has not done what it should: $(ls -R "$files")"
(($(stat -c %s "$files/samples/sample_host.exe") > 10000)) || broken "the update left an old file"

say "An update that was interrupted is undone by the next"
mkdir -p "$files/~old" "$files/~new"
mv "$files/installed-files.txt" "$files/ghosthand.exe" "$files/~old/"
grep -v '^ghosthand.exe' "$files/~old/installed-files.txt" >"$files/~new/installed-files.txt"
expect 0 "$installer" /S
[[ -e $files/ghosthand.exe && -e $files/installed-files.txt && ! -e $files/~old ]] || broken "it was not: $(ls "$files")"

say "A driven program holds the server"
start_host 'C:\Program Files\Ghosthand\samples\sample_host.exe'
end_host
cp "$files/samples/sample_host.exe" "$drive/tools/"
start_host 'C:\tools\sample_host.exe'
run_script "$(windows_path "$work/drive.vbs")"
says Driven
expect 1 'C:\Program Files\Ghosthand\ghosthand.exe' holders
says "sample_host.exe (process"
find "$files" -type f -printf '%P %s %T@\n' | sort >"$work/held"
expect 3 "$installer" /S
says "sample_host.exe (process"
uninstall 'C:\Program Files\Ghosthand' 3
says "sample_host.exe (process"
diff "$work/held" <(find "$files" -type f -printf '%P %s %T@\n' | sort) || broken "files changed below a program that holds them"
[[ -n $(registered HKLM) ]] || broken "the held server is no longer registered"
end_host
rm "$drive/tools/sample_host.exe"

say "Removing"
rm "$files/samples/own.vbs"
expect 0 'C:\Program Files\Ghosthand\uninstall.exe' /S
for _ in {1..100}; do
    [[ -e $files ]] || break
    sleep 0.2
done
as_before "Removed"

say "For the current user alone"
expect 0 "$installer" /S /CurrentUser
[[ -z $(registered HKLM) && $(registered HKCU) == *'\Ghosthand\ghosthand.dll' ]] || broken "registered is '$(registered HKCU)'"
user_folder=$(timeout 60 wine reg.exe query "HKCU\\$settings" /v InstallLocation </dev/null | tr -d '\r' | sed -n 's/.*REG_SZ *//p')
expect 2 "$installer" /S /AllUsers
says "for you alone"
uninstall "$user_folder" 0
as_before "Removed for the current user"

say "Folders of all kinds"
for folder in 'C:\Prüf stände\it'\''s 100 % $HOME' 'C:\tools' "C:\\$(printf 'd%.0s' {1..150})"; do
    expect 0 "$installer" /S "/D=$folder"
    place=$folder
    # A folder with other things in it gets one below.
    [[ $folder != 'C:\tools' ]] || place='C:\tools\Ghosthand'
    [[ $(registered HKLM) == "$place\\ghosthand.dll" ]] || broken "registered is '$(registered HKLM)', not '$place'"
    expect 0 "$place\\ghosthand.exe" check
    run_script "$(windows_path "$work/create.vbs")"
    says "It works"
    uninstall "$place" 0
done
rm -rf "$drive/Prüf stände"
as_before "Removed from folders of all kinds"
expect 2 "$installer" /S "/D=C:\\$(printf 'd%.0s' {1..240})"
says "too long"
as_before "A folder whose name is too long"

say "What was registered before is registered again"
unzip -q "$archive" -d "$drive/tools"
mv "$drive"/tools/ghosthand-*-x64 "$drive/tools/earlier"
expect 0 'C:\tools\earlier\ghosthand.exe' register
snapshot before
expect 0 "$installer" /S
[[ $(registered HKLM) == 'C:\Program Files\Ghosthand\ghosthand.dll' ]] || broken "registered is '$(registered HKLM)'"
uninstall 'C:\Program Files\Ghosthand' 0
as_before "Removed beside an earlier copy"
printf 'All as it should be\n'
