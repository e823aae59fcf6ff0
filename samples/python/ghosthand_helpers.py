"""What test scripts ask for first, for Python with pywin32. Copy it beside your scripts and change it.

Times are in seconds. A window is any object that a member of Ghosthand handed out.
"""

import time

import pythoncom
import win32api
import win32com.axcontrol.axcontrol  # makes IOleWindow known
import win32com.client
import win32con
import win32gui

NO_SUCH = "(no such window)"


def ghosthand():
    """The entry object."""
    return win32com.client.Dispatch("Ghosthand.Ghosthand")


def by_name(thing):
    """The same object, with its members looked up by name. Where somebody has run makepy, pywin32 gives an item of a
    model tree the members of any tree's item only."""
    return win32com.client.dynamic.Dispatch(thing._oleobj_)


def main_window(program, timeout=60):
    """The main window of a running program; stops the script if there is none."""
    window = ghosthand().MainWindow(program, "", "", 0, timeout)
    if window is None:
        raise LookupError(f"the main window of {program} was not found: start it first")
    return window


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
    if dialog is None:
        raise LookupError(f"command {command} opened no dialog")
    return dialog


def type_text(window, text):
    """Types a text into the window, a character at a time, and waits until it has arrived."""
    window.SetFocus()
    for character in text.encode("mbcs"):  # the program's characters are those of the system's code page
        window.PostMessageFocus(win32con.WM_CHAR, character)
    window.PostMessage(win32con.WM_NULL)  # waits, which PostMessageFocus does not


def press_keys(window, *keys):
    """Presses keys together, as press_keys(window, win32con.VK_CONTROL, ord("A")): real key strokes, which
    reach what is in front."""
    window.SetFocus()
    for key in keys:
        win32api.keybd_event(key, 0, 0, 0)
    for key in reversed(keys):
        win32api.keybd_event(key, 0, win32con.KEYEVENTF_KEYUP, 0)
    time.sleep(0.05)  # until the system has passed them on
    window.PostMessage(win32con.WM_NULL)


def handle_of(window):
    """The window's handle, for what win32gui can do with it."""
    accessible = window.AccessibleObject._oleobj_
    return accessible.QueryInterface(pythoncom.IID_IOleWindow).GetWindow()


def long_text(window):
    """The window's whole text; Text ends after 259 bytes."""
    handle = handle_of(window)
    size = win32gui.SendMessage(handle, win32con.WM_GETTEXTLENGTH, 0, 0) + 1
    buffer = win32gui.PyMakeBuffer(2 * size)
    length = win32gui.SendMessage(handle, win32con.WM_GETTEXT, size, buffer)
    return buffer[: 2 * length].tobytes().decode("utf-16-le")


def expect(what, got, wanted):
    """Prints a value and stops the script if it is not the wanted one."""
    print(f"{what + ':':<15} {got}")
    assert got == wanted, f"{what} is {got!r}, not {wanted!r}"
