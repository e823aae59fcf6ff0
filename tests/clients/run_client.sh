#!/bin/bash
# run_client.sh CLIENT: one client's stories on a desktop and in a Wine prefix of its own, where the server is
# registered for it. CTest runs it with variables (GHOSTHAND_...) that say where what was built is;
# ends with 77 where what the client needs cannot be had.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/../.."
# shellcheck source=tools/wine/session.sh
source tools/wine/session.sh
# shellcheck source=tests/clients/packages.sh
source tests/clients/packages.sh
# shellcheck source=tests/clients/client_session.sh
source tests/clients/client_session.sh

output=

# start_session: a desktop for clients with the server registered.
start_session() {
    client_session_start "$GHOSTHAND_DLL"
    output=$WINEPREFIX/client.txt
}

# run_windows PROGRAM [ARGUMENT...]: the program's output is shown and stays in $output. Its exit code.
# Through a pipe: Python does not take a file of this machine for its output.
run_windows() {
    local code=0 reader
    exec 7> >(exec 7>&-; sed -u 's/\r$//' | tee "$output")
    reader=$!
    timeout --kill-after=5 240 wine "$@" </dev/null >&7 2>&1 || code=$?
    exec 7>&-
    # Programs that stay behind may hold the pipe open: what was written is there soon.
    for _ in {1..20}; do
        kill -0 "$reader" 2>/dev/null || break
        sleep 0.1
    done
    return "$code"
}

# drive PROGRAM COMMAND...: runs the command while the program is there to be driven; it must end with "Done".
drive() {
    local program=$1 program_pid code=0
    shift
    say "${*##*[\\/]} on ${program##*[\\/]}"
    timeout 600 wine "$program" </dev/null >"$WINEPREFIX/program.txt" 2>&1 &
    program_pid=$!
    run_windows "$@" || code=$?
    [[ $code == 0 && $(tail -n 1 "$output") == Done ]] || {
        session_screenshot "build/wine/$client.png" || true
        cat "$WINEPREFIX/program.txt"
        fail "${*##*[\\/]} did not come to its end (exit code $code)." "The desktop: build/wine/$client.png"
    }
    kill "$program_pid" 2>/dev/null || true
    wait "$program_pid" 2>/dev/null || true
}

# stories COMMAND... FOLDER EXTENSION: the same three in each language.
stories() {
    local folder=${*: -2:1} extension=${*: -1}
    local command=("${@:1:$#-2}")
    drive notepad.exe "${command[@]}" "$(windows_path "$folder/notepad.$extension")"
    drive "$GHOSTHAND_SAMPLE_HOST" "${command[@]}" "$(windows_path "$folder/sample_host.$extension")"
    drive "$GHOSTHAND_SAMPLE_HOST" "${command[@]}" "$(windows_path "$folder/cad_story.$extension")"
}

client_python() {
    packages_get
    start_session
    install_python
    python_contract late
    python_contract early
    # Now that classes have been generated, the samples meet them.
    stories 'C:\python\python.exe' samples/python py
}

client_comtypes() {
    packages_get
    start_session
    install_python
    stories 'C:\python\python.exe' samples/python_comtypes py
    python_contract vtable
}

python_contract() {
    drive "$GHOSTHAND_SAMPLE_HOST" 'C:\python\python.exe' "$(windows_path tests/clients/scripts/contract.py)" \
        "$1" "$(windows_path tests/com/expected_type_library.txt)" "$GHOSTHAND_DLL"
}

client_cpp() {
    start_session
    drive notepad.exe "$GHOSTHAND_CPP_SAMPLES/cpp_notepad.exe"
    drive "$GHOSTHAND_SAMPLE_HOST" "$GHOSTHAND_CPP_SAMPLES/cpp_sample_host.exe"
    drive "$GHOSTHAND_SAMPLE_HOST" "$GHOSTHAND_CPP_SAMPLES/cpp_cad_story.exe"
}

client_minimal_host() {
    start_session
    drive "$GHOSTHAND_MINIMAL_HOST" cscript.exe //nologo "$(windows_path samples/minimal_host/minimal_host.vbs)"
}

# A test runner's samples pass; then one of the tests is made to fail, and a picture of that must be in the report.
client_pytest() {
    packages_get
    start_session
    install_python
    local folder=$WINEPREFIX/drive_c/samples
    mkdir "$folder"
    cp -r samples/python samples/pytest "$folder"
    local pytest=('C:\python\python.exe' -m pytest -p no:cacheprovider --program "$GHOSTHAND_SAMPLE_HOST"
        --html 'C:\report.html' --self-contained-html 'C:\samples\pytest')
    run_windows "${pytest[@]}" || fail "The sample of pytest fails."
    grep -q '8 passed' "$output" || fail "Not all tests of the sample ran."
    sed -i 's/assert edit.Text == "New setting"/assert edit.Text == "Old setting"/' "$folder/pytest/test_sample_host.py"
    ! run_windows "${pytest[@]}" || fail "A test that must fail passes."
    grep -q '1 failed, 7 passed' "$output" || fail "A test that fails disturbs others."
    grep -q 'data:image/png;base64,' "$WINEPREFIX/drive_c/report.html" || fail "The report has no picture."
}

client_robot() {
    packages_get
    start_session
    install_python
    local folder=$WINEPREFIX/drive_c/samples
    mkdir "$folder"
    cp -r samples/python samples/robot "$folder"
    local robot=('C:\python\python.exe' -m robot --outputdir 'C:\report' --variable "PROGRAM:$GHOSTHAND_SAMPLE_HOST"
        'C:\samples\robot\sample_host.robot')
    run_windows "${robot[@]}" || fail "The sample of Robot Framework fails."
    grep -q '3 tests, 3 passed, 0 failed' "$output" || fail "Not all tests of the sample ran."
    sed -i 's/    Selected Tree Item Should Be .*/    Selected Tree Item Should Be    ${PARTS TREE}    Other/' \
        "$folder/robot/sample_host.robot"
    ! run_windows "${robot[@]}" || fail "A test that must fail passes."
    grep -q '3 tests, 2 passed, 1 failed' "$output" || fail "A test that fails disturbs others."
    [[ -s $WINEPREFIX/drive_c/report/desktop_1.png ]] || fail "There is no picture."
    grep -q 'desktop_1.png' "$WINEPREFIX/drive_c/report/log.html" ||
        fail "The log has no picture."
}

# Not another client, but another program: one of a toolkit (wxWidgets) that nobody here wrote.
client_toolkit() {
    packages_get
    start_session
    install_python
    run_windows 'C:\python\python.exe' "$(windows_path tests/clients/scripts/wx_story.py)" 'C:\journal.txt' || {
        session_screenshot "build/wine/$client.png" || true
        fail "The program of another toolkit was not driven to its end." "The desktop: build/wine/$client.png"
    }
}

client_autohotkey() {
    packages_get
    start_session
    stories "$packages/AutoHotkey64.exe" /ErrorStdOut samples/autohotkey ahk
    drive "$GHOSTHAND_SAMPLE_HOST" "$packages/AutoHotkey64.exe" /ErrorStdOut \
        "$(windows_path tests/clients/scripts/contract.ahk)" "$GHOSTHAND_DLL"
}

# No .NET and no PowerShell run here: it is looked whether a compiler and a grammar take the sources.
client_csharp() {
    [[ -n $(command -v mcs) ]] || skip "there is no C# compiler (Debian's package mono-mcs)"
    local story folder
    folder=$(mktemp -d)
    for story in Notepad SampleHost CadStory; do
        say "$story.cs"
        mcs -nologo -warn:4 -warnaserror -platform:x64 -reference:Microsoft.CSharp.dll -out:"$folder/$story.exe" \
            "samples/csharp/$story.cs" samples/csharp/GhosthandHelpers.cs || fail "$story.cs does not compile."
    done
    rm -r "$folder"
}

client_powershell() {
    packages_get
    PYTHONPATH=$packages/native python3 tests/clients/scripts/check_powershell.py samples/powershell/*.ps1 ||
        fail "PowerShell's grammar does not take what stands there."
}

client_go() {
    [[ -n $(command -v go) ]] || skip "there is no Go (Debian's package golang-go)"
    # Its own module cache below build, with the pinned versions; go.sum has their hashes.
    local program=$clients_root/build/downloads/go/client.exe log=$clients_root/build/downloads/go/build.log
    mkdir -p "${program%/*}"
    (cd tests/clients/go && GOOS=windows GOARCH=amd64 CGO_ENABLED=0 GOFLAGS=-mod=mod GOMODCACHE=${program%/*}/modules \
        timeout 300 go build -modcacherw -o "$program" . >"$log" 2>&1) || {
        cat "$log"
        ! grep -qi 'checksum mismatch' "$log" || fail "A module is not the one that go.sum names."
        grep -qiE 'dial tcp|proxy|lookup|timeout|connection|status code' "$log" || fail "The Go client does not compile."
        skip "Go's modules could not be fetched"
    }
    start_session
    local system=$WINEPREFIX/drive_c/windows/system32
    [[ -e $system/bcryptprimitives.dll ]] || cp "$GHOSTHAND_GO_LIBRARY" "$system"
    drive "$GHOSTHAND_SAMPLE_HOST" "$program" tests/com/expected_type_library.txt "$GHOSTHAND_DLL"
}

client_jscript() {
    start_session
    stories cscript.exe //nologo samples/jscript js
}

client_vbscript() {
    start_session
    stories cscript.exe //nologo samples/vbscript vbs
    # Wine's VBScript cannot take a file in: what the script says to do there.
    cat samples/vbscript/{use_helpers,ghosthand_helpers}.vbs >"$WINEPREFIX/use_helpers.vbs"
    drive "$GHOSTHAND_SAMPLE_HOST" cscript.exe //nologo "$(windows_path "$WINEPREFIX/use_helpers.vbs")"
}

client=$1
[[ -z ${2:-} ]] || stories() { :; } # contract only
"client_$client"
