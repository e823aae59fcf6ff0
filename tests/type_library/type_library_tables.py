"""The tables of a compiled type library (the MSFT format of .tlb files and TYPELIB resources), read strictly.

Microsoft publishes no description of the format. The rules here hold for libraries that Microsoft's own
compiler and runtime wrote (reference_libraries.txt names them); what a rule demands beyond the layout is what
all of them have in common.
"""

import struct

HEADER_SIZE = 0x54
HAS_HELP_LIBRARY = 0x100
SEGMENTS = ("types", "imports", "import files", "references", "guid hash", "guids", "name hash", "names",
            "strings", "type descriptions", "arrays", "values", "custom data", "unused 13", "unused 14")
# The order in which the segments follow each other in the file.
FILE_ORDER = ("types", "guid hash", "guids", "references", "imports", "import files", "name hash", "names",
              "strings", "type descriptions", "arrays", "values", "custom data")
TYPE_SIZE = 100
PADDING = 0x57

VT_I2, VT_I4, VT_R4, VT_R8, VT_CY, VT_DATE, VT_BSTR = 2, 3, 4, 5, 6, 7, 8
VT_BOOL, VT_VARIANT, VT_I8, VT_UI8, VT_INT, VT_UINT = 11, 12, 20, 21, 22, 23
VALUE_SIZES = {VT_I2: 2, VT_I4: 4, VT_R4: 4, VT_R8: 8, VT_CY: 8, VT_DATE: 8, 10: 4, VT_BOOL: 2, 16: 1, 17: 1,
               18: 2, 19: 4, VT_I8: 8, VT_UI8: 8, VT_INT: 4, VT_UINT: 4, 25: 4}


def hash_of_name(name):
    """What LHashValOfNameSys answers for English names on a Windows system."""
    same_sound = {ord("W"): ord("V"), ord("Y"): ord("U")}
    value = 0x0DEADBEE
    for character in name.upper():
        value = (value * 37 + same_sound.get(character, character)) & 0xFFFFFFFF
    return value % 65599 & 0xFFFF


def hash_of_guid(guid):
    value = 0
    for word in struct.unpack("<8H", guid):
        value ^= word
    return value & 0x1F


def padded(size):
    return (size + 3) & ~3


class Truncated(Exception):
    """The file's own tables point outside the file, or at nothing."""


class Name:
    def __init__(self, offset, text, reference, flags):
        self.offset, self.text, self.reference, self.flags = offset, text, reference, flags
        self.type = None  # the type of this name
        self.used = []    # (index of a type, its kind) for each function or variable of this name


class Tables:
    """Header, segments and the tables that everything else refers to. problems has a line for each fault."""

    def __init__(self, data):
        self.data = data
        self.problems = []

    def _read_tables(self):
        self._read_header()
        self._check_names()
        self._check_guids()
        self._check_strings()
        self._check_values()

    # Reading

    def _problem(self, where, text):
        self.problems.append(f"{where}: {text}")

    def _require(self, condition, where, text):
        if not condition:
            self._problem(where, text)
        return condition

    def _unpack(self, layout, position):
        size = struct.calcsize(layout)
        if position < 0 or position + size > len(self.data):
            raise Truncated(f"there are no {size} bytes at {position:#x}")
        return struct.unpack_from(layout, self.data, position)

    def _u32(self, position):
        return self._unpack("<I", position)[0]

    def _i32(self, position):
        return self._unpack("<i", position)[0]

    def _u16(self, position):
        return self._unpack("<H", position)[0]

    def _start(self, segment):
        return self.segments[segment][0]

    def _size(self, segment):
        return self.segments[segment][1]

    def _bytes(self, position, size):
        if size < 0 or position < 0 or position + size > len(self.data):
            raise Truncated(f"there are no {size} bytes at {position:#x}")
        return self.data[position:position + size]

    def _check_padding(self, where, begin, end):
        self._require(all(byte == PADDING for byte in self._bytes(begin, end - begin)), where,
                      "the padding is not made of 0x57")

    # Header and directory

    def _read_header(self):
        if self._u32(0) != 0x5446534D or self._u32(4) != 0x00010002:
            raise Truncated("this is no type library of format MSFT, version 2.1")
        (self.guid, self.hash_lcid, self.lcid, self.flags, self.version, self.library_flags, self.type_count,
         self.help_string, self.help_string_context, self.help_context, self.name_count, self.name_characters,
         self.name, self.help_file, self.custom_data, self.guid_hash_size, self.name_hash_size, self.dispatch,
         self.import_count) = self._unpack("<19i", 8)
        position = HEADER_SIZE
        self.help_library = -1
        if self.flags & HAS_HELP_LIBRARY:
            self.help_library = self._i32(position)
            position += 4
        if self.type_count < 0 or self.type_count > len(self.data) // TYPE_SIZE:
            raise Truncated(f"there cannot be {self.type_count} types")
        for index, offset in enumerate(self._unpack(f"<{self.type_count}i", position)):
            self._require(offset == index * TYPE_SIZE, "type offsets", f"entry {index} is {offset:#x}")
        position += 4 * self.type_count
        self.segments = {}
        for index, name in enumerate(SEGMENTS):
            start, size, reserved, kind = self._unpack("<4i", position + 16 * index)
            self._require(reserved == -1 and kind == 0xF, f"segment {name}", "the reserved words are not -1 and 15")
            if size <= 0:
                self._require(start == -1 and size == 0, f"segment {name}", "an absent one is not -1 and 0")
            else:
                self._bytes(start, size)
                self._require(size % 4 == 0, f"segment {name}", f"its size {size:#x} is no multiple of 4")
            self.segments[name] = (start, size)
        self.end_of_segments = position + 16 * len(SEGMENTS)
        for name in FILE_ORDER:
            start, size = self.segments[name]
            if size:
                self._require(start == self.end_of_segments, f"segment {name}",
                              f"it begins at {start:#x} instead of {self.end_of_segments:#x}")
                self.end_of_segments = start + size
        for name in SEGMENTS[-2:]:
            self._require(self._size(name) == 0, f"segment {name}", "it is in use")
        for name, size in (("guid hash", 0x80), ("name hash", 0x200), ("types", TYPE_SIZE * self.type_count)):
            if self._size(name) != size:
                raise Truncated(f"segment {name} has {self._size(name):#x} bytes instead of {size:#x}")
        for name, size in (("guids", 24), ("imports", 12), ("references", 16), ("type descriptions", 8),
                           ("custom data", 12)):
            if self._size(name) % size:
                raise Truncated(f"segment {name} has {self._size(name):#x} bytes, no multiple of {size}")

    # Tables with hashes

    def _check_chains(self, what, segment, buckets, entries, bucket_of, next_of):
        """entries: the offsets that must be found, each in the chain of its bucket."""
        found = set()
        for bucket in range(buckets):
            offset = self._i32(self._start(segment) + 4 * bucket)
            while offset != -1:
                if offset not in entries:
                    self._problem(what, f"the chain of bucket {bucket} leads to {offset:#x}, where nothing begins")
                    break
                if offset in found:
                    self._problem(what, f"the chain of bucket {bucket} meets {offset:#x} again")
                    break
                found.add(offset)
                self._require(bucket_of(offset) == bucket, what,
                              f"{offset:#x} is in bucket {bucket} instead of {bucket_of(offset)}")
                following = next_of(offset)
                self._require(following < offset, what, f"the entry behind {offset:#x} in its chain is a later one")
                offset = following
        for offset in sorted(entries.keys() - found):
            self._problem(what, f"{offset:#x} is in no chain")

    def _check_names(self):
        self.names = {}
        start, size = self.segments["names"]
        offset = 0
        texts = set()
        following = {}
        while offset < size:
            reference, following[offset], word = self._unpack("<iiI", start + offset)
            length, flags, hashed = word & 0xFF, word >> 8 & 0xFF, word >> 16
            text = self._bytes(start + offset + 12, length)
            where = f"name {text.decode('latin-1')!r}"
            self._require(length and all(0x20 < byte < 0x7F for byte in text), where, "it is no identifier")
            self._require(hashed == hash_of_name(text), where,
                          f"its hash is {hashed:#x} instead of {hash_of_name(text):#x}")
            self._require(text.upper() not in texts, where, "it is stored twice")
            texts.add(text.upper())
            self._check_padding(where, start + offset + 12 + length, start + offset + 12 + padded(length))
            self.names[offset] = Name(offset, text.decode("latin-1"), reference, flags)
            offset += 12 + padded(length)
        self._require(offset == size, "names", "the last one ends outside the segment")
        self._check_chains("name hash", "name hash", 0x80, self.names,
                           lambda entry: self._u16(start + entry + 10) & 0x7F, following.get)

    def _check_guids(self):
        start, size = self.segments["guids"]
        self.guids = {offset: self._i32(start + offset + 16) for offset in range(0, size, 24)}
        values = {self._guid_bytes(offset) for offset in self.guids}
        self._require(len(values) == len(self.guids), "guids", "one is stored twice")
        self._check_chains("guid hash", "guid hash", 0x20, self.guids,
                           lambda entry: hash_of_guid(self._guid_bytes(entry)),
                           lambda entry: self._i32(start + entry + 20))
        self.guid_users = {}

    def _guid_bytes(self, offset):
        return self._bytes(self._start("guids") + offset, 16)

    def _guid_owner(self, offset):
        self.guid_users[offset] = self.guid_users.get(offset, 0) + 1
        return self.guids.get(offset)

    def _check_strings(self):
        self.strings = {}
        self.used_strings = set()
        start, size = self.segments["strings"]
        offset = 0
        while offset < size:
            length = self._u16(start + offset)
            end = max(8, padded(2 + length))
            where = f"string at {offset:#x}"
            text = self._bytes(start + offset + 2, length)
            self._require(text not in self.strings.values(), where, "it is stored twice")
            self._require(b"\0" not in text, where, "it has a terminator")
            self._check_padding(where, start + offset + 2 + length, start + offset + end)
            self.strings[offset] = text
            offset += end
        self._require(offset == size or not size, "strings", "the last one ends outside the segment")

    def _use_string(self, where, what, offset):
        if offset != -1:
            self._require(offset in self.strings, where, f"its {what} is at {offset:#x}, where no string begins")
            self.used_strings.add(offset)

    # Values: default values, constants and custom data

    def _check_values(self):
        self.values = {}
        self.used_values = set()
        start, size = self.segments["values"]
        offset = 0
        while offset < size:
            kind = self._u16(start + offset)
            where = f"value at {offset:#x}"
            if kind == VT_BSTR:
                content = max(0, self._i32(start + offset + 2)) + 4
            elif kind in VALUE_SIZES:
                content = VALUE_SIZES[kind]
            else:
                raise Truncated(f"{where} is of type {kind}")
            end = padded(2 + content)
            self._check_padding(where, start + offset + 2 + content, start + offset + end)
            self.values[offset] = kind
            offset += end
        self._require(offset == size or not size, "values", "the last one ends outside the segment")

    def _value_kind(self, where, value):
        """The VARTYPE of a value that is either stored in the segment or in the number itself."""
        if value & 0x80000000:
            return value >> 26 & 0x1F
        self._require(value in self.values, where, f"its value is at {value:#x}, where none begins")
        self.used_values.add(value)
        return self.values.get(value)
