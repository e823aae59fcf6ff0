' Menus of the sample host. Runs inside it: under Wine a menu handle is good in its own process only.
Option Explicit

Const kFail = &H80004005
Const kStandardBar = 1080, kSystemMenuArea = 1087
Const kFileOpen = 102, kFilePrint = 106, kViewGrid = 303, kViewSnap = 304, kPageContextMenus = 608

Dim host, failures
failures = 0

On Error Resume Next
Main
If Err.Number <> 0 Then Fail "error " & Hex(Err.Number) & ": " & Err.Description
If failures = 0 Then WScript.Echo "Done"

Sub Main()
    Set host = CreateObject("Ghosthand.Ghosthand").MainWindow("sample_host", "", "", 0, 60)
    Check "the main window", host Is Nothing, False
    MainMenu
    Submenus
    DisabledItems
    NothingFound
    ContextMenu
    DropDown
End Sub

Sub MainMenu()
    Dim grid
    Check "menus", host.MainMenu().ItemsCount, 6
    Set grid = host.MainMenu().GetItemByID("&View").Expand().GetItemByID("&Grid")
    Check "Grid at first", grid.Checked, False
    grid.Checked = True
    Check "Grid", grid.Checked, True
    Check "the button of Grid", host.Toolbar("", kStandardBar).GetItemByID("", kViewGrid).Checked, True
    host.MainMenu().GetItemByID("&View").Expand().GetItemByID("", kViewGrid).Checked = True
    Check "Grid once more", grid.Checked, True
    Check "an open menu", host.CurrentContextMenu(0) Is Nothing, True
End Sub

Sub Submenus()
    Dim zoom, fit
    Set zoom = host.MainMenu().GetItemByID("&View").Expand().GetItemByID("&Zoom").Expand()
    Check "100 % at first", zoom.GetItemByID("&100").Checked, True
    Set fit = zoom.GetItemByID("&Fit").Expand()
    Check "items of Fit", fit.ItemsCount, 2
    Check "the open menu", host.CurrentContextMenu().ItemsCount, 2
    fit.CloseMenu
    Set zoom = host.MainMenu().GetItemByID("&View").Expand().GetItemByID("&Zoom").Expand()
    zoom.GetItemByID("&200").Click
    Check "200 %", zoom.GetItemByID("&200").Checked, True
End Sub

Sub DisabledItems()
    Dim menu, item
    Set menu = host.MainMenu().GetItemByID("&File").Expand()
    Set item = menu.GetItemByID("", kFilePrint)
    Check "its timeout at first", item.EnabledTimeout, 5
    item.EnabledTimeout = -1
    Check "its timeout", item.EnabledTimeout, 0
    Check "Print", item.Enabled, False
    Check "clicking Print", ResultOfClick(item), kFail
    Check "expanding Print", item.Expand() Is Nothing, True
    Set item = menu.GetItem(2)
    menu.CloseMenu
    Set menu = host.MainMenu().GetItemByID("&View").Expand()
    Set item = menu.GetItemByID("", kViewSnap)
    item.EnabledTimeout = 0
    Check "unchecking Snap", ResultOfUncheck(item), kFail
    Check "Snap", item.Checked, True
    menu.CloseMenu
End Sub

Function ResultOfClick(item)
    On Error Resume Next
    item.Click
    ResultOfClick = Err.Number
    Err.Clear
End Function

Function ResultOfUncheck(item)
    On Error Resume Next
    item.Checked = False
    ResultOfUncheck = Err.Number
    Err.Clear
End Function

Sub NothingFound()
    Dim bar
    Set bar = host.MainMenu()
    Check "item 99", bar.GetItem(99, 0, 0) Is Nothing, True
    Check "item -1", bar.GetItem(-1, 0, 0) Is Nothing, True
    Check "an unknown caption", bar.GetItemByID("File", 0, 0, 0) Is Nothing, True
    Check "no caption and no id", bar.GetItemByID("", 0, 0, 0) Is Nothing, True
    Check "a menu of a control", host.Toolbar("", kStandardBar).MainMenu(0) Is Nothing, True
    Check "an unknown tool bar", host.Toolbar("none", 0, 0, 0) Is Nothing, True
    Check "a context menu of a tool bar", host.Toolbar("", kStandardBar).ContextMenu(5, 5) Is Nothing, True
End Sub

Sub ContextMenu()
    Dim area, menu, order
    host.Command kPageContextMenus
    Set area = host.ActiveDocument().ChildWindow("", "", kSystemMenuArea)
    Set menu = area.ContextMenu(10, 10)
    Check "the context menu", menu.ItemsCount, 5
    menu.GetItemByID("&Snap").Checked = True
    Set menu = area.ContextMenu(10, 10)
    Check "Snap", menu.GetItemByID("&Snap").Checked, True
    Set order = menu.GetItemByID("&Order").Expand()
    Check "items of Order", order.ItemsCount, 2
    order.GetItemByID("To &Back").Click
    Check "an open menu", host.CurrentContextMenu(0) Is Nothing, True
    Check "items of a menu that is gone", menu.GetItem(0, 0, 0) Is Nothing, True
End Sub

Sub DropDown()
    Dim menu
    Set menu = host.Toolbar("Standard").GetItemByID("Open").Expand()
    Check "the menu of Open", menu Is Nothing, False
    Check "its items", menu.ItemsCount, 2
    menu.GetItemByID("&2").Click
    Check "an open menu", host.CurrentContextMenu(0) Is Nothing, True
End Sub

Sub Check(what, actual, wanted)
    If actual <> wanted Then Fail what & " is """ & actual & """ instead of """ & wanted & """"
End Sub

Sub Fail(reason)
    failures = failures + 1
    WScript.Echo "FAILED: " & reason
End Sub
