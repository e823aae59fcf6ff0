' The trees and the list views of the sample host's pages, as a script sees and changes them.
Option Explicit

Const kPageTrees = 630, kPageListViews = 631
Const kPartsTree = 1140, kFixedTree = 1141, kLazyTree = 1142
Const kPartsList = 1150, kLayersList = 1151, kSingleList = 1152

Dim host, failures
failures = 0

' Without this, Wine's cscript ends in silence on the first error.
On Error Resume Next
Main
If Err.Number <> 0 Then Fail "error " & Hex(Err.Number) & ": " & Err.Description
If failures = 0 Then WScript.Echo "Done"

Sub Main()
    Set host = CreateObject("Ghosthand.Ghosthand").MainWindow("sample_host", "", "", 0, 60)
    If host Is Nothing Then Fail "the sample host was not found"
    Tree Page(kPageTrees)
    ListViews Page(kPageListViews)
End Sub

Function Page(command)
    host.Command command
    Set Page = host.ActiveDocument()
End Function

Sub Tree(page)
    Dim tree, item
    Set tree = page.TreeCtrl(kPartsTree)
    Check "nothing selected", tree.SelectedItem Is Nothing, True
    Check "by names", tree.SelectItemByPath("Box|Hole 2|Thread"), True
    Check "selected", tree.SelectedItem.Text, "Thread"
    Check "by numbers", tree.SelectItem("2/1"), True
    Check "umlaut", tree.SelectedItem.Text, Chr(196) & "nderung"
    Check "outside the code page", tree.ItemByNumPath("2/2").Text, "Caf" & Chr(233) & " ?"
    Check "by number", tree.SelectItemByNum(2), True
    Check "found nowhere", tree.SelectItem("9") Or tree.SelectItemByNum(99) Or tree.SelectItemByPath(""), False
    Set item = tree.SelectedItem
    Check "second item", item.Text, "Hole 1"
    Check "menu of the item", HasEntry(item.ContextMenu(), "Rename Hole 1"), True
    Check "menu of the selected item", HasEntry(tree.ContextMenu(), "Rename Hole 1"), True
    Check "overlay image", tree.ItemByPath("Overlay 2").StateImage, 2
    item.Text = "Bohrung"
    Check "renamed", tree.ItemByPath("Box|Bohrung").Text, "Bohrung"
    Set item = page.TreeCtrl(kFixedTree).ItemByNum(1)
    item.Text = "Sphere"
    Check "not renamed", item.Text, "Box"
    item.Expanded = True
    Check "expanded", item.Expanded, True
    item.Expanded = False
    Check "collapsed", item.Expanded, False
    Check "filled on the way", page.TreeCtrl(kLazyTree).ItemByNum(7).Text, "Feature 1"
End Sub

Sub ListViews(page)
    Dim list
    Set list = page.ListView(kPartsList)
    Check "items", list.ItemsCount, 40
    Check "nothing selected", list.SelectedItem, -1
    Check "text", list.GetItem(3), "Tr" & Chr(228) & "ger"
    Check "column", list.GetSubItem(3, 1), "Aluminium"
    Check "out of range", list.GetItem(-1) & list.GetItem(40) & list.GetSubItem(2147483647, 0), ""
    Check "select", list.SelectItemByName("Bear"), True
    Check "selected", list.SelectedItem, 1
    Check "add", list.AddToSelectionByName("Tr"), True
    Check "both", list.IsSelected(1) And list.IsSelected(3), True
    Check "menu of an item", HasEntry(list.ContextMenu(), "Open 1"), True
    list.Select
    Check "nothing to take out", list.UnselectItem(0), True
    Check "no such item", list.UnselectItemByName("None") Or list.SelectItem(40) Or list.AddToSelection(-1), False
    Check "no check boxes", list.IsChecked(0), True
    Check "cannot be checked", list.CheckItem(0), False
    Set list = page.ListView(kLayersList)
    Check "check", list.CheckItemByName("Lay"), True
    Check "checked", list.IsChecked(1) And Not list.IsChecked(3), True
    Check "uncheck", list.UncheckItem(1), True
    Check "unchecked", list.IsChecked(1), False
    Check "menu below the items", HasEntry(list.ContextMenu(False), "Add item"), True
    Set list = page.ListView(kSingleList)
    Check "single selection", list.SelectItem(3) And list.SelectItem(0), True
    Check "the last one", list.IsSelected(0) And Not list.IsSelected(3), True
End Sub

' Whether the menu has an entry that begins with the text. The menu is closed.
Function HasEntry(menu, text)
    HasEntry = False
    If menu Is Nothing Then Exit Function
    HasEntry = Not menu.GetItemByID(text, 0, 0, 5) Is Nothing
    menu.CloseMenu
End Function

Sub Check(what, found, wanted)
    If found = wanted Then Exit Sub
    failures = failures + 1
    WScript.Echo "FAILED: " & what & ": """ & found & """ instead of """ & wanted & """"
End Sub

Sub Fail(reason)
    WScript.Echo "FAILED: " & reason
    WScript.Quit 1
End Sub
