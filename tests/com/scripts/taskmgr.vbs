' Tabs of a program that is not a property sheet.
Option Explicit

Const kAnyDescendant = &H40

' Without this, Wine's cscript ends in silence on the first error.
On Error Resume Next
Main
If Err.Number <> 0 Then Fail "error " & Hex(Err.Number) & ": " & Err.Description
WScript.Echo "Done"

Sub Main()
    Dim manager, tabs
    Set manager = CreateObject("Ghosthand.Ghosthand").MainWindow("taskmgr", "", "", 0, 60)
    Set tabs = manager.TabCtrl()
    If tabs.ItemsCount <> 3 Then Fail "there are " & tabs.ItemsCount & " tabs"
    If Not tabs.SelectItemByName("Proc") Then Fail "there is no tab of the processes"
    If tabs.SelectedItem <> 1 Then Fail "tab " & tabs.SelectedItem & " is selected"
    If manager.ListView(0, kAnyDescendant).ItemsCount < 2 Then Fail "there are no processes"
End Sub

Sub Fail(reason)
    WScript.Echo "FAILED: " & reason
    WScript.Quit 1
End Sub
