"""The jobs with pywinauto, backend "win32", its own pauses taken out as its manual tells."""

import sys

sys.modules["comtypes"] = None  # the other backend's: Wine has no UI Automation

from pywinauto import Desktop
from pywinauto import win32defines
from pywinauto.timings import Timings, wait_until

import jobs

Timings.fast()
Timings.window_find_retry = 0.01


def window(caption="Peers"):
    found = Desktop(backend="win32").window(title=caption)
    found.wait("exists", 60)
    return found


def control(control_id):
    return window().child_window(control_id=control_id).wrapper_object()


def find():
    many = window("Many children")
    many.wrapper_object()  # found once, as by all
    edit = many.child_window(control_id=jobs.LAST_OF_MANY, class_name="Edit")
    return lambda: [edit.wrapper_object().window_text() for _ in range(jobs.FINDS)][-1:]


def read_list():
    view = control(jobs.LIST)
    return lambda: [item.text() for item in view.items()]


def read_tree():
    tree = control(jobs.TREE)
    return lambda: [root.text() for root in tree.roots()]


def select():
    tree = control(jobs.DEEP_TREE)

    def choose():
        # What select() does once it has brought the tree to the front, which Wine allows for top-level windows only.
        item = tree.get_item(r"\Assembly 9\Part 9\Feature 99")
        tree.send_message(win32defines.TVM_SELECTITEM, win32defines.TVGN_CARET, item.elem)

    return choose


def tools():
    bar = control(jobs.BAR)

    def press():
        for number in range(50):
            bar.button(f"Tool {number}").click()

    return press


def menus():
    host = window().wrapper_object()

    def choose():
        for number in range(50):
            host.send_command(jobs.FIRST_COMMAND + number)

    return choose


def form():
    host = window()

    def fill():
        host.wrapper_object().send_command(jobs.FORM)
        dialog = Desktop(backend="win32").window(title="Form", class_name="#32770")
        dialog.wait("ready", 10)
        field = {item.control_id(): item for item in dialog.wrapper_object().children()}
        for number, name in enumerate(jobs.NAMES):
            field[jobs.FIELD + number].set_edit_text(name)
        field[jobs.FIELD + 4].check()
        field[jobs.FIELD + 5].check()
        field[jobs.FIELD + 6].click()
        field[jobs.FIELD + 7].select(3)
        field[jobs.FIELD + 8].select(1)
        field[jobs.FIELD + 9].select(4)
        field[1].click()
        dialog.wait_not("exists", 10)

    return fill


def rounds():
    host = window().wrapper_object()
    result = control(jobs.RESULT)

    def play():
        for number in range(1, jobs.ROUNDS + 1):
            host.send_command(jobs.QUESTION)
            dialog = Desktop(backend="win32").window(title="Question", class_name="#32770")
            dialog.wait("ready", 10)
            dialog.child_window(control_id=jobs.EDIT).set_edit_text(f"value {number}")
            dialog.child_window(title="OK").click()
            wait_until(10, 0.01, lambda: result.window_text() != "")
            yield result.window_text()

    return play


jobs.run({"find": find, "list": read_list, "tree": read_tree, "select": select, "tools": tools, "menus": menus,
          "form": form, "rounds": rounds})
