"""Strict structural check of a compiled type library, beginning with the tables; README.md tells what it rests on."""

from type_library_tables import (HAS_HELP_LIBRARY, TYPE_SIZE, Tables, Truncated, VT_I4, VT_INT, VT_UINT,
                                 VT_VARIANT, padded)

HAS_HELP_FILE = 0x10

ENUM, RECORD, MODULE, INTERFACE, DISPATCH, COCLASS, ALIAS, UNION = range(8)

VT_PTR, VT_SAFEARRAY, VT_CARRAY, VT_USERDEFINED = 26, 27, 28, 29
FIN, FOUT, FRETVAL, FOPT, FHASDEFAULT = 0x1, 0x2, 0x8, 0x10, 0x20
FDUAL, FOLEAUTOMATION, FDISPATCHABLE = 0x40, 0x100, 0x1000

NAMES_ONE_TYPE, IS_GLOBAL, IS_TYPE = 0x10, 0x20, 0x08

IID_IDISPATCH = bytes.fromhex("0004020000000000c000000000000046")
LIBID_STDOLE = bytes.fromhex("3004020000000000c000000000000046")


class TypeLibraryFile(Tables):
    """Reads the whole file; problems has a line for everything that is not as it should be."""

    def __init__(self, data, whole_file=True):
        super().__init__(data)
        try:
            self._read_tables()
            self._check_type_descriptions()
            self._check_header()
            self._check_imports()
            end = self._check_types()
            self._check_references()
            self._check_custom_data()
            self._check_use()
            if whole_file and end != len(data):
                self._problem("file", f"the last member block ends at {end:#x}, the file at {len(data):#x}")
        except Truncated as error:
            self._problem("file", str(error))

    def _check_header(self):
        self.pointer_size = {1: 4, 3: 8}.get(self.flags & 0xF, 0)
        self._require(self.pointer_size, "header", f"no Windows system has the number {self.flags & 0xF}")
        self._require(self.flags & ~0xF & ~HAS_HELP_FILE & ~HAS_HELP_LIBRARY == 0x40, "header",
                      f"unknown flags {self.flags:#x}")
        self._require(self.library_flags & ~0xF == 0, "header", f"unknown library flags {self.library_flags:#x}")
        self._require(self.hash_lcid == 0x409, "header", f"names are hashed for locale {self.hash_lcid:#x}")
        self._require(self.lcid in (0, 0x409), "header", f"unexpected locale {self.lcid:#x}")
        self._require(self.guid_hash_size == 0x20 and self.name_hash_size == 0x80, "header",
                      "the sizes of the hash tables are not 32 and 128")
        self._require(self.name_count == len(self.names), "header", f"it counts {self.name_count} names")
        self._require(self.name_characters == sum(len(name.text) for name in self.names.values()), "header",
                      f"it counts {self.name_characters} characters of names")
        self._require(self.name in self.names, "header", "the library has no name")
        for what, offset in (("help string", self.help_string), ("help file", self.help_file),
                             ("help library", self.help_library)):
            self._use_string("header", what, offset)
        self._require(self._guid_owner(self.guid) == -2, "header", "the library's GUID does not say that it is one")
        self._require(self.import_count == self._size("imports") // 12, "header",
                      f"it counts {self.import_count} imported types")
        if self.dispatch != -1:
            is_import = self.dispatch & 3 == 1
            entry = self._start("imports") + self.dispatch - 1
            self._require(is_import and self._u32(entry) & 0x10000
                          and self._guid_bytes(self._i32(entry + 8)) == IID_IDISPATCH, "header",
                          "the reference to IDispatch leads elsewhere")

    # Types of members

    def _is_type_reference(self, reference):
        if reference & 3 == 1:
            return 0 <= reference - 1 < self._size("imports") and (reference - 1) % 12 == 0
        return 0 <= reference < self._size("types") and reference % TYPE_SIZE == 0

    def _check_type_descriptions(self):
        start, size = self.segments["type descriptions"]
        self.descriptions = {}
        seen = set()
        for offset in range(0, size, 8):
            word, target = self._unpack("<II", start + offset)
            kind, mixed = word & 0xFFFF, word >> 16
            where = f"type description at {offset:#x}"
            self.descriptions[offset] = (kind, target)
            self._require((kind, target) not in seen or kind == VT_CARRAY, where, "it is stored twice")
            seen.add((kind, target))
            if kind in (VT_PTR, VT_SAFEARRAY):
                modifier = 0x4000 if kind == VT_PTR else 0x2000
                if target & 0x80000000:
                    self._check_simple_type(where, target)
                    expected = (0x7FFE, 0x7FFF) if target >> 16 == 0xFFFE else (target >> 16 & 0xFFF | modifier,)
                else:
                    self._require(target in self.descriptions and target < offset, where,
                                  f"it refers to {target:#x}, where none begins before it")
                    of_target, user_type = self.descriptions.get(target, (0, 0))
                    if of_target == VT_USERDEFINED:
                        summary = self._summary_of_user_type(user_type)
                        expected = (summary if summary == 0x7FFF else summary | modifier,)
                    else:
                        expected = (0x7FFE, 0x7FFF)
                self._require(mixed in expected, where, f"its summary is {mixed:#x}")
            elif kind == VT_CARRAY:
                self._require(0 <= target < max(1, self._size("arrays")), where, "it refers to no array")
                self._require(mixed == 0x7FFE, where, f"its summary is {mixed:#x}")
            elif kind == VT_USERDEFINED:
                self._require(self._is_type_reference(target), where, f"there is no type {target:#x}")
                self._require(mixed == self._summary_of_user_type(target), where, f"its summary is {mixed:#x}")
            else:
                self._problem(where, f"it is of kind {kind}")

    def _summary_of_user_type(self, reference):
        """An enumeration is handed over as the VT_I4 that it is, every other type as itself."""
        if self._is_type_reference(reference) and reference & 3 == 0:
            if self._u32(self._start("types") + reference) & 0xF == ENUM:
                return VT_I4
        return 0x7FFF

    def _check_simple_type(self, where, encoded):
        kind, storage = encoded & 0xFFFF, encoded >> 16
        if kind in (30, 31):  # texts of C
            self._require(storage == 0xFFFE, where, f"unknown type {encoded:#x}")
            return
        expected = {VT_INT: VT_I4, VT_UINT: 19, 24: 0}.get(kind, kind)
        self._require(kind <= 25 and storage == 0x8000 | expected, where, f"unknown type {encoded:#x}")

    def _check_type(self, where, encoded):
        if encoded & 0x80000000:
            self._check_simple_type(where, encoded)
        else:
            self._require(encoded in self.descriptions, where, f"its type is at {encoded:#x}, where none begins")

    def _memory_of_descriptions(self, encoded):
        """What the nested descriptions of a type take in memory."""
        size = 0
        while not encoded & 0x80000000 and encoded in self.descriptions:
            kind, target = self.descriptions[encoded]
            if kind == VT_CARRAY:
                dimensions = self._u16(self._start("arrays") + target + 4)
                return size + 20 + 8 * (dimensions - 1)
            if kind == VT_USERDEFINED or not target & 0x80000000 and target >= encoded:
                break
            encoded = target
            size += 8
        return size

    def _simple_kind(self, encoded):
        """The VARTYPE behind one pointer; VT_USERDEFINED for an enumeration or interface."""
        if not encoded & 0x80000000:
            kind, target = self.descriptions.get(encoded, (0, 0))
            if kind != VT_PTR or not target & 0x80000000:
                return kind
            encoded = target
        return encoded & 0xFFFF

    # Imports and references

    def _check_imports(self):
        start, size = self.segments["import files"]
        files = {}
        offset = 0
        while offset < size:
            guid, lcid, _, encoded = self._unpack("<iiIH", start + offset)
            length = encoded >> 2
            where = f"import file at {offset:#x}"
            self._require(encoded & 3 == self.flags & 3, where, "it is for another system")
            text = self._bytes(start + offset + 14, length)
            end = 12 + padded(2 + length)
            self._check_padding(where, start + offset + 14 + length, start + offset + end)
            self._require(self._guid_owner(guid) == offset + 2, where, "its GUID belongs to something else")
            if guid in self.guids and self._guid_bytes(guid) == LIBID_STDOLE:
                self._require(lcid == 0, where, f"{text.decode('latin-1')} is sought for locale {lcid:#x}; it has none")
            files[offset] = text
            offset += end
        self._require(offset == size or not size, "import files", "the last one ends outside the segment")
        start, size = self.segments["imports"]
        for offset in range(0, size, 12):
            flags, file, guid = self._unpack("<Iii", start + offset)
            where = f"import at {offset:#x}"
            self._require(flags & 0xFFFF == offset // 12 and flags >> 24 <= UNION and flags >> 17 & 0x7F == 0, where,
                          f"its flags are {flags:#x}")
            self._require(file in files, where, "it comes from no import file")
            if flags & 0x10000:
                self._require(self._guid_owner(guid) == offset + 1, where, "its GUID belongs to something else")

    def _check_references(self):
        start, size = self.segments["references"]
        used = set()
        for index, (_, _, kind, where, first, count) in enumerate(self.types):
            if kind != COCLASS:
                continue
            offset = first
            for place in range(count):
                if offset in used or not 0 <= offset < size or offset % 16:
                    self._problem(where, f"its interface {place} is at {offset:#x}")
                    break
                used.add(offset)
                reference, flags, custom, following = self._unpack("<4i", start + offset)
                self._require(self._is_type_reference(reference), where, f"there is no interface {reference:#x}")
                self._require(flags & ~0xF == 0, where, f"its interface {place} has flags {flags:#x}")
                self._use_custom_data(where, custom)
                self._require((following == -1) == (place == count - 1), where,
                              f"the chain of its interfaces does not have {count}")
                offset = following
        self._require(len(used) * 16 == size, "references", "one belongs to no class")

    def _check_custom_data(self):
        start, size = self.segments["custom data"]
        entries = set(range(0, size, 12))
        following = {offset: self._i32(start + offset + 8) for offset in entries}
        used = set()
        for where, offset in [("header", self.custom_data)] + self.custom_data_users:
            while offset != -1:
                if offset not in entries or offset in used:
                    self._problem(where, f"its custom data is at {offset:#x}")
                    break
                used.add(offset)
                self._require(following[offset] < offset, where, "the chain of its custom data is not newest first")
                offset = following[offset]
        self._require(used == entries, "custom data", "some belongs to nothing")
        for offset in entries:
            guid, value = self._unpack("<iI", start + offset)
            self._require(self._guid_owner(guid) == -1, f"custom data at {offset:#x}", "its GUID is not marked so")
            self._value_kind(f"custom data at {offset:#x}", value)

    def _use_custom_data(self, where, offset):
        if offset != -1:
            self.custom_data_users.append((where, offset))

    # Types

    def _check_types(self):
        self.types = []
        self.used_names = set()
        self.custom_data_users = []
        self.functions_of = {}  # by type: functions in the table including inherited ones, and depth
        members = self.end_of_segments
        for index in range(self.type_count):
            members = self._check_type_info(index, members)
        for index in range(self.type_count):
            self._check_members(index)
        return members

    def _check_type_info(self, index, members):
        position = self._start("types") + TYPE_SIZE * index
        (word, block, hint, other_hint, three, zero) = self._unpack("<6i", position)
        functions, variables = self._unpack("<2H", position + 0x18)
        zeros = self._unpack("<4i", position + 0x1C)
        guid, flags, name, _, help_string, _, _, custom = self._unpack("<8i", position + 0x2C)
        bases, table_size = self._unpack("<2H", position + 0x4C)
        size, first, second, last_zero, last_minus = self._unpack("<5i", position + 0x50)
        kind = word & 0xF
        where = f"type {self.names[name].text}" if name in self.names else f"type {index}"
        self.types.append((functions, variables, kind, where, first, bases))
        self._require(kind <= UNION and word >> 16 == index, where, f"its first word is {word & 0xFFFFFFFF:#x}")
        self._require(word >> 4 & 3 == (3 if flags & FDUAL else 2), where, "its kind and FDUAL disagree")
        align, packed = word >> 11 & 0x1F, word >> 6 & 0x1F
        if kind in (INTERFACE, DISPATCH, COCLASS):
            self._require(align in (4, self.pointer_size) and packed in (4, 8), where,
                          f"its alignment is {align} and {packed}")
            self._require(size == self.pointer_size, where, f"its instances have {size} bytes")
        elif kind in (ENUM, RECORD, UNION):
            self._require(align in (1, 2, 4, 8) and packed in (1, 2, 4, 8), where, f"its alignment is {align}")
            self._require(size % max(1, min(align, 8)) == 0, where, f"its instances have {size} bytes")
        self._require(block == members, where, f"its members are at {block:#x} instead of {members:#x}")
        # Older versions of Windows wrote estimates here, later ones write 0.
        estimates = hint > 0 and hint / 2 < other_hint <= hint and functions + variables
        nothing = hint == 0 and (other_hint == 0 or other_hint == -1 and not functions + variables)
        self._require(estimates or nothing, where,
                      f"its size estimates are {hint & 0xFFFFFFFF:#x} and {other_hint & 0xFFFFFFFF:#x}")
        self._require(three == 3 and zero == 0 and zeros == (0, 0, 0, 0) and last_zero == 0 and last_minus == -1,
                      where, "its reserved words differ")
        if guid != -1:
            self._require(self._guid_owner(guid) == TYPE_SIZE * index, where, "its GUID belongs to something else")
        if self._require(name in self.names, where, "it has no name"):
            self._require(self.names[name].reference == TYPE_SIZE * index, where, "its name refers to something else")
            self._require(self.names[name].type is None, where, "another type has its name")
            self.names[name].type = index
        self._use_string(where, "help string", help_string)
        self._use_custom_data(where, custom)
        self._require(flags & ~0x7FFF == 0, where, f"its flags are {flags:#x}")
        if flags & FDUAL:
            self._require(kind == DISPATCH and flags & FOLEAUTOMATION and flags & FDISPATCHABLE, where,
                          f"it is dual, but its flags are {flags:#x}")
        self._check_bases(index, kind, where, flags, functions, bases, table_size, first, second)
        return members + (4 + self._i32(block) + 12 * (functions + variables) if functions + variables else 0)

    def _check_bases(self, index, kind, where, flags, functions, bases, table_size, first, second):
        inherited = 0
        if kind == INTERFACE or kind == DISPATCH and flags & FDUAL:
            inherited, depth = second >> 16, second & 0xFFFF
            # An interface that refers to nothing is the root.
            self._require(bases == (first != -1), where, f"it has {bases} bases")
            if first != -1 and self._require(self._is_type_reference(first), where, f"there is no base {first:#x}"):
                expected = self._functions_of_base(first)
                self._require(expected in (None, (inherited, depth)), where,
                              f"it inherits {inherited} functions over {depth} steps, not {expected}")
        elif kind == DISPATCH:
            self._require(bases == 1 and first == -1 and second == 0, where, "its base is not IDispatch")
        elif kind in (ENUM, RECORD, UNION):
            self._require(bases == 0 and first == -1 and second == 0 and table_size == 0, where, "it has a base")
        if kind in (INTERFACE, DISPATCH):
            self._require(table_size == (inherited + functions) * self.pointer_size, where,
                          f"its table has {table_size:#x} bytes")
        elif kind == COCLASS:
            self._require(functions == 0 and second == 0 and table_size == 0, where, "it has members")
        self.functions_of[index] = (inherited, second & 0xFFFF, functions)

    def _functions_of_base(self, reference):
        if reference & 3 == 1:
            entry = self._start("imports") + reference - 1
            if not self._u32(entry) & 0x10000:
                return None
            guid = self._guid_bytes(self._i32(entry + 8))
            return {IID_IDISPATCH: (7, 2), bytes(8) + IID_IDISPATCH[8:]: (3, 1)}.get(guid)
        base = self._start("types") + reference
        return ((self._u32(base + 0x58) >> 16) + self._u16(base + 0x18), (self._u32(base + 0x58) & 0xFFFF) + 1)

    # Members

    def _check_members(self, index):
        functions, variables, kind, where, _, _ = self.types[index]
        count = functions + variables
        if not count:
            return
        block = self._i32(self._start("types") + TYPE_SIZE * index + 4)
        size = self._i32(block)
        tables = block + 4 + size
        ids = self._unpack(f"<{count}i", tables)
        names = self._unpack(f"<{count}i", tables + 4 * count)
        offsets = self._unpack(f"<{count}i", tables + 8 * count)
        position = 0
        chains = {}
        for place in range(count):
            name = names[place]
            if not self._require(name in self.names, where, f"member {place} has no name"):
                continue
            member = f"{where}, {self.names[name].text}"
            self.names[name].used.append((index, kind))
            self._require(offsets[place] == position, member, f"its record is at {offsets[place]:#x}")
            record = block + 4 + position
            record_size = self._u16(record)
            if record_size < 0x14 or position + record_size > size:
                raise Truncated(f"{member}: its record has {record_size:#x} bytes")
            number = self._u16(record + 2)
            if place < functions:
                self._require(number == place, member, f"its record is numbered {number}")
                self._check_function(index, place, member, record, record_size)
                chains.setdefault(ids[place], []).append((place, self._u16(record + 0x12), member, name))
            else:
                self._require(number == place - (0 if kind == DISPATCH else functions), member,
                              f"its record is numbered {number}")
                self._check_variable(kind, member, record, record_size)
                self._require(ids[place] not in chains, member, "a function has its identifier")
            position += record_size
        self._require(position == size, where, "its member records do not fill their block")
        self._require(len(set(ids[functions:])) == variables, where, "two variables have one identifier")
        self._check_identifiers(index, ids[:functions])
        for accessors in chains.values():
            for here, there in zip(accessors, accessors[1:] + accessors[:1]):
                self._require(here[1] == there[0], here[2], f"the next function of its identifier is {here[1]}")
                self._require(here[3] == there[3], here[2], "one of another name has its identifier")

    def _check_identifiers(self, index, ids):
        """Identifiers that the compiler gave tell depth and place."""
        _, depth, _ = self.functions_of[index]
        for place, identifier in enumerate(ids):
            if identifier & 0x7FF00000 == 0x60000000 and identifier > 0:
                self._require(identifier >> 16 & 0xF == depth and identifier & 0xFFFF <= place,
                              self.types[index][3], f"function {place} has the identifier {identifier:#x}")

    def _check_function(self, index, place, where, record, size):
        _, result, flags = self._unpack("<3i", record)
        offset, memory = self._unpack("<2H", record + 0xC)
        word, parameters, optional = self._unpack("<IHh", record + 0x10)
        kind = self.types[index][2]
        inherited, _, _ = self.functions_of[index]
        self._check_type(where, result & 0xFFFFFFFF)
        self._require(flags & ~0x1FFF == 0, where, f"its flags are {flags:#x}")
        self._require(offset == (inherited + place) * self.pointer_size or kind == MODULE, where,
                      f"its place in the table is {offset:#x}")
        is_dispatch = kind == DISPATCH and not self._u32(self._start("types") + TYPE_SIZE * index + 0x30) & FDUAL
        self._require(word & 7 == (4 if is_dispatch else 3 if kind == MODULE else 1), where,
                      f"it is a function of kind {word & 7}")
        invoke = word >> 3 & 0xF
        self._require(invoke in (1, 2, 4, 8), where, f"its kind of call is {invoke}")
        self._require(word >> 8 & 0xF in (1, 4) and not word & 0x80, where, f"its attributes are {word:#x}")
        has_defaults = word >> 12 & 1
        extra = size - 0x18 - parameters * (12 + 4 * has_defaults)
        if extra < 0 or extra % 4 or extra > 6 * 4:
            raise Truncated(f"{where}: its record has {size:#x} bytes for {parameters} parameters")
        attributes = self._unpack(f"<{extra // 4}i", record + 0x18)
        if len(attributes) > 1:
            self._use_string(where, "help string", attributes[1])
        self._require(not word & 0x2000 or len(attributes) > 2, where, "it has the number of an entry, but no entry")
        for reserved in attributes[3:5]:
            self._require(reserved == -1, where, "its reserved attributes differ")
        self._require(not attributes or any(value not in (0, -1) for value in attributes), where,
                      "its attributes say nothing")
        first = record + size - 12 * parameters
        defaults = self._unpack(f"<{parameters}I", first - 4 * parameters) if has_defaults else None
        variants = found_defaults = special = 0
        expected_memory = 0x34 + self._memory_of_descriptions(result & 0xFFFFFFFF)
        for number in range(parameters):
            encoded, name, flags = self._unpack("<IiI", first + 12 * number)
            parameter = f"{where}, parameter {number}"
            self._check_type(parameter, encoded)
            expected_memory += 0x10 + self._memory_of_descriptions(encoded)
            is_put_value = invoke in (4, 8) and number == parameters - 1
            if not is_put_value or name != -1:
                self._require(name in self.names, parameter, "it has no name")
                self.used_names.add(name) if name in self.names else None
            self._require(flags & ~0x7F == 0, parameter, f"its flags are {flags:#x}")
            special += bool(flags & FRETVAL) + bool(flags & 4)
            if flags & FRETVAL:
                self._require(number == parameters - 1 and flags & FOUT and not encoded & 0x80000000, parameter,
                              "it is no result")
            variants += flags & (FOPT | FHASDEFAULT) == FOPT and encoded & 0xFFFF == VT_VARIANT
            if flags & FHASDEFAULT:
                found_defaults += 1
                self._require(flags & FOPT, parameter, "it has a default value and is not optional")
            if defaults:
                self._check_default(parameter, encoded, flags, defaults[number])
        self._require(bool(found_defaults) == bool(has_defaults), where, "its attributes and default values disagree")
        self._require(memory == expected_memory + 0x18 * found_defaults, where,
                      f"it is said to take {memory:#x} bytes in memory instead of "
                      f"{expected_memory + 0x18 * found_defaults:#x}")
        self._require(word >> 14 & 3 == special, where, "its attributes and its result disagree")
        self._require(optional in (-1, variants), where, f"it is said to end with {optional} optional VARIANTs")

    def _check_default(self, where, encoded, flags, value):
        if not flags & FHASDEFAULT:
            self._require(value == 0xFFFFFFFF, where, "it has a default value that its flags deny")
            return
        if not self._require(value != 0xFFFFFFFF, where, "its default value is missing"):
            return
        kind, wanted = self._value_kind(where, value), self._simple_kind(encoded)
        integers = (VT_I4, VT_INT, VT_UINT, 19)
        same = kind == wanted or kind in integers and wanted in integers + (VT_USERDEFINED, 25)
        self._require(same or wanted == VT_VARIANT, where, f"its default value is of type {kind}, not {wanted}")

    def _check_variable(self, kind, where, record, size):
        encoded, flags = self._unpack("<II", record + 4)
        form, memory = self._unpack("<2H", record + 0xC)
        value = self._u32(record + 0x10)
        self._check_type(where, encoded)
        self._require(flags & ~0x1FFF == 0, where, f"its flags are {flags:#x}")
        self._require(size % 4 == 0 and size <= 0x28, where, f"its record has {size:#x} bytes")
        if size >= 0x1C:
            self._use_string(where, "help string", self._i32(record + 0x18))
        constant = kind in (ENUM, MODULE)
        self._require(form == (2 if constant else 3 if kind == DISPATCH else 0), where, f"its kind is {form}")
        if constant:
            self._value_kind(where, value)
        expected = 0x24 + self._memory_of_descriptions(encoded) + 0x10 * constant
        self._require(memory == expected, where, f"it is said to take {memory:#x} bytes instead of {expected:#x}")

    # What nothing refers to, and what names say about themselves

    def _check_use(self):
        for offset in self.strings.keys() - self.used_strings:
            self._problem("strings", f"nothing refers to {self.strings[offset]!r}")
        for offset in self.values.keys() - self.used_values:
            self._problem("values", f"nothing refers to the one at {offset:#x}")
        for offset in self.guids.keys() - self.guid_users.keys():
            self._problem("guids", f"nothing refers to the one at {offset:#x}")
        for name in self.names.values():
            where = f"name {name.text!r}"
            kinds = {kind for _, kind in name.used}
            alone = NAMES_ONE_TYPE if len({index for index, _ in name.used} | {name.type} - {None}) == 1 else 0
            if name.type is not None:
                expected = IS_TYPE | IS_GLOBAL | alone
            elif kinds & {ENUM, MODULE}:
                expected = IS_GLOBAL | alone
            elif kinds and kinds <= {RECORD, UNION}:
                expected = alone
            else:
                expected = 0
            self._require(name.flags == expected, where, f"its flags are {name.flags:#x} instead of {expected:#x}")
            if name.type is None:
                users = {TYPE_SIZE * index for index, _ in name.used} or {-1}
                self._require(name.reference in users, where, f"it refers to {name.reference:#x}")
            self._require(name.type is not None or name.used or name.offset in self.used_names
                          or name.offset == self.name, where, "nothing has it")
