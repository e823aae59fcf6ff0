"""What test scripts ask for first, for Python with comtypes. Copy it beside your scripts and change it.

comtypes makes classes of the type library and calls the objects directly, so each object has the members of its
own interface only: query() asks for another. Nothing found is a null pointer, which is false but not None.
Times are in seconds. A window is any object that a member of Ghosthand handed out.
"""

import ctypes
import time

import comtypes.client
from comtypes import IUnknown, GUID, COMMETHOD, HRESULT

NO_SUCH = "(no such window)"
WM_NULL, WM_GETTEXT, WM_GETTEXTLENGTH, WM_CHAR = 0, 0x0D, 0x0E, 0x102
VK_CONTROL = 0x11
KEYEVENTF_KEYUP = 2

user32 = ctypes.windll.user32
user32.SendMessageW.argtypes = ctypes.c_void_p, ctypes.c_uint, ctypes.c_size_t, ctypes.c_void_p


class IOleWindow(IUnknown):
    """The one interface of the system's that handle_of needs."""

    _iid_ = GUID("{00000114-0000-0000-C000-000000000046}")
    _methods_ = [COMMETHOD([], HRESULT, "GetWindow", (["out"], ctypes.POINTER(ctypes.c_void_p), "handle"))]


def ghosthand():
    """The entry object. The first call generates the module comtypes.gen.GhosthandLib."""
    return comtypes.client.CreateObject("Ghosthand.Ghosthand")


def main_window(program, timeout=60):
    """The main window of a running program; stops the script if there is none."""
    window = ghosthand().MainWindow(program, "", "", 0, timeout)
    if not window:
        raise LookupError(f"the main window of {program} was not found: start it first")
    return window


def query(thing, interface):
    """The same object by another of its interfaces: query(item, "ICADTreeItem")."""
    from comtypes.gen import GhosthandLib as library

    return thing.QueryInterface(getattr(library, interface))


def is_alive(window):
    """Whether the window still exists, shown or not: the client area of a living one is at least one pixel."""
    return window.Width > 0


def wait_until_gone(window, timeout=10):
    """Waits until the window is closed or hidden. False if it is still there."""
    end = time.monotonic() + timeout
    while window.Visible and time.monotonic() < end:
        _pause(window)
    _pause(window)  # a dialog that is closed is hidden first, and then its owner takes input again
    return not window.Visible


def _pause(window):
    """Waits for a second, or until the window no longer exists: a search ends early then."""
    window.ChildWindow(NO_SUCH, NO_SUCH, 0, 0, 1)


def open_dialog(window, command, timeout=10):
    """Runs a menu command by its id and returns the dialog that it opens.

    Command returns when the program is idle again, also while the dialog is open: it never blocks.
    """
    window.Command(command)
    dialog = window.ActiveDialog(timeout)
    if not dialog:
        raise LookupError(f"command {command} opened no dialog")
    return dialog


def type_text(window, text):
    """Types a text into the window, a character at a time, and waits until it has arrived."""
    window.SetFocus()
    for character in text.encode("mbcs"):  # the program's characters are those of the system's code page
        window.PostMessageFocus(WM_CHAR, character)
    window.PostMessage(WM_NULL)  # waits, which PostMessageFocus does not


def press_keys(window, *keys):
    """Presses keys together, as press_keys(window, VK_CONTROL, ord("A")): real key strokes, which reach what is
    in front."""
    window.SetFocus()
    for key in keys:
        user32.keybd_event(key, 0, 0, 0)
    for key in reversed(keys):
        user32.keybd_event(key, 0, KEYEVENTF_KEYUP, 0)
    time.sleep(0.05)  # until the system has passed them on
    window.PostMessage(WM_NULL)


def handle_of(window):
    """The window's handle, for what the system's own functions can do with it."""
    return window.AccessibleObject.QueryInterface(IOleWindow).GetWindow()


def long_text(window):
    """The window's whole text; Text ends after 259 bytes."""
    handle = handle_of(window)
    size = user32.SendMessageW(handle, WM_GETTEXTLENGTH, 0, None) + 1
    buffer = ctypes.create_unicode_buffer(size)
    user32.SendMessageW(handle, WM_GETTEXT, size, buffer)
    return buffer.value


def expect(what, got, wanted):
    """Prints a value and stops the script if it is not the wanted one."""
    print(f"{what + ':':<15} {got}")
    assert got == wanted, f"{what} is {got!r}, not {wanted!r}"
