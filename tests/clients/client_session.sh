# shellcheck shell=bash
# Sourced behind tools/wine/session.sh and packages.sh: a desktop and a prefix as the clients need them.

# The samples are run where they lie, and nothing is to be left there.
export PYTHONDONTWRITEBYTECODE=1

# client_session_start SERVER: a desktop with the server (as Windows names the file) registered, and windows with
# frames, which Wine's own desktop draws.
client_session_start() {
    # shellcheck disable=SC2119
    session_start
    session_run 60 reg.exe add 'HKCU\Software\Wine\Explorer' /v Desktop /d Default /f >/dev/null
    session_run 60 reg.exe add 'HKCU\Software\Wine\Explorer\Desktops' /v Default /d 1280x1024 /f >/dev/null
    # A program that waits for a key for ever: a desktop without programs closes, and whoever starts then meets that.
    mkfifo "$WINEPREFIX/no_key"
    exec 9<>"$WINEPREFIX/no_key"
    wine cmd.exe /c pause <&9 >/dev/null 2>&1 7>&- &
    session_run 60 regsvr32.exe /s "$1" || fail "regsvr32 refused the server."
}

# install_python: as on a tester's machine, C:\python. Clients write into it (what they generate).
install_python() {
    cp -a --reflink=auto "$packages/python" "$WINEPREFIX/drive_c/python"
}
