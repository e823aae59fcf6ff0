"""type_library_file_test.py <library.tlb>: the built library is sound, and each kind of damage is noticed."""

import struct
import sys
import unittest

from type_library_file import TypeLibraryFile
from type_library_tables import SEGMENTS, TYPE_SIZE

LIBRARY = ""


class Copy:
    """A copy of the library that a test may damage, and where its parts are."""

    def __init__(self):
        with open(LIBRARY, "rb") as file:
            self.data = bytearray(file.read())
        self.whole = TypeLibraryFile(bytes(self.data))

    def get(self, position, layout="<I"):
        return struct.unpack_from(layout, self.data, position)[0]

    def put(self, position, value, layout="<I"):
        struct.pack_into(layout, self.data, position, value)

    def change(self, position, change, layout="<I"):
        self.put(position, change(self.get(position, layout)), layout)

    def directory(self, segment):
        return 0x54 + 4 * self.whole.type_count + 16 * SEGMENTS.index(segment)

    def start(self, segment):
        return self.whole.segments[segment][0]

    def name(self, text):
        offset = next(name.offset for name in self.whole.names.values() if name.text == text)
        return self.start("names") + offset

    def type(self, text):
        name = self.name(text) - self.start("names")
        return self.start("types") + TYPE_SIZE * self.whole.names[name].type

    def members(self, type_name):
        position = self.type(type_name)
        block = self.get(position + 4)
        return block + 4, block + 4 + self.get(block), sum(struct.unpack_from("<2H", self.data, position + 0x18))

    def member(self, type_name, member_name):
        """The record of the first function or variable of that name."""
        records, tables, count = self.members(type_name)
        names = struct.unpack_from(f"<{count}i", self.data, tables + 4 * count)
        place = names.index(self.name(member_name) - self.start("names"))
        return records + self.get(tables + 8 * count + 4 * place)

    def default_value(self, type_name, member_name, parameter):
        record = self.member(type_name, member_name)
        parameters = self.get(record + 0x14, "<H")
        return record + self.get(record, "<H") - 16 * parameters + 4 * parameter

    def parameter(self, type_name, member_name, parameter):
        record = self.member(type_name, member_name)
        return record + self.get(record, "<H") - 12 * (self.get(record + 0x14, "<H") - parameter)

    def hyper_zero(self):
        return self.start("values") + self.get(self.default_value("IBaseWindow", "SendMessage", 2))

    def chain_head(self):
        """A bucket of the names' hash table with more than one name, and the place of its second one."""
        for bucket in range(0x80):
            offset = self.get(self.start("name hash") + 4 * bucket, "<i")
            if offset != -1 and self.get(self.start("names") + offset + 4, "<i") != -1:
                return self.start("names") + offset + 4
        raise AssertionError("no two names share a bucket")

    def description(self, kind):
        start, size = self.whole.segments["type descriptions"]
        return next(position for position in range(start, start + size, 8) if self.get(position, "<H") == kind)


def increase(value):
    return value + 1


# What is damaged, how, and the beginning of what must be said of it.
DAMAGE = [
    # The file as a whole
    ("signature", lambda copy: copy.put(0, 0), "file: this is no type library"),
    ("end", lambda copy: copy.data.pop(), "file: there are no"),
    ("something behind the end", lambda copy: copy.data.extend(b"WWWW"), "file: the last member block ends"),
    ("type offsets", lambda copy: copy.change(0x54 + 4, increase), "type offsets: entry 1"),
    ("reserved word of a segment", lambda copy: copy.put(copy.directory("strings") + 8, 0), "segment strings: the"),
    ("gap between segments", lambda copy: copy.change(copy.directory("strings"), lambda at: at + 4),
     "segment strings: it begins"),
    ("segment out of use", lambda copy: copy.put(copy.directory("unused 14") + 4, 4), "file: there are no"),
    # Header
    ("locale of hashes", lambda copy: copy.put(0x0C, 0), "header: names are hashed for"),
    ("system", lambda copy: copy.put(0x14, 0x42), "header: no Windows system"),
    ("flags", lambda copy: copy.put(0x14, 0x01), "header: unknown flags"),
    ("count of names", lambda copy: copy.change(0x30, increase), "header: it counts"),
    ("characters of names", lambda copy: copy.change(0x34, increase), "header: it counts"),
    ("library's help string", lambda copy: copy.put(0x24, 2), "header: its help string"),
    ("library's GUID", lambda copy: copy.put(0x08, 0x18), "header: the library's GUID"),
    ("IDispatch", lambda copy: copy.put(0x4C, -1 & ~3, "<i"), "header: the reference to IDispatch"),
    # Names, GUIDs, strings
    ("hash of a name", lambda copy: copy.change(copy.name("Click") + 10, increase, "<H"), "name 'Click': its hash"),
    ("padding of a name", lambda copy: copy.put(copy.name("Click") + 12 + 5, 0, "<B"), "name 'Click': the padding"),
    ("lost name", lambda copy: copy.put(copy.chain_head(), -1, "<i"), "name hash: 0x"),
    ("circle of names", lambda copy: copy.put(copy.chain_head(), copy.chain_head() - 4 - copy.start("names")),
     "name hash: the "),
    ("member with the name of a type", lambda copy: copy.change(copy.name("ListView") + 9, lambda b: b | 0x10, "<B"),
     "name 'ListView': its flags"),
    ("owner of a name", lambda copy: copy.put(copy.name("UnblockMouse"), 0), "name 'UnblockMouse': it refers to"),
    ("GUID twice", lambda copy: copy.data.__setitem__(
        slice(copy.start("guids"), copy.start("guids") + 16),
        copy.data[copy.start("guids") + 24:copy.start("guids") + 40]), "guids: one is stored twice"),
    ("GUID's bucket", lambda copy: copy.change(copy.start("guids"), increase), "guid hash: 0x0 is in bucket"),
    ("GUID's owner", lambda copy: copy.put(copy.start("guids") + copy.get(copy.type("ITreeItem") + 0x2C) + 16, 0),
     "type ITreeItem: its GUID"),
    ("padding of a string", lambda copy: copy.put(
        copy.start("strings") + next(at for at, text in copy.whole.strings.items() if len(text) == 27) + 29, 0, "<B"),
     "string at"),
    # Values, types, imports, references, custom data
    ("padding of the 64-bit zero", lambda copy: copy.put(copy.hyper_zero() + 10, 0, "<H"), "value at"),
    ("kind of the 64-bit zero", lambda copy: copy.put(copy.hyper_zero(), 6, "<H"),
     "type IBaseWindow, SendMessage, parameter 2: its default value is of type 6"),
    ("summary of an enumeration", lambda copy: copy.put(copy.description(29) + 2, 0x7FFF, "<H"), "type description at"),
    ("target of a pointer", lambda copy: copy.put(copy.description(26) + 4, 0x7FFFFFF8), "type description at"),
    ("simple type", lambda copy: copy.put(copy.parameter("IBaseWindow", "FitSize", 0), 0x80040003),
     "type IBaseWindow, FitSize, parameter 0: unknown type"),
    ("import's locale", lambda copy: copy.put(copy.start("import files") + 4, 0x409), "import file at 0x0: stdole2"),
    ("import's kind", lambda copy: copy.change(copy.start("imports"), increase), "import at 0x0: its flags"),
    ("coclass's interface", lambda copy: copy.put(copy.start("references"), 2), "type Ghosthand: there is no"),
    ("coclass's chain", lambda copy: copy.put(copy.start("references") + 12, 16), "type Ghosthand: the chain"),
    ("custom data", lambda copy: copy.put(copy.start("custom data") + 8, 0), "header: its custom data"),
    # Types
    ("dual interface", lambda copy: copy.change(copy.type("ITreeItem"), lambda word: word & ~0x10),
     "type ITreeItem: its kind and FDUAL"),
    ("pointer's size", lambda copy: copy.put(copy.type("ITreeItem") + 0x50, 8), "type ITreeItem: its instances"),
    ("place of members", lambda copy: copy.change(copy.type("Ghosthand") + 4, lambda at: at + 4),
     "type Ghosthand: its members"),
    ("size estimates", lambda copy: copy.put(copy.type("IBaseWindow") + 8, 0x100000),
     "type IBaseWindow: its size estimates"),
    ("reserved word", lambda copy: copy.put(copy.type("IBaseWindow") + 0x10, 0), "type IBaseWindow: its reserved"),
    ("bases", lambda copy: copy.put(copy.type("IListView") + 0x4C, 2, "<H"), "type IListView: it has 2 bases"),
    ("inherited functions", lambda copy: copy.change(copy.type("IListView") + 0x58, lambda word: word + 0x10000),
     "type IListView: it inherits"),
    ("table", lambda copy: copy.change(copy.type("IListView") + 0x4E, lambda size: size + 4, "<H"),
     "type IListView: its table"),
    # Members
    ("number of a record", lambda copy: copy.change(copy.member("IBaseWindow", "Close") + 2, increase, "<H"),
     "type IBaseWindow, Close: its record is numbered"),
    ("offset of a record", lambda copy: copy.change(
        copy.members("IBaseWindow")[1] + 8 * copy.members("IBaseWindow")[2], lambda at: at + 4),
     "type IBaseWindow, Visible: its record is at"),
    ("name of a member", lambda copy: copy.put(copy.members("IBaseWindow")[1] + 4 * 72, 2),
     "type IBaseWindow: member 0 has no name"),
    ("identifier", lambda copy: copy.put(copy.members("IBaseWindow")[1], 0x60030000),
     "type IBaseWindow: function 0 has the identifier"),
    ("place in the table", lambda copy: copy.put(copy.member("IBaseWindow", "Close") + 0xC, 0x1C, "<H"),
     "type IBaseWindow, Close: its place"),
    ("get and put apart", lambda copy: copy.put(copy.member("IBaseWindow", "Text") + 0x12, 2, "<H"),
     "type IBaseWindow, Text: the next function"),
    ("memory of a function", lambda copy: copy.change(copy.member("IBaseWindow", "Close") + 0xE, increase, "<H"),
     "type IBaseWindow, Close: it is said to take"),
    ("optional parameters", lambda copy: copy.put(copy.member("IBaseWindow", "Click") + 0x16, 4, "<H"),
     "type IBaseWindow, Click: it is said to end with 4"),
    ("default value left out", lambda copy: copy.put(copy.default_value("IBaseWindow", "SendMessage", 2), 0xFFFFFFFF),
     "type IBaseWindow, SendMessage, parameter 2: its default value is missing"),
    ("default value nowhere", lambda copy: copy.put(copy.default_value("IBaseWindow", "SendMessage", 2), 2),
     "type IBaseWindow, SendMessage, parameter 2: its value is at"),
    ("default value of a result",
     lambda copy: copy.put(copy.default_value("IBaseWindow", "SendMessage", 3), 0x8C000000),
     "type IBaseWindow, SendMessage, parameter 3: it has a default value"),
    ("result", lambda copy: copy.change(copy.member("IBaseWindow", "Visible") + 0x10, lambda word: word & ~0x4000),
     "type IBaseWindow, Visible: its attributes and its result"),
    ("memory of a constant",
     lambda copy: copy.change(copy.member("ghCheckBoxState", "ghCHECKED") + 0xE, increase, "<H"),
     "type ghCheckBoxState, ghCHECKED: it is said to take"),
]


class TypeLibraryFileTest(unittest.TestCase):
    def test_built_library_is_sound(self):
        self.assertEqual(Copy().whole.problems, [])

    def test_damage_is_noticed(self):
        for title, damage, expected in DAMAGE:
            with self.subTest(title):
                copy = Copy()
                damage(copy)
                problems = TypeLibraryFile(bytes(copy.data)).problems
                self.assertTrue(any(problem.startswith(expected) for problem in problems), problems[:5])


if __name__ == "__main__":
    LIBRARY = sys.argv.pop(1)
    unittest.main()
