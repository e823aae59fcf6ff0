"""Drives the sample host: start one sample_host.exe, then run "python sample_host.py"."""

from ghosthand_helpers import expect, main_window, open_dialog, wait_until_gone

# Commands and control ids of the sample host (samples/host/host_ids.h).
PAGE_SETTINGS, PAGE_CONTEXT_MENUS, PAGE_TREES, PAGE_LIST_VIEWS = 601, 608, 630, 631
EDIT, CHECK_BOX, TRI_STATE_BOX, RADIO_IMPERIAL = 1001, 1010, 1011, 1016
DROP_DOWN_LIST, LIST_BOX, MENU_AREA, PARTS_TREE, LAYERS_LIST = 1020, 1022, 1085, 1140, 1151
DRAW_SNAP = 705


def main():
    host = main_window("sample_host")
    print(f'Main window:    "{host.Text}"')
    host.FitSize(900, 600)
    expect("Client size", (host.Width, host.Height), (900, 600))
    set_options(host)
    use_menus(host)
    use_tree(page(host, PAGE_TREES).TreeCtrl(PARTS_TREE))
    use_list(page(host, PAGE_LIST_VIEWS).ListView(LAYERS_LIST))


def page(host, command):
    """Opens a page of the sample host and returns its window."""
    host.Command(command)
    window = host.ActiveDocument()
    print(f'Page opened:    "{window.Text}"')
    return window


def set_options(host):
    dialog = open_dialog(host, PAGE_SETTINGS)
    print(f'Dialog opened:  "{dialog.Text}"')
    edit = dialog.Edit(EDIT)
    edit.Text = "New setting"
    expect("Field", edit.Text, "New setting")
    box = dialog.CheckBox("", CHECK_BOX)
    box.Checked = not box.Checked
    box.Checked = True
    expect("Check box", box.Checked, True)
    box = dialog.CheckBox("", TRI_STATE_BOX)
    box.CheckedState = 2
    expect("Three states", box.CheckedState, 2)
    dialog.Button("", RADIO_IMPERIAL).Click()
    combo = dialog.ComboBox(DROP_DOWN_LIST)
    combo.SelectItem(1)
    expect("Combo box", combo.Text, combo.GetItem(1))
    box = dialog.ListBox(LIST_BOX)
    box.SelectItem(2)
    expect("List box", box.SelectedItem, 2)
    dialog.Close()
    expect("Dialog gone", wait_until_gone(dialog), True)


def use_menus(host):
    host.MenuChars("ha")  # Alt, H, A: Help, About
    about = host.ActiveDialog()
    print(f'Menu opened:    "{about.Text}"')
    about.Close()

    area = page(host, PAGE_CONTEXT_MENUS).ChildWindow("", "", MENU_AREA)
    snap = area.ContextMenu(10, 10).GetItemByID("Snap", DRAW_SNAP)
    was_checked = snap.Checked
    snap.Click()
    menu = area.ContextMenu(10, 10)
    expect("Snap marked", menu.GetItemByID("Snap", DRAW_SNAP).Checked, not was_checked)
    menu.CloseMenu()


def use_tree(tree):
    first = tree.ItemByNumPath("1")
    first.Selected = True
    expect("Tree item", tree.SelectedItem.Text, first.Text)
    first.Expanded = True
    expect("Expanded", first.Expanded, True)


def use_list(layers):
    expect("List view", layers.SelectItemByName("Layer 1"), True)
    expect("Selected", layers.GetItem(layers.SelectedItem), "Layer 1")
    layers.CheckItemByName("Layer 10")
    expect("Checked", layers.IsChecked(layers.SelectedItem + 1), True)


main()
print("Done")
