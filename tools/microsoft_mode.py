#!/usr/bin/env python3
"""Lets clang read the sources as Visual Studio's compiler would, as far as that goes without Microsoft's headers.

    tools/microsoft_mode.py [PATH...]    files, or folders; src apps samples tests bench without

Target, layout of records and names of types are Microsoft's, the headers mingw-w64's. What is told: what is GNU's own,
what Microsoft's compiler refuses or knows another way, and warnings that resemble those of its level 4. A header that
is included only because libstdc++ includes it stays unnoticed.
"""
import concurrent.futures
import json
import os
import pathlib
import re
import shlex
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build/cross"
FOLDERS = ["src", "apps", "samples", "tests", "bench"]

# mingw-w64's headers know two worlds. They get the one of GNU's compiler, down to the names of what is imported.
TARGET = [
    "--target=x86_64-pc-windows-msvc19.38.0", "-fgnuc-version=12.2.0", "-U_MSC_VER",
    "-D__MINGW32__", "-D__MINGW64__", "-D__STRICT_ANSI__",
]
PRELUDE = """#include <_mingw.h>
#undef __MINGW_IMPORT
#define __MINGW_IMPORT extern __declspec(dllimport)
"""
# What a file does for Microsoft's compiler alone is read after all headers that it needs.
PRELUDE_OF_MICROSOFT = PRELUDE + """#include <cstddef>
#include <cstdint>
#include <cstring>
#include <atomic>
#include <bit>
#include <string>
#include <vector>
#include <windows.h>
#define _MSC_VER 1938
"""
WARNINGS = [
    "-Wall", "-Wextra", "-Wpedantic", "-Wgnu", "-Wmicrosoft", "-Wlanguage-extension-token", "-Wunknown-pragmas",
    "-Wunknown-attributes", "-Wshadow-all", "-Wconversion", "-Wsign-compare", "-Wunreachable-code",
    "-Wnested-anon-types", "-Wc99-extensions", "-Wvla", "-Wformat-non-iso", "-Wdate-time", "-Wassign-enum",
    # clang cannot share a section.
    "-Wno-ignored-pragmas",
    # Microsoft's has nothing like them, or not at level 4.
    "-Wno-sign-conversion", "-Wno-shadow-uncaptured-local", "-Wno-overloaded-virtual", "-Wno-cast-function-type",
    "-Wno-deprecated-declarations",
]

WORDS_OF_GNU = re.compile(r"\b(__attribute__|__typeof__|__extension__|asm|__builtin_(?!FUNCTION\b)\w+)\b")


def standard_library():
    """The folders of the headers of the standard library that the cross build uses."""
    text = subprocess.run(["x86_64-w64-mingw32-g++-posix", "-E", "-v", "-x", "c++", os.devnull],
                          capture_output=True, text=True, check=True).stderr
    return [folder for folder in re.findall(r"^ (/\S+)$", text, re.M) if "c++" in folder]


def options(command):
    """Definitions, folders and the language of a compiler's command line."""
    words = iter(shlex.split(command))
    for word in words:
        if word in ("-I", "-D", "-isystem"):
            yield from (word, next(words))
        elif word.startswith(("-I", "-D", "-std=")):
            yield word


def check(entry, headers, preludes):
    text = pathlib.Path(entry["file"]).read_text(encoding="utf-8")
    prelude = preludes["_MSC_VER" in text or "shared_variable.h" in text]
    command = ["clang++-19", *TARGET, "-nostdlibinc", "-nostdinc++", *options(entry["command"])]
    for folder in [*headers, "/usr/x86_64-w64-mingw32/include"]:
        command += ["-isystem", folder]
    command += ["-include", prelude, "-fsyntax-only", "-fno-caret-diagnostics", *WARNINGS, entry["file"]]
    return subprocess.run(command, cwd=entry["directory"], capture_output=True, text=True).stderr


def words_of_gnu(path):
    """What clang takes without a word in any mode, outside of conditions of the preprocessor."""
    depth = 0
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if re.match(r"\s*#\s*if", line):
            depth += 1
        elif re.match(r"\s*#\s*endif", line):
            depth -= 1
        elif depth == 0 and (word := WORDS_OF_GNU.search(line.split("//")[0])):
            yield f"{path}:{number}: warning: {word[0]} is GNU's"


def main(paths):
    subprocess.run([ROOT / "tools/wine/setup.sh", "clang-19"], check=True)
    subprocess.run(["cmake", "--preset", "cross", "-DCMAKE_EXPORT_COMPILE_COMMANDS=ON"],
                   cwd=ROOT, stdout=subprocess.DEVNULL, check=True)
    if not (BUILD / "src/automation/generated/Ghosthand_idl.h").exists():
        subprocess.run(["cmake", "--build", "--preset", "cross", "--target", "ghosthand_interfaces"],
                       cwd=ROOT, check=True)
    wanted = [(ROOT / path).resolve() for path in paths or FOLDERS]
    entries = {entry["file"]: entry for entry in json.loads((BUILD / "compile_commands.json").read_text())
               if entry["file"].endswith(".cpp") and any(
                   pathlib.Path(entry["file"]).is_relative_to(path) for path in wanted)}
    if not entries:
        sys.exit("The cross build has no such file.")
    headers = standard_library()
    with tempfile.TemporaryDirectory() as folder:
        preludes = []
        for text in (PRELUDE, PRELUDE_OF_MICROSOFT):
            preludes.append(f"{folder}/prelude_{len(preludes)}.h")
            pathlib.Path(preludes[-1]).write_text(text)
        with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as workers:
            answers = workers.map(lambda entry: check(entry, headers, preludes), entries.values())
            found = sorted({line for answer in answers for line in answer.splitlines()
                            if re.search(r": (warning|error|fatal error): ", line)})
    files = {file for path in [*wanted, ROOT / "include"]
             for file in ([path] if path.is_file() else path.rglob("*")) if file.suffix in (".h", ".cpp")}
    found += [line for file in sorted(files) for line in words_of_gnu(file)]
    print(*found, sep="\n", end="\n" if found else "")
    print(f"==> {len(found)} found in {len(entries)} files")
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
