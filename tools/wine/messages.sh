# shellcheck shell=bash
# Sourced: how the scripts speak to the user.

# say TEXT...: one progress line, before a step that takes time.
say() {
    printf '==> %s\n' "$*"
}

# fail TEXT [ADVICE]: ends the script with a message that says what to do.
fail() {
    printf '\nFAILED: %s\n' "$1" >&2
    [[ -z ${2:-} ]] || printf '        %s\n' "$2" >&2
    exit 1
}
