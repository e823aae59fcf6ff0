"""The jobs with Ghosthand, early bound with pywin32."""

from win32com.client import gencache

import jobs


def window(caption="Peers"):
    return gencache.EnsureDispatch("Ghosthand.Ghosthand").MainWindow("sample_host", caption, "", 0, 60)


def find():
    many = window("Many children")
    return lambda: [many.Edit(jobs.LAST_OF_MANY, 0x40).Text for _ in range(jobs.FINDS)][-1:]


def read_list():
    view = window().ListView(jobs.LIST)
    return lambda: [view.GetItem(row) for row in range(1000)]


def read_tree():
    tree = window().TreeCtrl(jobs.TREE)
    return lambda: [tree.ItemByNum(number).Text for number in range(1, 1001)]


def select():
    tree = window().TreeCtrl(jobs.DEEP_TREE)
    return lambda: tree.SelectItemByPath("Assembly 9|Part 9|Feature 99") and None


def tools():
    bar = window().Toolbar("", jobs.BAR)

    def press():
        for number in range(50):
            bar.GetItemByID(f"Tool {number}").Click()

    return press


def menus():
    host = window()

    def choose():
        # Commands that need not be waited for one by one; the last one waits for all.
        host.Synchronization = False
        for number in range(49):
            host.Command(jobs.FIRST_COMMAND + number)
        host.Synchronization = True
        host.Command(jobs.FIRST_COMMAND + 49)

    return choose


def form():
    host = window()

    def fill():
        host.Command(jobs.FORM)
        dialog = host.ActiveDialog()
        for number, name in enumerate(jobs.NAMES):
            dialog.Edit(jobs.FIELD + number).Text = name
        dialog.CheckBox("", jobs.FIELD + 4).Checked = True
        dialog.CheckBox("", jobs.FIELD + 5).Checked = True
        dialog.Button("", jobs.FIELD + 6).Click()
        dialog.ComboBox(jobs.FIELD + 7).SelectItem(3)
        dialog.ComboBox(jobs.FIELD + 8).SelectItem(1)
        dialog.ListBox(jobs.FIELD + 9).SelectItem(4)
        dialog.Button("OK").Click()

    return fill


def rounds():
    host = window()
    result = host.ChildWindow("", "Static", jobs.RESULT)
    host.Synchronization = False  # the dialog comes later anyway: ActiveDialog waits for it

    def play():
        for number in range(1, jobs.ROUNDS + 1):
            host.Command(jobs.QUESTION)
            dialog = host.ActiveDialog()
            dialog.Edit(jobs.EDIT).Text = f"value {number}"
            dialog.Button("OK").Click()
            while not (text := result.Text):
                pass
            yield text

    return lambda: list(play())


jobs.run({"find": find, "list": read_list, "tree": read_tree, "select": select, "tools": tools, "menus": menus,
          "form": form, "rounds": rounds})
