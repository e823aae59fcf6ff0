"""check_reference_libraries.py <folder for downloads>: Microsoft's own type libraries pass the check, too.

Ends with 77, the code of a skipped test, where the packages cannot be had.
"""

import pathlib
import subprocess
import sys
import zipfile

from type_library_file import TypeLibraryFile

SKIPPED = 77
REQUIREMENTS = pathlib.Path(__file__).parent / "reference_libraries.txt"
LIBRARIES = 9


def download(folder):
    """Why the packages neither are in the folder nor can be downloaded; empty when they are there."""
    count = sum(line[:1].isalpha() for line in REQUIREMENTS.read_text().splitlines())
    if len(list(folder.glob("*.whl"))) == count:
        return ""
    # The packages are for Windows.
    command = [sys.executable, "-m", "pip", "download", "--quiet", "--disable-pip-version-check", "--retries", "1",
               "--timeout", "20", "--require-hashes", "--no-deps", "--only-binary=:all:", "--platform", "win_amd64",
               "--python-version", "3.8", "--implementation", "cp", "--abi", "none", "--dest", str(folder),
               "--requirement", str(REQUIREMENTS)]
    result = subprocess.run(command, capture_output=True, text=True, check=False)
    return (result.stderr.strip().splitlines() or ["pip failed"])[-1] if result.returncode else ""


def libraries(package):
    """(where it is, its bytes and what follows them, whether nothing follows) for each library in a package."""
    with zipfile.ZipFile(package) as archive:
        for entry in archive.namelist():
            if entry.endswith((".dll", ".tlb")):
                data = archive.read(entry)
                begin = data.find(b"MSFT\x02\x00\x01\x00")
                while begin != -1:
                    if data[begin + 0x44:begin + 0x4C] == b"\x20\0\0\0\x80\0\0\0":
                        yield f"{package.name}, {entry}", data[begin:], entry.endswith(".tlb")
                    begin = data.find(b"MSFT\x02\x00\x01\x00", begin + 1)


def main():
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    if reason := download(folder):
        print(f"Skipped: the packages with Microsoft's type libraries cannot be downloaded: {reason}")
        return SKIPPED
    failed = count = 0
    for package in sorted(folder.glob("*.whl")):
        for where, data, whole_file in libraries(package):
            problems = TypeLibraryFile(data, whole_file).problems
            print(where, *problems[:20] or ["sound"], sep="\n    ")
            failed += bool(problems)
            count += 1
    if count != LIBRARIES:
        print(f"{count} libraries were found instead of {LIBRARIES}.")
    return 1 if failed or count != LIBRARIES else 0


if __name__ == "__main__":
    sys.exit(main())
