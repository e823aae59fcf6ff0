' Works Notepad by mouse and menu keys, as a user without other means would.
Option Explicit

Const kLeft = 1, kShift = &H4, kReal = &H80
Const kGetSelection = &HB0, kSetSelection = &HB1 ' EM_GETSEL, EM_SETSEL

Dim ghosthand, edit

' Without this, Wine's cscript ends in silence on the first error.
On Error Resume Next
Main
If Err.Number <> 0 Then Fail "error " & Hex(Err.Number) & ": " & Err.Description
WScript.Echo "Done"

Sub Main()
    Dim notepad, dialog
    Set ghosthand = CreateObject("Ghosthand.Ghosthand")
    ghosthand.AllowMouseBlocks = False
    Set notepad = ghosthand.MainWindow("notepad", "", "", 0, 60)
    Set edit = notepad.Edit()
    edit.Text = "first second"
    edit.SendMessage kSetSelection, 3, 3

    ' Edit, Select All.
    notepad.MenuChars "ea", 50
    ExpectSelection 0, 12, "MenuChars"

    edit.Click ' at (1, 1), before the first character
    ExpectSelection 0, 0, "a posted click"
    edit.Click kLeft, 300, 5, kShift
    ExpectSelection 0, 12, "a posted click with Shift"
    edit.Click kLeft, 1, 1, kReal
    ExpectSelection 0, 0, "a real click"
    edit.MouseDown kLeft, 1, 5
    edit.MouseMove 300, 5
    edit.MouseUp kLeft, 300, 5
    ExpectSelection 0, 12, "a drag"

    ' Help, About: an item behind a separator, which the keys skip.
    notepad.MenuIndex "5.2", 50
    Set dialog = notepad.ActiveDialog()
    If dialog Is Nothing Then Fail "MenuIndex has opened no dialog"
    WScript.Echo "MenuIndex: " & dialog.Text
    dialog.Close
    notepad.MenuIndex String(300, "1"), 50
    If Not notepad.ActiveDialog(0) Is Nothing Then Fail "a path that is too long opens something"
    If edit.Text <> "first second" Then Fail "the keys have changed the text"
End Sub

Sub ExpectSelection(first, last, cause)
    Dim selection
    selection = edit.SendMessage(kGetSelection)
    WScript.Echo cause & ": " & (selection And &HFFFF&) & " to " & selection \ &H10000
    If selection <> first + last * &H10000 Then Fail cause & " did not select that"
End Sub

Sub Fail(reason)
    WScript.Echo "FAILED: " & reason
    WScript.Quit 1
End Sub
