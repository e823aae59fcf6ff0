"""Drives Wine's Notepad as a tester would: start one Notepad, then run "python notepad.py".

On Windows, whose Notepad has other commands and controls, run sample_host.py or cad_story.py.
"""

import os
import tempfile

import win32con
from ghosthand_helpers import (expect, is_alive, long_text, main_window, open_dialog, press_keys, type_text,
                               wait_until_gone)

# Commands of Wine's Notepad.
NEW, OPEN, SAVE_AS, FONT = 256, 257, 259, 320
YES = 6


def main():
    notepad = main_window("notepad")
    print(f'Main window:    "{notepad.Text}"')
    edit = notepad.Edit()

    type_text(edit, "First words")
    expect("Typed", edit.Text, "First words")
    press_keys(edit, win32con.VK_CONTROL, ord("A"))  # select all: what is typed replaces it
    type_text(edit, "Typed by Python.")
    expect("Typed over it", edit.Text, "Typed by Python.")

    dialog = open_dialog(notepad, FONT)
    print(f'Dialog opened:  "{dialog.Text}"')
    dialog.Close()
    expect("Dialog gone", wait_until_gone(dialog), True)

    text = "0123456789" * 300
    edit.Text = text
    expect("Long text", long_text(edit) == text, True)
    path = os.path.join(tempfile.gettempdir(), "ghosthand_sample.txt")
    save_as(notepad, path)
    with open(path, encoding="ascii") as file:
        expect("File saved", file.read() == text, True)
    notepad.Command(NEW)
    expect("New text", edit.Text, "")
    notepad.Command(OPEN)
    notepad.OpenSaveDialog().File(path)
    expect("Read back", long_text(edit) == text, True)
    expect("Dialog alive", is_alive(dialog), False)


def save_as(notepad, path):
    notepad.Command(SAVE_AS)
    notepad.OpenSaveDialog().File(path)
    question = notepad.ActiveDialog(0)
    if question is not None:
        question.Button("", YES).Click()  # replace it


main()
print("Done")
