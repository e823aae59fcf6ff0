"""The sample host through a Python client: contract.py late|early|vtable LISTING MODULE.

late: pywin32 by names; early: pywin32 with the classes that makepy makes; vtable: comtypes. Each reads the whole type
library, calls members with arguments left out, named and by reference, gets nothing, gets an error with its text, and
lets everything go. One sample host is running.
"""

import ctypes
import gc
import sys

import type_library_listing

SETTINGS, OPEN_DRAWING, EDIT, LIST_BOX, APPLY = 601, 626, 1001, 1022, 1005
ANY_DEPTH = 0x40
E_FAIL = -2147467259
NO_FIELD = "Expected to find edit control"
LIBRARY = "{ADF61CBC-BE37-4075-A6D5-3983AAF171ED}"


def check(what, got, wanted):
    print(f"{what}: {got}")
    assert got == wanted, f"{what} is {got!r}, not {wanted!r}"


class Late:
    """pywin32, every member looked up by its name when it is called."""

    def __init__(self):
        import pythoncom
        import win32com.client.dynamic
        self.pythoncom = pythoncom
        self.root = win32com.client.dynamic.Dispatch("Ghosthand.Ghosthand")
        self.error = pythoncom.com_error

    def main_window_by_reference(self, program):
        """By the call that all others end in: pywin32 itself passes no reference where the library names a value."""
        from win32com.client import VARIANT, Dispatch

        pythoncom = self.pythoncom
        argument = VARIANT(pythoncom.VT_BYREF | pythoncom.VT_BSTR, program)
        entry = self.root._oleobj_
        member = entry.GetIDsOfNames("MainWindow")
        return Dispatch(entry.Invoke(member, 0, pythoncom.DISPATCH_METHOD, True, argument))

    def error_of(self, error):
        return error.excepinfo[5], error.excepinfo[2]

    def is_nothing(self, result):
        return result is None

    def members(self):
        """As the type library itself tells them."""
        pythoncom = self.pythoncom
        kinds = {pythoncom.INVOKE_FUNC: "method", pythoncom.INVOKE_PROPERTYGET: "get",
                 pythoncom.INVOKE_PROPERTYPUT: "put"}
        library = pythoncom.LoadRegTypeLib(LIBRARY, 1, 0, 0x409)
        interfaces = {}
        for index in range(library.GetTypeInfoCount()):
            info = library.GetTypeInfo(index)
            if library.GetTypeInfoType(index) != pythoncom.TKIND_DISPATCH:
                continue
            info = info.GetRefTypeInfo(info.GetRefTypeOfImplType(-1))  # the vtable's half of a dual interface
            members = []
            for number in range(info.GetTypeAttr().cFuncs):
                function = info.GetFuncDesc(number)
                kind = kinds[function.invkind]
                name, *parameters = info.GetNames(function.memid)
                parameters = [parameter for parameter, (_, flags, _) in zip(parameters, function.args)
                              if not flags & pythoncom.PARAMFLAG_FRETVAL] if kind != "put" else []
                members.append((function.memid & 0xFFFFFFFF, kind, name, parameters))
            interfaces[library.GetDocumentation(index)[0]] = members
        return interfaces


class Early(Late):
    """pywin32 with generated classes."""

    def __init__(self):
        super().__init__()
        from win32com.client import gencache

        self.module = gencache.EnsureModule(LIBRARY, 0x409, 1, 0)
        self.root = gencache.EnsureDispatch("Ghosthand.Ghosthand")
        assert "gen_py" in type(self.root).__module__, "makepy's class is not used"

    def members(self):
        """The generated classes have every member; what they are called with is makepy's business."""
        interfaces = super().members()
        for name, members in interfaces.items():
            made = getattr(self.module, name)
            for _, kind, member, _ in members:
                assert (hasattr(made, member) or member in made._prop_map_get_
                        or member in made._prop_map_put_), f"{name}.{member} was not generated"
        return interfaces


class Vtable:
    """comtypes: interface pointers."""

    def __init__(self):
        import comtypes.client

        self.root = comtypes.client.CreateObject("Ghosthand.Ghosthand")
        self.error = comtypes.COMError
        import comtypes.gen.GhosthandLib as library

        self.library = library

    def main_window_by_reference(self, program):
        return self.root.MainWindow(program)  # a vtable takes a BSTR and no VARIANT

    def error_of(self, error):
        return error.hresult, error.details[0]

    def is_nothing(self, result):
        return not result

    def members(self):
        kinds = {"propget": "get", "propput": "put"}
        interfaces = {}
        for name in dir(self.library):
            interface = getattr(self.library, name)
            if not (name.startswith("I") and hasattr(interface, "_methods_")) or name in ("IUnknown", "IDispatch"):
                continue
            members = []
            for method in interface._methods_:
                kind = kinds.get(next((flag for flag in method.idlflags if flag in kinds), None), "method")
                names = [flags[1] for flags in method.paramflags or () if not flags[0] & 2] if kind != "put" else []
                dispatch_id = next((flag for flag in method.idlflags if isinstance(flag, int)), 0)
                members.append((dispatch_id & 0xFFFFFFFF, kind, method.name.removeprefix("_get_")
                                .removeprefix("_set_"), names))
            interfaces[name] = members
        return interfaces


def drive(client):
    ghosthand = client.root
    host = ghosthand.MainWindow("sample_host", a_timeout=60)
    assert not client.is_nothing(host), "the sample host was not found"
    check("left out", ghosthand.MainWindow("sample_host").Text, host.Text)
    check("by reference", client.main_window_by_reference("sample_host").Text, host.Text)
    check("put and get", set_and_get(host), 7)

    host.Command(SETTINGS)
    dialog = host.ActiveDialog()
    field = dialog.Edit(EDIT)
    check("named", dialog.ChildWindow("", a_class_id=EDIT, a_timeout=0).ControlID, EDIT)
    field.Text = "a client's text"
    check("text", field.Text, "a client's text")
    check("a 64-bit argument left out", field.SendMessage(0x000E), len("a client's text"))  # WM_GETTEXTLENGTH
    check("derived", dialog.ListBox(LIST_BOX, ANY_DEPTH).GetItem(0) != "", True)
    check("nothing", client.is_nothing(dialog.TreeCtrl(9999, 0, 0)), True)
    check("nothing, named", client.is_nothing(dialog.Button(a_class_name="No such", a_timeout=0)), True)
    dialog.Close()

    host.Command(OPEN_DRAWING)
    files = host.OpenSaveDialog()
    assert not client.is_nothing(files), "no file dialog"
    files.Close()
    try:
        files.File("part.cad")
        raise AssertionError("File did not fail without its dialog")
    except client.error as error:
        check("error", client.error_of(error), (E_FAIL, NO_FIELD))


def set_and_get(window):
    window.EnabledTimeout = 7
    return window.EnabledTimeout


def main(way, listing, module):
    client = {"late": Late, "early": Early, "vtable": Vtable}[way]()
    expected = type_library_listing.read(listing)
    members = client.members()
    check("interfaces", sorted(members), sorted(expected))
    for name, wanted in expected.items():
        assert members[name] == wanted, f"{name}: {members[name]}\nnot\n{wanted}"
    check("members", sum(map(len, members.values())), sum(map(len, expected.values())))
    drive(client)
    del client, members
    gc.collect()
    check("unloadable", ctypes.WinDLL(module).DllCanUnloadNow(), 0)


main(*sys.argv[1:])
print("Done")
