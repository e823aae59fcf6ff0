"""Writes what a Wine prefix holds, a line a fact: snapshot.py PREFIX > FILE.

Registry keys with their values, files with their sizes and times; but for what Wine itself changes with each start.
No program may run in the prefix.
"""

import os
import re
import sys

# Wine writes these anew for each session and display.
NOISE = re.compile(
    r"^(System\\\\(CurrentControlSet|ControlSet001)\\\\(Control|Enum|Hardware Profiles)"
    r"|Software\\\\Wine\\\\Fonts|Hardware|Software\\\\Microsoft\\\\Windows NT\\\\CurrentVersion\\\\NetworkCards"
    r"|Software\\\\Microsoft\\\\Windows\\\\CurrentVersion\\\\Explorer)",
    re.IGNORECASE,
)


def registry(path):
    key = None
    with open(path, encoding="utf-8", errors="surrogateescape") as lines:
        for line in lines:
            if header := re.match(r"\[(.*)\] \d+$", line):
                key = None if NOISE.match(header[1]) else header[1]
                # An empty key that others live below says nothing of its own.
            elif line.strip() and not line.startswith(("#", ";", "WINE REGISTRY")) and key is not None:
                yield f"{os.path.basename(path)} {key}: {line.rstrip()}"
                continue
            if header and key is not None:
                yield f"{os.path.basename(path)} {key}"


def files(root):
    for folder, names, leaves in os.walk(root):
        names.sort()
        for name in names:
            yield os.path.relpath(os.path.join(folder, name), root) + "/"
        for name in leaves:
            path = os.path.join(folder, name)
            status = os.lstat(path)
            yield f"{os.path.relpath(path, root)} {status.st_size} {status.st_mtime_ns}"


def main():
    prefix = sys.argv[1]
    facts = []
    for hive in ("system.reg", "user.reg", "userdef.reg"):
        facts += registry(os.path.join(prefix, hive))
    facts += files(os.path.join(prefix, "drive_c"))
    sys.stdout.buffer.write("\n".join(sorted(facts)).encode("utf-8", "surrogateescape") + b"\n")


if __name__ == "__main__":
    main()
