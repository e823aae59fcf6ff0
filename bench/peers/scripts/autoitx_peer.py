"""The jobs with AutoItX through pyautoit, its own pauses taken out as its manual tells."""

import autoit

import jobs

autoit.opt("WinWaitDelay", 0)
PEERS = "[TITLE:Peers; CLASS:SampleHostPeers]"


def identified(control_id):
    return f"[ID:{control_id}]"


def find():
    many = "[TITLE:Many children]"
    autoit.win_wait(many, 60)
    return lambda: [autoit.control_get_text(many, identified(jobs.LAST_OF_MANY)) for _ in range(jobs.FINDS)][-1:]


def handles(control_id):
    autoit.win_wait(PEERS, 60)
    host = autoit.win_get_handle(PEERS)
    return host, autoit.control_get_handle(host, identified(control_id))


def read_list():
    host, view = handles(jobs.LIST)
    return lambda: [autoit.control_list_view_by_handle(host, view, "GetText", extra1=str(row), extra2="0")
                    for row in range(1000)]


def read_tree():
    host, tree = handles(jobs.TREE)
    return lambda: [autoit.control_tree_view_by_handle(host, tree, "GetText", extra1=f"#{number}")
                    for number in range(1000)]


def select():
    host, tree = handles(jobs.DEEP_TREE)

    def choose():
        autoit.control_tree_view_by_handle(host, tree, "Select", extra1="Assembly 9|Part 9|Feature 99")

    return choose


def menus():
    host, bar = handles(jobs.BAR)

    def choose():
        # Its way to a command by number goes through a tool bar, which hands it to its window.
        for number in range(50):
            autoit.control_command_by_handle(host, bar, "SendCommandID", extra=str(jobs.FIRST_COMMAND + number))

    return choose


def command(number):
    host, bar = handles(jobs.BAR)
    autoit.control_command_by_handle(host, bar, "SendCommandID", extra=str(number))


def form():
    autoit.win_wait(PEERS, 60)

    def fill():
        command(jobs.FORM)
        dialog = "[TITLE:Form; CLASS:#32770]"
        autoit.win_wait_active(dialog, 10)
        for number, name in enumerate(jobs.NAMES):
            autoit.control_set_text(dialog, identified(jobs.FIELD + number), name)
        for number in (4, 5, 6):
            autoit.control_command(dialog, identified(jobs.FIELD + number), "Check")
        for number, item in ((7, 3), (8, 1), (9, 4)):
            autoit.control_command(dialog, identified(jobs.FIELD + number), "SetCurrentSelection", extra=str(item))
        autoit.control_click(dialog, "[ID:1]")
        autoit.win_wait_close(dialog, 10)

    return fill


def rounds():
    host, bar = handles(jobs.BAR)
    result = autoit.control_get_handle(host, identified(jobs.RESULT))

    def play():
        dialog = "[TITLE:Question; CLASS:#32770]"
        for number in range(1, jobs.ROUNDS + 1):
            autoit.control_command_by_handle(host, bar, "SendCommandID", extra=str(jobs.QUESTION))
            autoit.win_wait_active(dialog, 10)
            autoit.control_set_text(dialog, identified(jobs.EDIT), f"value {number}")
            autoit.control_click(dialog, "[ID:1]")
            while not (text := autoit.control_get_text_by_handle(host, result)):
                pass
            yield text

    return play


jobs.run({"find": find, "list": read_list, "tree": read_tree, "select": select, "menus": menus, "form": form,
          "rounds": rounds})
