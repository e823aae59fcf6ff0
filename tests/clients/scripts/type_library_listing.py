"""What the listing that the type library's own test keeps says of the interfaces."""

import re

INTERFACE = re.compile(r"interface (\w+) ")
MEMBER = re.compile(r"  0x([0-9a-f]{8}) (get|put|method) (\w+)\((.*)\) -> ")


def read(path):
    """{interface: [(dispatch id, kind, name, parameter names)]} in the order of the vtable."""
    interfaces = {}
    with open(path, encoding="utf-8") as file:
        for line in file:
            if match := INTERFACE.match(line):
                members = interfaces.setdefault(match[1], [])
            elif match := MEMBER.match(line):
                names = re.findall(r"(\w+)(?:=[^,]*)?(?:, |$)", match[4]) if match[2] != "put" else []
                members.append((int(match[1], 16), match[2], match[3], names))
    return interfaces
