; Drives the sample host: start one sample_host.exe, then run "AutoHotkey64.exe sample_host.ahk".
#Requires AutoHotkey v2.0
#Include ghosthand_helpers.ahk

; Commands and control ids of the sample host (samples/host/host_ids.h).
kPageSettings := 601, kPageContextMenus := 608, kPageTrees := 630, kPageListViews := 631
kEdit := 1001, kCheckBox := 1010, kTriStateBox := 1011, kRadioImperial := 1016
kDropDownList := 1020, kListBox := 1022, kMenuArea := 1085, kPartsTree := 1140, kLayersList := 1151
kDrawSnap := 705

host := MainWindow("sample_host")
Print('Main window:    "' host.Text '"')
host.FitSize(900, 600)
Expect("Client size", host.Width " x " host.Height, "900 x 600")
SetOptions()
UseMenus()
UseTree(Page(kPageTrees).TreeCtrl(kPartsTree))
UseList(Page(kPageListViews).ListView(kLayersList))
Print("Done")

; Opens a page of the sample host and returns its window.
Page(command) {
    host.Command(command)
    window := host.ActiveDocument()
    Print('Page opened:    "' window.Text '"')
    return window
}

SetOptions() {
    dialog := OpenDialog(host, kPageSettings)
    Print('Dialog opened:  "' dialog.Text '"')
    field := dialog.Edit(kEdit)
    field.Text := "New setting"
    Expect("Field", field.Text, "New setting")
    box := dialog.CheckBox("", kCheckBox)
    box.Checked := !box.Checked
    box.Checked := true
    Expect("Check box", box.Checked != 0, true)
    box := dialog.CheckBox("", kTriStateBox)
    box.CheckedState := 2
    Expect("Three states", box.CheckedState, 2)
    dialog.Button("", kRadioImperial).Click()
    combo := dialog.ComboBox(kDropDownList)
    combo.SelectItem(1)
    Expect("Combo box", combo.Text, combo.GetItem(1))
    list := dialog.ListBox(kListBox)
    list.SelectItem(2)
    Expect("List box", list.SelectedItem, 2)
    dialog.Close()
    Expect("Dialog gone", WaitUntilGone(dialog), true)
}

UseMenus() {
    host.MenuChars("ha") ; Alt, H, A: Help, About
    about := host.ActiveDialog()
    Print('Menu opened:    "' about.Text '"')
    about.Close()

    area := Page(kPageContextMenus).ChildWindow("", "", kMenuArea)
    snap := area.ContextMenu(10, 10).GetItemByID("Snap", kDrawSnap)
    wasChecked := snap.Checked
    snap.Click()
    popup := area.ContextMenu(10, 10)
    Expect("Snap marked", popup.GetItemByID("Snap", kDrawSnap).Checked != 0, !wasChecked)
    popup.CloseMenu()
}

UseTree(tree) {
    first := tree.ItemByNumPath("1")
    first.Selected := true
    Expect("Tree item", tree.SelectedItem.Text, first.Text)
    first.Expanded := true
    Expect("Expanded", first.Expanded != 0, true)
}

UseList(layers) {
    Expect("List view", layers.SelectItemByName("Layer 1") != 0, true)
    Expect("Selected", layers.GetItem(layers.SelectedItem), "Layer 1")
    layers.CheckItemByName("Layer 10")
    Expect("Checked", layers.IsChecked(layers.SelectedItem + 1) != 0, true)
}
