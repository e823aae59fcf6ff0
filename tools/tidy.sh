#!/bin/bash
# Runs clang-tidy with the project's checks (.clang-tidy) over the sources of the cross build.
#   tools/tidy.sh [FILE.cpp...]    these files; all of src/ and apps/ without
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."
# shellcheck source=tools/wine/messages.sh
source tools/wine/messages.sh

tools/wine/setup.sh clang-tidy-16
cmake --preset cross -DCMAKE_EXPORT_COMPILE_COMMANDS=ON >/dev/null
[[ -e build/cross/src/automation/generated/Ghosthand_idl.h ]] ||
    cmake --build --preset cross --target ghosthand_interfaces

# Clang does not know where this flavour of the cross compiler keeps the standard library.
arguments=(--extra-arg=--target=x86_64-w64-mingw32)
while read -r folder; do
    arguments+=("--extra-arg=-isystem$folder")
done < <(x86_64-w64-mingw32-g++-posix -E -v -x c++ /dev/null 2>&1 >/dev/null | sed -n 's,^ \(/[^ ]*c++[^ ]*\)$,\1,p')

files=("$@")
((${#files[@]})) || mapfile -t files < <(find src apps -name '*.cpp' | sort)
printf '%s\0' "${files[@]}" |
    xargs -0 -n 4 -P "$(nproc)" clang-tidy-16 -p build/cross --quiet --warnings-as-errors='*' "${arguments[@]}" 2>/dev/null ||
    fail "clang-tidy has something to say; it stands above."
say "Nothing found in ${#files[@]} files"
