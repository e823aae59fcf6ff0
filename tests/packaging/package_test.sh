#!/bin/bash
# The installer in an empty Wine prefix: installs, runs a script, installs over what is there, meets a program that
# holds the server, meets folders of all kinds, and removes: then registry and disk are as before.
#   package_test.sh BUILD_FOLDER SAMPLE_HOST
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
# shellcheck source=tools/wine/session.sh
source tools/wine/session.sh
# shellcheck source=tests/packaging/expect.sh
source tests/packaging/expect.sh

build=$1
# What CTest takes for "skipped".
skipped=77
for program in makensis unzip python3; do
    command -v "$program" >/dev/null || { echo "Skipped: $program is not installed (tools/wine/setup.sh)"; exit $skipped; }
done

package=$work/package
say "Making the packages"
(cd "$build" && cpack -B "$package") >"$work/cpack.log" 2>&1 || { cat "$work/cpack.log"; exit 1; }
installer=$(echo "$package"/ghosthand-*-x64.exe)
archive=$(echo "$package"/ghosthand-*-x64.zip)

start_prefix
rest() { timeout 60 wineserver -w; }
drive=$WINEPREFIX/drive_c
files=$drive/'Program Files'/Ghosthand
settings='Software\Microsoft\Windows\CurrentVersion\Uninstall\Ghosthand'
server='Software\Classes\CLSID\{839220FB-6E90-49C5-B87F-2D00DCD3360E}\InprocServer32'

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
# uninstall FOLDER: waits, as the uninstaller goes on in a copy of itself.
uninstall() {
    local place=$drive${1#C:}
    place=${place//\\//}
    expect 0 "$1\\uninstall.exe" /S
    for _ in {1..150}; do
        [[ -e $place/uninstall.exe ]] || break
        sleep 0.2
    done
    # Its copy.
    rest
}

start_host() {
    timeout 300 wine "$@" </dev/null >/dev/null 2>&1 &
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
cat >"$work/uninstall.bat" <<'SCRIPT'
@"C:\Program Files\Ghosthand\uninstall.exe" /S _?=C:\Program Files\Ghosthand
@exit /b %ERRORLEVEL%
SCRIPT
snapshot before

say "Installing for all users"
expect 0 "$installer" /S
(cd "$files" && find . -type f | sed 's|^\./||' | sort) >"$work/installed"
diff <(grep -vx -e installed-files.txt -e uninstall.exe "$work/installed") "$work/archive" || broken "installer and archive differ"
[[ $(registered HKLM) == 'C:\Program Files\Ghosthand\ghosthand.dll' ]] || broken "registered is '$(registered HKLM)'"
expect 0 'C:\Program Files\Ghosthand\ghosthand.exe' check
an_object_is_made
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
# What has not been set aside yet is not taken for new.
echo old >"$files/samples/sample_host.exe"
expect 0 "$installer" /S
(($(stat -c %s "$files/samples/sample_host.exe") > 10000)) || broken "an old file stayed"
[[ -e $files/ghosthand.exe && -e $files/installed-files.txt && ! -e $files/~old ]] || broken "it was not: $(ls "$files")"

say "A file that cannot be moved: everything stays as it is"
echo changed >>"$files/ghosthand.exe"
contents() { (cd "$files" && find . -type f -exec sha256sum {} + | sort); }
contents >"$work/contents"
cp "$files/samples/sample_host.exe" "$drive/tools/"
# Its standard input is a file that nobody else may delete.
cat >"$work/hold.bat" <<'SCRIPT'
@C:\tools\sample_host.exe <"C:\Program Files\Ghosthand\include\ghosthand\host_contract.h"
SCRIPT
start_host cmd.exe /c "$(windows_path "$work/hold.bat")"
expect 2 "$installer" /S
says "host_contract.h cannot be replaced. Everything is as before."
end_host
diff "$work/contents" <(contents) >"$work/said" || broken "the files have changed"
[[ ! -e $files/~old && ! -e $files/~new ]] || broken "there are remains"
expect 0 'C:\Program Files\Ghosthand\ghosthand.exe' check

say "A driven program holds the server"
start_host 'C:\tools\sample_host.exe'
expect 0 cscript.exe //nologo "$(windows_path "$work/drive.vbs")"
says Driven
expect 1 'C:\Program Files\Ghosthand\ghosthand.exe' holders
says "sample_host.exe (process"
find "$files" -type f -printf '%P %s %T@\n' | sort >"$work/held"
expect 3 "$installer" /S
says "sample_host.exe (process"
# This way it waits and gives its own exit code, but cannot remove itself.
expect 3 cmd.exe /c "$(windows_path "$work/uninstall.bat")"
says "sample_host.exe (process"
diff "$work/held" <(find "$files" -type f -printf '%P %s %T@\n' | sort) || broken "files changed below a program that holds them"
[[ -n $(registered HKLM) ]] || broken "the held server is no longer registered"
end_host
rm "$drive/tools/sample_host.exe"

say "Removing"
rm "$files/samples/own.vbs"
expect 0 cmd.exe /c "$(windows_path "$work/uninstall.bat")"
[[ $(ls "$files") == uninstall.exe ]] || broken "more than the uninstaller is left: $(ls -R "$files")"
rm -r "$files"
as_before "Removed"

say "For the current user alone"
expect 0 "$installer" /S /CurrentUser
[[ -z $(registered HKLM) && $(registered HKCU) == *'\Ghosthand\ghosthand.dll' ]] || broken "registered is '$(registered HKCU)'"
user_folder=$(timeout 60 wine reg.exe query "HKCU\\$settings" /v InstallLocation </dev/null | tr -d '\r' | sed -n 's/.*REG_SZ *//p')
expect 2 "$installer" /S /AllUsers
says "for you alone"
uninstall "$user_folder"
as_before "Removed for the current user"

say "Folders of all kinds"
# The longest that Windows allows a file's path, with the longest name and where it is unpacked.
longest=$(sed 's/.* //' "$(find "$package" -name longest_name.nsh)")
printf -v long_folder 'C:\\%*s' $((259 - longest - 9)) ''
long_folder=${long_folder// /d}
for folder in 'C:\Prüf stände\it'\''s 100 % $HOME' 'C:\tools' "$long_folder"; do
    # Blanks and all, it must not be quoted: each word goes by itself.
    read -ra words <<<"$folder"
    expect 0 "$installer" /S "/D=${words[0]}" "${words[@]:1}"
    place=$folder
    # A folder with other things in it gets one below.
    [[ $folder != 'C:\tools' ]] || place='C:\tools\Ghosthand'
    expect 0 "$place\\ghosthand.exe" check
    says "Registered for all users: $place\\ghosthand.dll"
    an_object_is_made
    uninstall "$place"
done
as_before "Removed from folders of all kinds"
expect 2 "$installer" /S "/D=${long_folder}d"
says "too long"
as_before "A folder whose name is too long"

say "What was registered before is registered again"
unzip -q "$archive" -d "$drive/tools"
mv "$drive"/tools/ghosthand-*-x64 "$drive/tools/earlier"
expect 0 'C:\tools\earlier\ghosthand.exe' register
snapshot before
expect 0 "$installer" /S
[[ $(registered HKLM) == 'C:\Program Files\Ghosthand\ghosthand.dll' ]] || broken "registered is '$(registered HKLM)'"
uninstall 'C:\Program Files\Ghosthand'
as_before "Removed beside an earlier copy"
printf 'All as it should be\n'
