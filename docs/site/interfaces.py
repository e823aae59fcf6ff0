"""The interfaces of a compiled type library, for the reference: members, parameters, defaults, results."""

import struct
import sys
from dataclasses import dataclass, field
from pathlib import Path

sys.path.insert(0, str(Path(__file__).parents[2] / "tests" / "type_library"))
from type_library_file import (DISPATCH, ENUM, FHASDEFAULT, FOPT, FRETVAL, VT_PTR, VT_USERDEFINED,  # noqa: E402
                               TypeLibraryFile)
from type_library_tables import TYPE_SIZE, VT_BOOL, VT_BSTR  # noqa: E402

NAMES_OF_TYPES = {3: "long", 8: "string", 9: "object", 11: "Boolean", 20: "64-bit integer", 22: "long"}
METHOD, GET, PUT = 1, 2, 4


@dataclass
class Parameter:
    name: str
    type: str
    optional: bool
    default: object = None


@dataclass
class Member:
    """A method, or the accessors of a property."""
    name: str
    identifier: int
    parameters: list
    result: str  # empty: none
    is_property: bool
    readable: bool = False
    writable: bool = False


@dataclass
class Interface:
    name: str
    base: str  # "IDispatch" for those that derive from nothing else
    members: list = field(default_factory=list)


class Reader(TypeLibraryFile):
    def interfaces(self):
        if self.problems:
            raise ValueError("\n".join(self.problems))
        return [self._interface(index) for index in range(self.type_count) if self.types[index][2] == DISPATCH]

    def enumerations(self):
        """By name: the names of the constants with their values."""
        return {self._type_name(index * TYPE_SIZE): self._constants(index)
                for index in range(self.type_count) if self.types[index][2] == ENUM}

    def _type_name(self, reference):
        if reference & 3 == 1:
            return "IDispatch"
        return self.names[self._i32(self._start("types") + reference + 0x34)].text

    def _records(self, index):
        """(identifier, name, position) of each function, then of each variable."""
        functions, variables = self.types[index][:2]
        count = functions + variables
        block = self._i32(self._start("types") + TYPE_SIZE * index + 4)
        tables = block + 4 + self._i32(block)
        columns = [self._unpack(f"<{count}i", tables + 4 * count * column) for column in range(3)]
        return [(identifier, self.names[name].text, block + 4 + offset) for identifier, name, offset in zip(*columns)]

    def _constants(self, index):
        return [(name, self._value(self._u32(record + 0x10))) for _, name, record in self._records(index)]

    def _interface(self, index):
        base = self.types[index][4]
        result = Interface(self._type_name(index * TYPE_SIZE), self._type_name(base))
        by_name = {}
        for identifier, name, record in self._records(index):
            kind, parameters, of_result = self._function(record)
            member = by_name.get(name)
            if member is None:
                member = Member(name, identifier, parameters, of_result, kind != METHOD)
                by_name[name] = member
                result.members.append(member)
            member.readable |= kind == GET
            member.writable |= kind == PUT
            if kind == GET:
                member.result = of_result
        return result

    def _function(self, record):
        """Kind of call, parameters without the result and without a property's new value, type of the result."""
        size = self._u16(record)
        word, count = self._unpack("<IH", record + 0x10)
        kind = word >> 3 & 0xF
        first = record + size - 12 * count
        defaults = self._unpack(f"<{count}I", first - 4 * count) if word >> 12 & 1 else ()
        parameters, result = [], ""
        for number in range(count):
            encoded, name, flags = self._unpack("<IiI", first + 12 * number)
            if flags & FRETVAL:
                result = self._type(encoded)
            elif kind == PUT and number == count - 1:
                result = self._type(encoded)
            else:
                default = self._value(defaults[number]) if flags & FHASDEFAULT else None
                parameters.append(Parameter(self.names[name].text, self._type(encoded), bool(flags & FOPT),
                                            self._as_boolean(default) if self._type(encoded) == "Boolean" else default))
        return kind, parameters, result

    @staticmethod
    def _as_boolean(value):
        return None if value is None else value != 0

    def _type(self, encoded):
        while not encoded & 0x80000000:
            kind, target = self.descriptions[encoded]
            if kind == VT_USERDEFINED:
                return self._type_name(target)
            if kind != VT_PTR:
                raise ValueError(f"a parameter of kind {kind}")
            encoded = target
        return NAMES_OF_TYPES[encoded & 0xFFFF]

    def _value(self, encoded):
        if encoded & 0x80000000:  # in the number itself
            kind, value = encoded >> 26 & 0x1F, encoded & 0x3FFFFFF
            return "" if kind == VT_BSTR else value
        position = self._start("values") + encoded
        kind = self._u16(position)
        if kind == VT_BSTR:
            return self._bytes(position + 6, max(0, self._i32(position + 2))).decode("latin-1")
        layout = {2: "<h", VT_BOOL: "<h", 20: "<q", 21: "<Q"}.get(kind, "<i")
        return struct.unpack_from(layout, self.data, position + 2)[0]


def read(path):
    reader = Reader(Path(path).read_bytes())
    return reader.interfaces(), reader.enumerations()
