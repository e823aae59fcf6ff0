' Wine's own property sheet: tabs, a combo box, a track bar and check boxes, whose notifications enable
' the button Apply. Nothing is applied.
Option Explicit

Const kAnyDescendant = &H40
Const kVersion = 1012

' Without this, Wine's cscript ends in silence on the first error.
On Error Resume Next
Main
If Err.Number <> 0 Then Fail "error " & Hex(Err.Number) & ": " & Err.Description
WScript.Echo "Done"

Sub Main()
    Dim sheet, tabs, version, apply, resolution, before, box
    Set sheet = CreateObject("Ghosthand.Ghosthand").MainWindow("winecfg", "", "", 0, 60)
    Set tabs = sheet.TabCtrl()
    Check "a tab", tabs.GetItem(2), "Graphics"

    Set version = sheet.ComboBox(kVersion, kAnyDescendant)
    Set apply = sheet.Button("&Apply")
    Check "unchanged", apply.Enabled, False
    If version.Text = "Windows 8" Then Check "another version", version.SelectItemByName("Windows 7"), True
    Check "the version", version.SelectItemByName("Windows 8"), True
    Check "the first that begins so", version.Text, "Windows 8.1"
    Check "changed", apply.Enabled, True

    Check "by name", tabs.SelectItemByName("Graph"), True
    Check "the tab", tabs.SelectedItem, 2
    Check "the old page", sheet.ComboBox(kVersion, kAnyDescendant, 0) Is Nothing, True

    Set resolution = sheet.TrackBar(0, kAnyDescendant)
    before = sheet.ChildWindow("", "Edit", 0, kAnyDescendant + &H30000, 0).Text
    resolution.Pos = resolution.Max + 5
    Check "the position", resolution.Pos, resolution.Max
    If sheet.ChildWindow("", "Edit", 0, kAnyDescendant + &H30000).Text = before Then Fail "the page did not follow the track bar"

    Set box = sheet.CheckBox("capture", 0, kAnyDescendant)
    before = box.Checked
    box.Checked = Not before
    Check "the check box", box.Checked, Not before
    sheet.Close
End Sub

Sub Check(what, actual, expected)
    If actual = expected Then Exit Sub
    Fail what & ": """ & actual & """ instead of """ & expected & """"
End Sub

Sub Fail(reason)
    WScript.Echo "FAILED: " & reason
    WScript.Quit 1
End Sub
