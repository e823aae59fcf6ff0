' Menus of Wine's Notepad. Runs inside Notepad: under Wine a menu handle is good in its own process only.
Option Explicit

Dim notepad, failures
failures = 0

On Error Resume Next
Main
If Err.Number <> 0 Then Fail "error " & Hex(Err.Number) & ": " & Err.Description
If failures = 0 Then WScript.Echo "Done"

Sub Main()
    Set notepad = CreateObject("Ghosthand.Ghosthand").MainWindow("notepad", "", "", 0, 60)
    Check "the main window", notepad Is Nothing, False
    Check "menus", notepad.MainMenu().ItemsCount, 5
    WordWrap
    ContextMenu
End Sub

Sub WordWrap()
    Dim before
    before = Wrap().Checked
    notepad.MainMenu().CloseMenu
    ChangeWrap Not before
    ChangeWrap Not before
    ChangeWrap before
End Sub

Sub ChangeWrap(wanted)
    Wrap().Checked = wanted
    Check "word wrap", Wrap().Checked, wanted
    notepad.MainMenu().CloseMenu
    Check "an open menu", notepad.CurrentContextMenu(0) Is Nothing, True
End Sub

' In the open menu "Edit".
Function Wrap()
    Set Wrap = notepad.MainMenu().GetItemByID("&Edit").Expand().GetItemByID("&Wrap")
End Function

Sub ContextMenu()
    Dim edit, menu
    Set edit = notepad.Edit()
    edit.Text = "Text to be deleted."
    Set menu = edit.ContextMenu(30, 10)
    Check "the context menu", menu Is Nothing, False
    Check "Delete without a selection", menu.GetItemByID("&Delete").Enabled, False
    Check "the same menu", notepad.CurrentContextMenu().ItemsCount, menu.ItemsCount
    menu.GetItemByID("Select &All").Click
    edit.ContextMenu(30, 10).GetItemByID("&Delete").Click
    Check "the text", edit.Text, ""
End Sub

Sub Check(what, actual, wanted)
    If actual <> wanted Then Fail what & " is """ & actual & """ instead of """ & wanted & """"
End Sub

Sub Fail(reason)
    failures = failures + 1
    WScript.Echo "FAILED: " & reason
End Sub
