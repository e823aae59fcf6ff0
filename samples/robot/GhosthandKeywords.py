"""Keywords of Robot Framework that drive a program with Ghosthand, and a picture for each keyword that fails.

Controls are named by the number that they have in the program: 1001. What is not here, add: a method is a keyword.
"""

import os
import subprocess
import sys

from PIL import ImageGrab
from robot.api import logger
from robot.api.deco import keyword, library
from robot.libraries.BuiltIn import BuiltIn

sys.path.insert(0, os.path.join(os.path.dirname(__file__), "..", "python"))
import ghosthand_helpers  # noqa: E402


@library(scope="GLOBAL")
class GhosthandKeywords:
    def __init__(self):
        self._process = None
        self._main = None  # the program's main window
        self._window = None  # where controls are looked for: a dialog, a page or the main window
        self._pictures = 0

    @keyword
    def start_program(self, path):
        self._process = subprocess.Popen([path])
        name = os.path.splitext(os.path.basename(path.replace("\\", "/")))[0]
        self._main = self._window = ghosthand_helpers.main_window(name)

    @keyword
    def end_program(self):
        self._process.kill()
        self._process.wait()

    @keyword
    def open_dialog(self, command: int):
        """Runs a menu command; the keywords that follow work in the dialog that it opens."""
        self._window = ghosthand_helpers.open_dialog(self._main, command)

    @keyword
    def open_page(self, command: int):
        """Runs a menu command; the keywords that follow work in the document that it opens."""
        self._main.Command(command)
        self._window = self._main.ActiveDocument()

    @keyword
    def close_dialogs(self):
        """Closes every dialog of the program."""
        while (dialog := self._main.ActiveDialog(0)) is not None:
            dialog.Close()
            if not ghosthand_helpers.wait_until_gone(dialog):
                raise AssertionError("The dialog does not close.")
        self._window = self._main

    @keyword
    def set_text(self, control: int, text):
        self._found(self._window.Edit(control), control).Text = text

    @keyword
    def text_should_be(self, control: int, text):
        self._equal(self._found(self._window.Edit(control), control).Text, text)

    @keyword
    def set_check_box(self, control: int, checked: bool):
        self._found(self._window.CheckBox("", control), control).Checked = checked

    @keyword
    def check_box_should_be(self, control: int, checked: bool):
        self._equal(self._found(self._window.CheckBox("", control), control).Checked, checked)

    @keyword
    def select_tree_item(self, control: int, path):
        if not self._found(self._window.TreeCtrl(control), control).SelectItemByPath(path):
            raise AssertionError(f"The tree has no item {path}.")

    @keyword
    def selected_tree_item_should_be(self, control: int, text):
        self._equal(self._found(self._window.TreeCtrl(control), control).SelectedItem.Text, text)

    @keyword
    def press_keys(self, *keys: int):
        """Presses keys, given by their virtual codes, together: real key strokes."""
        ghosthand_helpers.press_keys(self._window, *keys)

    @keyword
    def take_picture(self):
        """The desktop, shown in the log."""
        self._pictures += 1
        name = f"desktop_{self._pictures}.png"
        ImageGrab.grab().save(os.path.join(BuiltIn().get_variable_value("${OUTPUT DIR}"), name))
        logger.info(f'<a href="{name}"><img src="{name}" width="800"></a>', html=True)

    @staticmethod
    def _found(control, number):
        if control is None:
            raise AssertionError(f"There is no such control {number}.")
        return control

    @staticmethod
    def _equal(got, wanted):
        if got != wanted:
            raise AssertionError(f"It is {got!r}, not {wanted!r}.")
