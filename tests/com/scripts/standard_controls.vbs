' The standard controls of the sample host's pages, as a script sees and changes them.
Option Explicit

Const kListBox = 1022, kMultipleList = 1200, kExtendedList = 1201, kOwnerDrawnList = 1202
Const kSimpleCombo = 1210, kDropDown = 1021, kDropDownList = 1020, kOwnerDrawnCombo = 1211
Const kBareCombo = 1212, kCompositeCombo = 1213, kExtendedCombo = 1214, kQuietPanel = 1215
Const kQuietCombo = 1217, kTabs = 1220, kTabRows = 1221, kLongTabs = 1222
Const kHorizontalBar = 1230, kVerticalBar = 1231
Const kCheckBox = 1010, kTriStateBox = 1011, kManualBox = 1012, kManualTriStateBox = 1240
Const kStubbornBox = 1241, kLabel = 1003, kFileName = 1148
Const kAnyDescendant = &H40

Dim host, failures
failures = 0

' Without this, Wine's cscript ends in silence on the first error.
On Error Resume Next
Main
If Err.Number <> 0 Then Fail "error " & Hex(Err.Number) & ": " & Err.Description
If failures = 0 Then WScript.Echo "Done"

Sub Main()
    Set host = CreateObject("Ghosthand.Ghosthand").MainWindow("sample_host", "", "", 0, 60)
    Check "the main window", host Is Nothing, False
    ListBoxes Page(620)
    ComboBoxes Page(621)
    Tabs Page(622)
    TrackBars Page(623)
    CheckBoxes Page(624)
    FileDialogs
End Sub

Function Page(command)
    WScript.Echo "Page " & command
    host.Command command
    Set Page = host.ActiveDocument()
End Function

Sub ListBoxes(page)
    Dim list
    Set list = page.ListBox(kListBox)
    Check "items", list.ItemsCount, 12
    Check "nothing selected", list.SelectedItem, -1
    Check "item 4", list.GetItem(4), "R&D sample"
    Check "item 5", list.GetItem(5), "Glass" & vbTab & "clear"
    Check "item 6", list.GetItem(6), Chr(220) & "berzug"
    Check "items out of range", list.GetItem(-1) & list.GetItem(12) & list.GetItem(2147483647), ""
    Check "first with the prefix", list.SelectItemByName("Copper"), True
    Check "not the exact one", list.SelectedItem, 2
    Check "letter case", list.SelectItemByName("copper"), False
    Check "umlaut", list.SelectItemByName(Chr(220)), True
    Check "umlaut selected", list.SelectedItem, 6
    Check "single list", list.UnselectItem(6), True
    Check "unselecting leaves selected", list.SelectedItem, 6
    Check "by index", list.SelectItem(1), True
    Check "out of range", list.SelectItem(12) Or list.SelectItem(-1) Or list.UnselectItem(12), False
    Check "menu of an item", FirstEntry(list.ContextMenu()), "Properties of Brass"
    Check "menu of the list", FirstEntry(list.ContextMenu(False)), "Add item"

    Set list = page.ListBox(kMultipleList)
    Check "multiple", list.SelectItem(1) And list.SelectItem(3) And list.SelectItemByName("Glass"), True
    Check "multiple, selected", Selection(list), "1 3 5 "
    Check "multiple, again", list.SelectItem(3), True
    Check "multiple, taken out", list.UnselectItem(3) And list.UnselectItemByName("Nick"), True
    Check "multiple, left", Selection(list), "1 5 "

    Set list = page.ListBox(kExtendedList)
    Check "extended", list.SelectItem(0) And list.SelectItem(2), True
    Check "extended, selected", Selection(list), "0 2 "
    Check "extended, taken out", list.UnselectItem(0), True
    Check "extended, left", Selection(list), "2 "

    Set list = page.ListBox(kOwnerDrawnList)
    Check "without strings", list.ItemsCount & ":" & list.GetItem(1), "12:"
    Check "without strings, chosen", list.SelectItem(2), True
    Check "without strings, selected", list.SelectedItem, 2
    Check "without strings, by name", list.SelectItemByName("Brass"), False
End Sub

Function Selection(list)
    Dim index
    For index = 0 To list.ItemsCount - 1
        If list.IsSelected(index) Then Selection = Selection & index & " "
    Next
End Function

Function FirstEntry(menu)
    If menu Is Nothing Then
        FirstEntry = "no menu"
        Exit Function
    End If
    FirstEntry = "?"
    ' An item tells no text: it is found by it.
    If Not menu.GetItemByID("Properties of Brass", 0, 0, 0) Is Nothing Then FirstEntry = "Properties of Brass"
    If Not menu.GetItemByID("Properties of Geometry", 0, 0, 0) Is Nothing Then FirstEntry = "Properties of Geometry"
    If Not menu.GetItemByID("Add item", 0, 0, 0) Is Nothing Then FirstEntry = "Add item"
    menu.CloseMenu
End Function

Sub ComboBoxes(page)
    Dim id, combo
    For Each id In Array(kSimpleCombo, kDropDown, kDropDownList, kOwnerDrawnCombo, kCompositeCombo, kExtendedCombo)
        Set combo = page.ComboBox(id)
        Check id & " items", combo.GetItemCount, 6
        Check id & " item 4", combo.GetItem(4), "R&D notes"
        Check id & " by name", combo.SelectItemByName("Contour"), True
        Check id & " reported", page.ChildWindow("Box " & id, "Static").Text, "Box " & id & " shows item 1"
        Check id & " by index", combo.SelectItem(5), True
        Check id & " reported", page.ChildWindow("Box " & id, "Static").Text, "Box " & id & " shows item 5"
        Check id & " out of range", combo.SelectItem(6) Or combo.SelectItem(-1) Or combo.SelectItem(2147483647), False
        Check id & " items out of range", combo.GetItem(-1) & combo.GetItem(6), ""
        Check id & " unknown", combo.SelectItemByName("contour"), False
    Next
    Set combo = page.ComboBox(kBareCombo)
    Check "without strings", combo.GetItemCount & ":" & combo.GetItem(1), "6:"
    Check "without strings, chosen", combo.SelectItem(3), True
    Check "without strings, reported", page.ChildWindow("Box " & kBareCombo, "Static").Text, "Box " & kBareCombo & " shows item 3"
    Set combo = page.ComboBox(kQuietCombo, kAnyDescendant)
    Check "in quiet panels", combo.SelectItemByName("Sym"), True
    Check "in quiet panels, reported", page.ChildWindow("Box " & kQuietCombo, "Static").Text, "Box " & kQuietCombo & " shows item 5"
End Sub

Sub Tabs(page)
    Dim tab
    Set tab = page.TabCtrl(kTabs)
    Check "tabs", tab.ItemsCount, 6
    Check "first tab", tab.SelectedItem, 0
    Check "tab 3", tab.GetItem(3), "R&D"
    Check "tab 4", tab.GetItem(4), "Gr" & Chr(246) & Chr(223) & "e"
    Check "tabs out of range", tab.GetItem(-1) & tab.GetItem(6) & tab.GetItem(2147483647), ""
    Check "by name", tab.SelectItemByName("Geometry"), True
    Check "shown", page.ChildWindow("Shown", "Static").Text, "Shown: Geometry, all"
    Check "by index", tab.SelectItem(2), True
    Check "shown by index", page.ChildWindow("Shown", "Static").Text, "Shown: Geometry"
    Check "out of range", tab.SelectItem(6) Or tab.SelectItem(-1) Or tab.SelectItemByName("geo"), False
    Check "menu of a tab", FirstEntry(tab.ContextMenu()), "Properties of Geometry"
    Check "menu of the control", FirstEntry(tab.ContextMenu(False)), "Add item"

    Set tab = page.TabCtrl(kTabRows)
    Check "rows", tab.ItemsCount, 20
    Check "in the last row", tab.SelectItem(19), True
    Check "in the last row, selected", tab.SelectedItem, 19
    Check "in the first row", tab.SelectItemByName("Layer 2"), True
    Check "in the first row, selected", tab.SelectedItem, 1

    Set tab = page.TabCtrl(kLongTabs)
    Check "long texts", Len(tab.GetItem(0)) & " " & Len(tab.GetItem(1)) & " " & Len(tab.GetItem(2)) & " " & Len(tab.GetItem(3)), "1022 1023 1023 1023"
End Sub

Sub TrackBars(page)
    Dim bar
    Set bar = page.TrackBar(kHorizontalBar)
    Check "range", bar.Min & " to " & bar.Max, "0 to 100"
    bar.Pos = 40
    Check "position", bar.Pos, 40
    Check "reported", page.ChildWindow("bar at", "Static").Text, "Horizontal bar at 40"
    bar.Pos = 2147483647
    Check "beyond the end", bar.Pos, 100
    Check "beyond the end, reported", page.ChildWindow("bar at", "Static").Text, "Horizontal bar at 100"
    Set bar = page.TrackBar(kVerticalBar)
    bar.Pos = -30
    Check "below 0", bar.Pos, -30
    Check "vertical, reported", page.ChildWindow("bar at", "Static").Text, "Vertical bar at -30"
End Sub

Sub CheckBoxes(page)
    Dim box, id
    For Each id In Array(kCheckBox, kManualBox)
        Set box = page.CheckBox("", id)
        Check id & " states", box.ThreeState, False
        box.Checked = True
        Check id & " checked", box.Checked, True
        box.CheckedState = 2
        Check id & " never indeterminate", box.CheckedState, 1
        box.Checked = False
        Check id & " cleared", box.CheckedState, 0
    Next
    For Each id In Array(kTriStateBox, kManualTriStateBox)
        Set box = page.CheckBox("", id)
        Check id & " states", box.ThreeState, True
        box.CheckedState = 2
        Check id & " indeterminate", box.CheckedState, 2
        Check id & " indeterminate is not checked", box.Checked, False
        box.Checked = True
        Check id & " checked", box.CheckedState, 1
        box.CheckedState = 0
        Check id & " cleared", box.CheckedState, 0
    Next
    Set box = page.CheckBox("", kStubbornBox)
    box.Checked = True
    Check "stubborn", box.Checked, False
End Sub

Sub FileDialogs()
    Dim dialog
    Check "no dialog", host.OpenSaveDialog(0) Is Nothing, True
    host.Command 625
    Set dialog = host.OpenSaveDialog()
    Check "address", dialog.Path, "Address: C:\Drawings"
    dialog.File "Part & hole.drawing"
    Check "closed", host.OpenSaveDialog(0) Is Nothing, True
    host.Command 626
    Set dialog = host.OpenSaveDialog()
    Check "no address", dialog.Path, "Invalid"
    dialog.Edit(kFileName).Close ' takes the field away
    Err.Clear
    On Error Resume Next
    dialog.File "x"
    Check "without a field", Hex(Err.Number) & " " & Err.Description, "80004005 Expected to find edit control"
    Err.Clear
    dialog.Close
    Check "all closed", host.ActiveDialog(0) Is Nothing, True
End Sub

Sub Check(what, actual, expected)
    If actual = expected Then Exit Sub
    Fail what & ": """ & actual & """ instead of """ & expected & """"
End Sub

Sub Fail(reason)
    failures = failures + 1
    WScript.Echo "FAILED: " & reason
End Sub
