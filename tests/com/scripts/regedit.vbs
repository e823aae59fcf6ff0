' The tree and the list of the registry editor: branches that it fills when they are expanded, values in
' three columns, a key that is renamed in place. The argument is the path of a key that the caller made, with
' "Before" (value "Colour", text "red"; value "Size", number 42) and "Other" below it.
Option Explicit

Const kAnyDescendant = &H40
Const kRename = 32779 ' Edit > Rename

Dim failures
failures = 0

' Without this, Wine's cscript ends in silence on the first error.
On Error Resume Next
Main WScript.Arguments(0)
If Err.Number <> 0 Then Fail "error " & Hex(Err.Number) & ": " & Err.Description
If failures = 0 Then WScript.Echo "Done"

Sub Main(key)
    Dim editor, tree
    Set editor = CreateObject("Ghosthand.Ghosthand").MainWindow("regedit", "", "", 0, 60)
    If editor Is Nothing Then Fail "the registry editor was not found"
    Set tree = editor.TreeCtrl(0, kAnyDescendant)
    Find tree, key
    Values tree, editor.ListView(0, kAnyDescendant), key
    Rename editor, tree, key
End Sub

Sub Find(tree, key)
    Dim item
    Check "first by number", tree.ItemByNum(1).Text, "My Computer"
    tree.ItemByNum(1).Expanded = True
    Check "expanded", tree.ItemByNum(1).Expanded, True
    Check "second by number", tree.ItemByNum(2).Text, "HKEY_CLASSES_ROOT"
    Check "not expanded by that", tree.ItemByNum(2).Expanded, False
    Check "by numbers", tree.ItemByNumPath("1/3").Text, "HKEY_LOCAL_MACHINE"
    Check "no such number", tree.ItemByNumPath("1/3/999") Is Nothing, True
    ' This number is below HKEY_CLASSES_ROOT, which is filled only now.
    Check "third by number", tree.ItemByNumPath("1/1/1").Text, tree.ItemByNum(3).Text
    Check "expanded on the way", tree.ItemByNumPath("1/1").Expanded, True
    Set item = tree.ItemByPath(key & "|Other")
    If item Is Nothing Then Fail "the key was not found by its path"
    Check "its text", item.Text, "Other"
    Check "not selected", item.Selected, False
    item.Selected = True
    Check "selected", item.Selected, True
    Check "the selected one", tree.SelectedItem.Text, "Other"
    Check "letter case", tree.ItemByPath(key & "|other") Is Nothing, True
    Check "no such key", tree.SelectItemByPath(key & "|None"), False
End Sub

Sub Values(tree, list, key)
    Check "select a key", tree.SelectItemByPath(key & "|Before"), True
    Check "values", list.ItemsCount, 3
    Check "the default value", list.GetItem(0), "(Default)"
    Check "type", list.GetSubItem(1, 1), "REG_SZ"
    Check "text", list.GetSubItem(1, 2), "red"
    Check "number", list.GetSubItem(2, 2), "0x0000002a (42)"
    Check "out of range", list.GetItem(3) & list.GetSubItem(-1, 1), ""
    Check "select a value", list.SelectItemByName("Si"), True
    Check "selected value", list.SelectedItem, 2
    Check "add a value", list.AddToSelection(1), True
    Check "both", list.IsSelected(1) And list.IsSelected(2), True
    Check "one of them", list.SelectItem(1), True
    ' An item that is selected already gets a key and no click, and nobody waits for a key: a search does.
    Dim pause
    Set pause = list.ChildWindow("no such window", "", 0, 0, 1)
    Check "not the other", list.IsSelected(2), False
End Sub

' The registry editor takes an edit only that its own command began.
Sub Rename(editor, tree, key)
    Dim item, label
    Check "select the key", tree.SelectItemByPath(key & "|Before"), True
    Set item = tree.SelectedItem
    item.Text = "Refused"
    Check "refused", item.Text, "Before"
    editor.Command kRename
    Set label = tree.Edit()
    If label Is Nothing Then Fail "the label is not edited"
    Check "label", label.Text, "Before"
    label.Text = "After"
    tree.SetFocus
    Check "renamed", item.Text, "After"
    Check "found by its new name", tree.SelectItemByPath(key & "|After"), True
End Sub

Sub Check(what, found, wanted)
    If found = wanted Then Exit Sub
    failures = failures + 1
    WScript.Echo "FAILED: " & what & ": """ & found & """ instead of """ & wanted & """"
End Sub

Sub Fail(reason)
    WScript.Echo "FAILED: " & reason
    WScript.Quit 1
End Sub
