#!/bin/bash
# Registering, removing and checking with the console tool, in the registry of an empty Wine prefix.
#   console_tool_test.sh TOOL.exe SERVER.dll
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
# shellcheck source=tools/wine/session.sh
source tools/wine/session.sh
# shellcheck source=tests/packaging/expect.sh
source tests/packaging/expect.sh

start_prefix
drive=$WINEPREFIX/drive_c
mkdir -p "$drive/place"
cp "$1" "$2" "$drive/place/"
tool='C:\place\ghosthand.exe'
server='C:\place\ghosthand.dll'
classes='Software\Classes'
entry_class='{839220FB-6E90-49C5-B87F-2D00DCD3360E}'
library='{ADF61CBC-BE37-4075-A6D5-3983AAF171ED}'
remove_key() { expect 0 reg.exe delete "$1" /f; }
# What there is of Ghosthand's in the registry.
nothing_is_left() {
    timeout 60 wineserver -w
    ! grep -ia ghosthand "$WINEPREFIX/system.reg" "$WINEPREFIX/user.reg" >"$work/said" || broken "something is left"
}

say "Register, check, unregister"
expect 1 "$tool" check
says "PROBLEM  Ghosthand is not registered"
expect 0 "$tool" unregister
says "Nothing is registered"
nothing_is_left
expect 0 "$tool" register
says "Registered for all users: $server"
an_object_is_made
expect 0 "$tool" check
says "OK       Registered for all users: $server"
says 'OK       CreateObject("Ghosthand.Ghosthand") works'
says_not PROBLEM
expect 1 "$tool" check no_such_program
says "No program runs whose file name begins with 'no_such_program'"
expect 0 "$tool" unregister
nothing_is_left

say "A registration that stopped halfway"
for key in "CLSID\\$entry_class" 'Ghosthand.TreeItem.1\CLSID' "Typelib\\$library"; do
    expect 0 "$tool" register
    remove_key "HKLM\\$classes\\$key"
    expect 1 "$tool" check
    says "stopped halfway"
    expect 0 "$tool" check --mend
    says "is whole again"
    says_not PROBLEM
    remove_key "HKLM\\$classes\\$key"
    expect 0 "$tool" register
    says "is whole again"
    remove_key "HKLM\\$classes\\$key"
    expect 0 "$tool" unregister
    nothing_is_left
done
expect 0 "$tool" register
expect 0 reg.exe add "HKLM\\$classes\\Typelib\\$library\\1.0\\409\\win32" /ve /d 'C:\elsewhere.dll' /f
expect 1 "$tool" check
says "is 'C:\\elsewhere.dll', not '$server'"
expect 0 "$tool" unregister

say "For the current user alone"
expect 0 "$tool" register --user
expect 0 "$tool" register --user
says_not "whole again"
expect 0 reg.exe query "HKCU\\$classes\\CLSID\\$entry_class\\InprocServer32"
expect 0 reg.exe query "HKCU\\$classes\\Typelib\\$library\\1.0\\409\\win32"
expect 1 reg.exe query "HKLM\\$classes\\CLSID\\$entry_class"
expect 1 reg.exe query "HKLM\\$classes\\Typelib\\$library"
remove_key "HKCU\\$classes\\Ghosthand.Ghosthand"
# Wine does not look for classes there, so an object cannot be made in any case.
expect 1 "$tool" check
says "The registration for the current user stopped halfway or was changed: Ghosthand.Ghosthand is missing"
says "ghosthand register --user"
expect 0 "$tool" unregister --user
nothing_is_left

say "Copies"
mkdir -p "$drive/other"
cp "$2" "$drive/other/"
expect 0 "$tool" register 'C:\other\ghosthand.dll'
expect 0 "$tool" check
says "another copy beside this tool, which is not registered: $server"
expect 0 "$tool" unregister "$server"
says "Left alone"
expect 0 "$tool" register --user
expect 1 "$tool" check
says "Two copies are registered; scripts of the current user get the first: $server, C:\\other\\ghosthand.dll"
expect 0 "$tool" unregister --user
rm "$drive/other/ghosthand.dll"
expect 1 "$tool" check
says "The registered file is not there: C:\\other\\ghosthand.dll"
expect 0 "$tool" unregister
nothing_is_left
expect 0 "$tool" register 'C:\place\.\GHOSTHAND.dll'
expect 0 "$tool" check
says_not "another copy"
expect 0 "$tool" unregister

say "Files that cannot be registered"
expect 1 "$tool" register 'C:\no such file.dll'
says "There is no such file"
expect 1 "$tool" register "$tool"
says "not a DLL"
# The processor in the header says 32-bit.
python3 - "$2" "$drive/other/32.dll" <<'SCRIPT'
import struct, sys
data = bytearray(open(sys.argv[1], "rb").read())
header = struct.unpack_from("<I", data, 0x3C)[0]
struct.pack_into("<H", data, header + 4, 0x14C)
open(sys.argv[2], "wb").write(data)
SCRIPT
expect 1 "$tool" register 'C:\other\32.dll'
says "not a 64-bit one"
head -c 3000 "$2" >"$drive/other/cut.dll"
expect 1 "$tool" register 'C:\other\cut.dll'
says "Registering failed"
expect 2 "$tool" register --everyone
nothing_is_left

say "Paths of all kinds"
printf -v long '%*s' $((250 - 17)) ''
for folder in "it's 100% Prüfstand & more" "${long// /d}"; do
    mkdir -p "$drive/$folder"
    cp "$2" "$drive/$folder/"
    expect 0 "$tool" register "C:\\$folder\\ghosthand.dll"
    says "Registered for all users: C:\\$folder\\ghosthand.dll"
    an_object_is_made
    expect 0 "$tool" unregister
done
nothing_is_left
printf 'All as it should be\n'
