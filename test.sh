#!/bin/bash
# Installs what is missing, builds everything and runs the tests.
#   ./test.sh              all tests
#   ./test.sh pure host    the tests with these labels (pure, window, host, com, fault, package, clients,
#                          docs, browser, dpi)
#   ./test.sh tree         the tests whose name matches this regular expression
#   ./test.sh -V -R tree   options are passed on to ctest
#   ./test.sh --compiler clang ...   the same with clang; without, all tests are run with gcc, and clang only
#                          compiles the module
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")"
# shellcheck source=tools/wine/session.sh
source tools/wine/session.sh
# shellcheck source=tools/wine/build.sh
source tools/wine/build.sh

# select_tests ARGUMENT...: leaves in $selection what ctest understands.
select_tests() {
    selection=()
    local words=() labels=yes word
    for word in "$@"; do
        if [[ $word == -* ]]; then
            selection=("$@")
            return
        fi
        words+=("$word")
        [[ $word =~ ^(pure|window|host|com|fault|package|clients|docs|browser|dpi)$ ]] || labels=no
    done
    ((${#words[@]})) || return 0
    local pattern
    pattern=$(IFS='|'; printf '%s' "${words[*]}")
    if [[ $labels == yes ]]; then
        selection=(-L "^($pattern)\$")
    else
        selection=(-R "$pattern")
    fi
}

# run_tests PRESET [OPTION...]
run_tests() {
    ctest --test-dir "build/$1" --output-on-failure --parallel "$(nproc)" "${selection[@]}" "${@:2}"
}

# has_tests OPTION...: whether the Windows build has selected tests that these options leave.
has_tests() {
    ! ctest --test-dir "build/$windows" -N "${selection[@]}" "$@" | grep -q '^Total Tests: 0$'
}

# run_wine_tests OPTION...: in the session that has been started.
run_wine_tests() {
    run_tests "$windows" "$@" ||
        fail "Tests failed." "Their output is above; build/$windows/Testing/Temporary/LastTest.log has it all."
}

windows=cross
if [[ ${1:-} == --compiler ]]; then
    case ${2:-} in
    gcc) ;;
    clang) windows=cross-clang ;;
    *) fail "There is no compiler ${2:-} here." "The compilers are gcc and clang." ;;
    esac
    shift 2
fi
select_tests "$@"
tools/wine/setup.sh
[[ $windows == cross ]] || tools/wine/setup.sh clang-19 lld-19
# A browser looks at the report and at the documents.
tools/wine/setup.sh --optional chromium chromium-driver python3-selenium
build native
build "$windows"
if [[ $# == 0 && $windows == cross ]]; then
    tools/wine/setup.sh --optional clang-19 lld-19
    if [[ -n $(command -v clang++-19) && -n $(command -v ld.lld-19) ]]; then
        build cross-clang ghosthand
    else
        say "The module is not compiled with clang: clang 19 cannot be had here"
    fi
fi
ordinary=(-LE '^dpi$')
scaled=(-L '^dpi$')
has_tests "${ordinary[@]}" || has_tests "${scaled[@]}" ||
    fail "There is no such test." "ctest --test-dir build/$windows -N lists them."

say "Tests, the native part under the sanitizers"
native=passed
run_tests native --no-tests=ignore || native=failed

fuzzing=passed
if (($# == 0)) || [[ " $* " == *" pure "* ]]; then
    ./fuzz.sh --short || fuzzing=failed
fi

if has_tests "${ordinary[@]}"; then
    say "Starting a desktop and a fresh Wine prefix"
    # shellcheck disable=SC2119
    session_start
    say "Tests of the Windows build under Wine"
    run_wine_tests "${ordinary[@]}"
    session_end
fi
if has_tests "${scaled[@]}"; then
    say "Tests of the Windows build on a display of 144 dpi"
    # shellcheck disable=SC2119
    session_start
    session_scale_display 144
    run_wine_tests "${scaled[@]}"
fi
[[ $native == passed ]] || fail "Native tests failed; their output is further up."
[[ $fuzzing == passed ]] || fail "Fuzzing found something; its output is further up." "./fuzz.sh tells how to repeat it."
