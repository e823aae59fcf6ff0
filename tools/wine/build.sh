# shellcheck shell=bash
# Sourced by scripts that stand in the project's root folder, after messages.sh.

# build PRESET [TARGET...]: configures and builds, incrementally; without targets everything.
build() {
    local preset=$1 log=build/configure-$1.log targets=()
    shift
    (($#)) && targets=(--target "$@")
    say "Building ($preset${1:+: $*})"
    mkdir -p build
    cmake --preset "$preset" >"$log" 2>&1 || {
        cat "$log" >&2
        fail "The $preset build could not be configured." "If an older build folder is the reason: rm -r build/$preset"
    }
    cmake --build --preset "$preset" --parallel "$(nproc)" "${targets[@]}" ||
        fail "The $preset build failed." "The compiler's message is above."
}
