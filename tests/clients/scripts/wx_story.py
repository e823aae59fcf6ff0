"""Drives a program of another toolkit (wx_program.py): wx_story.py JOURNAL.

What a script says it did counts when the program's own journal has it.
"""

import pathlib
import subprocess
import sys
import time

from win32com.client import Dispatch

from wx_ids import (APPLY, BOOK, CHOICE, COMBO, EDIT, FILLET, GRID, LAYERS, LIST, PROPERTIES, SLIDER, TOP, TREE,
                    TRISTATE)

ANY_DEPTH = 0x40


class Journal:
    def __init__(self, path):
        self.path, self.read = path, 0

    def expect(self, *wanted):
        """That these lines, and no others, come in some seconds."""
        end = time.monotonic() + 10
        lines = []
        while len(lines) < len(wanted) and time.monotonic() < end:
            lines = self.path.read_text().splitlines()[self.read:] if self.path.exists() else []
        self.read += len(lines)
        print(*lines, sep=", ")
        equal(lines, list(wanted))


def equal(got, wanted):
    assert got == wanted, f"{got!r}, not {wanted!r}"


def drive_bars(host, journal):
    host.Command(TOP)
    host.Command(GRID)
    journal.expect("top", "grid True")
    bar = host.Toolbar("", 0, ANY_DEPTH)
    equal(bar.ItemsCount, 4)
    bar.GetItemByID("Extrude").Click()
    bar.GetItemByID("", FILLET).Click()
    bar.GetItemByID("Snap").Checked = True
    bar.GetItemByID("Snap").Checked = True
    journal.expect("tool Extrude", "tool Fillet", "tool Snap")
    equal((bar.GetItemByID("Snap").Checked, bar.GetItemByID("Shell").Enabled), (True, False))


def drive_tree(host, journal):
    tree = host.TreeCtrl(TREE, ANY_DEPTH)
    equal(tree.ItemByNumPath("1.30.5").Text, "Feature 29.4")
    equal(tree.ItemByNum(100).Text, tree.ItemByPath("Assembly|Part 16|Feature 16.1").Text)
    assert tree.SelectItemByPath("Assembly|Part 7|Feature 7.3")
    tree.ItemByPath("Assembly|Part 2").Selected = True
    tree.ItemByPath("Assembly|Part 4").Text = "Rib"
    equal(tree.ItemByNumPath("1.5").Text, "Rib")
    assert tree.ItemByPath("Assembly|Part 4") is None
    journal.expect("tree Feature 7.3", "tree Part 2", "tree Part 4", "renamed Rib")


def drive_list(host, journal):
    parameters = host.ListView(LIST, ANY_DEPTH)
    equal(parameters.ItemsCount, 200)
    assert parameters.SelectItemByName("Parameter 150")
    equal((parameters.IsSelected(150), parameters.GetSubItem(150, 1)), (True, "225.0"))
    assert parameters.CheckItem(3)
    equal((parameters.IsChecked(3), parameters.IsChecked(4)), (True, False))
    journal.expect("list Parameter 150", "list checked 3")


def drive_controls(host, journal):
    # Its book has a window class of its own, which is no tab control's: a click on the second page's tab.
    host.ChildWindow("", "SysTabCtl32", BOOK, ANY_DEPTH).Click(1, 100, 8)
    host.Edit(EDIT, ANY_DEPTH).Text = "rib"
    journal.expect("page 1", "edit rib", "edit rib")
    host.CheckBox("Visible", 0, ANY_DEPTH).Checked = True
    host.CheckBox("", TRISTATE, ANY_DEPTH).CheckedState = 2
    host.Button("Blue", 0, ANY_DEPTH).Click()
    journal.expect("box True", "tristate 1", "tristate 2", "blue True")
    assert host.ComboBox(CHOICE, ANY_DEPTH).SelectItemByName("Gold")
    assert host.ComboBox(COMBO, ANY_DEPTH).SelectItem(1)
    assert host.ListBox(LAYERS, ANY_DEPTH).SelectItemByName("Layer 33")
    host.TrackBar(SLIDER, ANY_DEPTH).Pos = 55
    host.Button("Apply", APPLY, ANY_DEPTH).Click()
    journal.expect("choice Gold", "combo Two", "layer Layer 33", "slider 55", "apply ")


def drive_dialog(host, journal):
    host.Command(PROPERTIES)
    dialog = host.ActiveDialog()
    equal(dialog.Text, "Properties")
    dialog.Edit(0, ANY_DEPTH).Text = "flange"
    dialog.Button("OK").Click()
    journal.expect("properties flange")


def main(path):
    program = subprocess.Popen([sys.executable, str(pathlib.Path(__file__).with_name("wx_program.py")), str(path)])
    journal = Journal(path)
    try:
        host = Dispatch("Ghosthand.Ghosthand").MainWindow("python", "Modeller", "", 0, 60)
        assert host is not None, "its main window is not found"
        journal.expect("ready", "tree Assembly")
        for drive in (drive_bars, drive_tree, drive_list, drive_controls, drive_dialog):
            print(drive.__name__)
            drive(host, journal)
        host.Close()
        journal.expect("closed")
        equal(program.wait(20), 0)
    finally:
        program.kill()
    print("Done")


main(pathlib.Path(sys.argv[1]))
