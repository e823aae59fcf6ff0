"""The jobs with Ghosthand, early bound with pywin32."""

from win32com.client import gencache

import jobs

WM_COMMAND = 0x111


def window(caption="Peers"):
    return gencache.EnsureDispatch("Ghosthand.Ghosthand").MainWindow("sample_host", caption, "", 0, 60)


def quick(control):
    """The same object, whose actions do not wait for the program: as the other tools' do not."""
    control.Synchronization = False
    return control


def next_dialog(host):
    """ActiveDialog looks every 100 ms; with no time to wait it looks once, and this script looks all the time."""
    while (dialog := host.ActiveDialog(0)) is None:
        pass
    return dialog


def find():
    many = window("Many children")
    return lambda: [many.Edit(jobs.LAST_OF_MANY, 0x40).Text for _ in range(jobs.FINDS)][-1:]


def read_list():
    view = window().ListView(jobs.LIST)
    return lambda: [view.GetItem(row) for row in range(1000)]


def read_tree():
    tree = window().TreeCtrl(jobs.TREE)
    return lambda: [tree.ItemByNumPath(str(number)).Text for number in range(1, 1001)]


def select():
    tree = quick(window().TreeCtrl(jobs.DEEP_TREE))
    return lambda: tree.SelectItemByPath("Assembly 9|Part 9|Feature 99") and None


def tools():
    bar = quick(window().Toolbar("", jobs.BAR))

    def press():
        for number in range(50):
            bar.GetItemByID(f"Tool {number}").Click()

    return press


def menus():
    host = quick(window())

    def choose():
        # As the other tools do it: sent, so that each is done when the next one goes out.
        for number in range(50):
            host.SendMessage(WM_COMMAND, jobs.FIRST_COMMAND + number)

    return choose


def form():
    host = quick(window())  # the dialog is waited for anyway

    def fill():
        host.Command(jobs.FORM)
        dialog = next_dialog(host)
        for number, name in enumerate(jobs.NAMES):
            quick(dialog.Edit(jobs.FIELD + number)).Text = name
        quick(dialog.ComboBox(jobs.FIELD + 7)).SelectItem(3)
        quick(dialog.ComboBox(jobs.FIELD + 8)).SelectItem(1)
        quick(dialog.ListBox(jobs.FIELD + 9)).SelectItem(4)
        # Clicks that nobody waits for come last: what takes the focus away would undo one that is under way.
        quick(dialog.CheckBox("", jobs.FIELD + 4)).Checked = True
        quick(dialog.CheckBox("", jobs.FIELD + 5)).Checked = True
        quick(dialog.Button("", jobs.FIELD + 6)).Click()
        quick(dialog.Button("OK")).Click()
        while host.ActiveDialog(0) is not None:
            pass

    return fill


def rounds():
    host = window()
    result = host.ChildWindow("", "Static", jobs.RESULT)
    host.Synchronization = False  # the dialog comes later anyway

    def play():
        for number in range(1, jobs.ROUNDS + 1):
            host.Command(jobs.QUESTION)
            dialog = next_dialog(host)
            quick(dialog.Edit(jobs.EDIT)).Text = f"value {number}"
            quick(dialog.Button("OK")).Click()
            while not (text := result.Text):
                pass
            yield text

    return play


jobs.run({"find": find, "list": read_list, "tree": read_tree, "select": select, "tools": tools, "menus": menus,
          "form": form, "rounds": rounds})
