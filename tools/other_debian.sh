#!/bin/bash
# Runs the tests on another Debian, whose Wine and compilers are of other versions, in a chroot. It is made once
# (a minute; ./test.sh in it then installs what it needs, 3 GB) and kept below build/other_debian, with the
# builds made there. Needs root and, the first time, a network.
#   tools/other_debian.sh trixie [ARGUMENT...]           ./test.sh ARGUMENT...
#   tools/other_debian.sh trixie --run COMMAND [ARGUMENT...]   another command, such as ./demo.sh
# OTHER_DEBIAN: another folder to keep it in, for one that several checkouts share. MIRROR: where the packages are.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=tools/wine/messages.sh
source tools/wine/messages.sh

# make_root RELEASE ROOT
make_root() {
    local log=$2.log
    say "Making a Debian $1 (once, about a minute)"
    command -v debootstrap >/dev/null || tools/wine/setup.sh --optional debootstrap
    command -v debootstrap >/dev/null || fail "debootstrap is missing." "Install it, then start this script again."
    rm -rf --one-file-system "$2.unfinished"
    mkdir -p "$2.unfinished"
    timeout 1200 debootstrap --variant=minbase --include=ca-certificates "$1" "$2.unfinished" \
        "${MIRROR:-http://deb.debian.org/debian}" </dev/null >"$log" 2>&1 ||
        { tail -n 5 "$log" >&2; fail "Debian $1 could not be made." "Is there a network, and a release of that name? Read $log"; }
    mv "$2.unfinished" "$2"
}

# run_in ROOT BUILD COMMAND [ARGUMENT...]: with this checkout as /ghosthand, and BUILD as its folder build.
# It runs in namespaces of its own: however it ends, its processes end with it and nothing stays mounted.
run_in() {
    local root=$1 code=0
    mkdir -p "$root/ghosthand" "$2" build
    # The network as this machine reaches it, with the certificates that it trusts.
    cp --dereference /etc/resolv.conf "$root/etc/resolv.conf"
    local trusted=/etc/ssl/certs/ca-certificates.crt
    [[ ! -e $trusted ]] || cp --dereference "$trusted" "$root$trusted"
    # shellcheck disable=SC2016
    setpriv --pdeathsig KILL unshare --mount --pid --fork --kill-child bash -c '
        set -euo pipefail
        trap "exit 130" INT
        trap "exit 143" TERM
        mount --bind . "$0/ghosthand"
        mount --bind "$1" "$0/ghosthand/build"
        mount --rbind /dev "$0/dev"
        mount -t proc proc "$0/proc"
        cd "$0"
        env --ignore-environment PATH=/usr/sbin:/usr/bin:/sbin:/bin HOME=/root TERM="${TERM:-dumb}" \
            chroot . /bin/bash -c "cd /ghosthand && exec \"\$@\"" bash "${@:2}" </dev/null &
        wait $!
    ' "$root" "${@:2}" || code=$?
    return "$code"
}

release=${1:-}
[[ $release =~ ^[a-z]+$ ]] || { sed -n '2,/^set/{/^set/d;s/^# \?//;p}' "${BASH_SOURCE[0]}" >&2; exit 2; }
shift
((EUID == 0)) || fail "Making and entering a chroot needs root." "sudo tools/other_debian.sh $release $*"
unshare --mount --pid --fork true 2>/dev/null ||
    fail "This machine lets nobody make namespaces (a container without the rights?)." "Use a virtual machine."

folder=$(realpath --canonicalize-missing "${OTHER_DEBIAN:-build/other_debian}/$release")
mkdir -p "$folder"
[[ -d $folder/root ]] || make_root "$release" "$folder/root"
command=(./test.sh "$@")
[[ ${1:-} != --run ]] || command=("${@:2}")
say "On Debian $(<"$folder/root/etc/debian_version"): ${command[*]}"
run_in "$folder/root" "$folder/build" "${command[@]}"
