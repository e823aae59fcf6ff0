#!/bin/bash
# Installs the Debian packages that building, testing and the demonstration need, and only those that
# are missing. Safe to run any number of times.
#   tools/wine/setup.sh [PACKAGE...]            further packages
#   tools/wine/setup.sh --optional PACKAGE...   only these; where they cannot be had, a line says so
set -euo pipefail
# shellcheck source=tools/wine/messages.sh
source "$(dirname "${BASH_SOURCE[0]}")/messages.sh"

packages=(
    cmake ninja-build g++ googletest            # building
    g++-mingw-w64-x86-64 mingw-w64-tools        # ... for Windows
    wine wine64 wine64-tools libwine-dev        # running what was built, and Windows' own interfaces
    fonts-liberation fonts-wine                 # what they write and draw title bars with
    xvfb imagemagick                            # a desktop without a screen, and pictures of it
    python3 python3-pip                         # checking the type library against Microsoft's, clients in Python
    nsis unzip                                  # the installer, and looking into the archive
    mono-mcs                                    # checking the samples in C#
    "$@"
)
if [[ ${1:-} == --optional ]]; then
    packages=("${@:2}")
    # What needs them is skipped.
    fail() { say "Not installed: ${packages[*]} ($1)"; exit 0; }
fi

[[ -n $(command -v dpkg-query) && -n $(command -v apt-get) ]] ||
    fail "This is not Debian or one of its relatives: there is no apt here." \
        "Install what stands for these packages yourself: ${packages[*]}"

missing=()
installed=$(dpkg-query --show --showformat '${db:Status-Status} ${Package}\n' "${packages[@]}" 2>/dev/null || true)
for package in "${packages[@]}"; do
    grep -qx "installed $package" <<<"$installed" || missing+=("$package")
done
((${#missing[@]})) || exit 0

as_root=()
if ((EUID != 0)); then
    command -v sudo >/dev/null ||
        fail "Missing packages: ${missing[*]}" "Run as root: apt-get install ${missing[*]}"
    as_root=(sudo)
fi
# DEBIAN_FRONTEND keeps packages from asking; a wait for the lock outlasts automatic updates.
apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -y -o DPkg::Lock::Timeout=300)
log=$(mktemp)
trap 'rm -f "$log"' EXIT

say "Reading the package lists"
"${apt[@]}" update </dev/null >"$log" 2>&1 ||
    { cat "$log" >&2; fail "The package lists could not be read." "Check the network connection and try again."; }
say "Installing ${missing[*]} (a new machine takes several minutes)"
"${apt[@]}" install --no-install-recommends "${missing[@]}" </dev/null >"$log" 2>&1 ||
    { tail -n 30 "$log" >&2; fail "The packages could not be installed." "Mend what the lines above say and try again."; }
