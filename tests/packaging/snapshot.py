"""Writes what a Wine prefix holds, a line a fact: snapshot.py PREFIX > FILE.

Registry keys with their values, files with their sizes and times; but for what Wine itself changes with each start.
No program may run in the prefix.
"""

import os
import re
import sys

# Wine writes these anew for each session and display, for the first console, and, for the system's own type library,
# when a library that builds upon it is read.
NOISE = re.compile(
    "|".join(
        re.escape(key).replace("/", r"\\\\")
        for key in (
            "System/CurrentControlSet/Control",
            "System/CurrentControlSet/Enum",
            "System/ControlSet001/Control",  # what CurrentControlSet is a link to, since Wine 10
            "System/ControlSet001/Enum",
            "Hardware",
            "Software/Wine/Fonts",
            "Software/Microsoft/Windows NT/CurrentVersion/NetworkCards",
            "Software/Classes/Typelib/{00020430-0000-0000-C000-000000000046}",
            "Software/Classes/Interface/{4EF6100A-AF88-11D0-9846-00C04FC29993}",
            "Software/Classes/Interface/{7BF80981-BF32-101A-8BBB-00AA00300CAB}",
            "Software/Classes/Interface/{BEF6E003-A874-101A-8BBA-00AA00300CAB}",
            "Software/Classes/Wow6432Node/Interface/{4EF6100A-AF88-11D0-9846-00C04FC29993}",
            "Software/Classes/Wow6432Node/Interface/{7BF80981-BF32-101A-8BBB-00AA00300CAB}",
            "Software/Classes/Wow6432Node/Interface/{BEF6E003-A874-101A-8BBA-00AA00300CAB}",
            "Console",
        )
    ),
    re.IGNORECASE,
)


def registry(path):
    key = None
    with open(path, encoding="utf-8", errors="surrogateescape") as lines:
        for line in lines:
            if header := re.match(r"\[(.*)\] \d+$", line):
                key = None if NOISE.match(header[1]) else header[1]
                if key is not None:
                    yield f"{os.path.basename(path)} {key}"
            elif key is not None and line.strip() and not line.startswith(("#", ";")):
                yield f"{os.path.basename(path)} {key}: {line.rstrip()}"


def files(root):
    for folder, names, leaves in os.walk(root):
        # The uninstaller's copy of itself, which it tells the system to delete at the next start.
        names[:] = sorted(name for name in names if not name.startswith("~nsu"))
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
