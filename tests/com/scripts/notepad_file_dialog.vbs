' Saves a text by Notepad's own dialog and opens it again. Argument: the file, which does not exist yet.
Option Explicit

Const kNew = &H100, kOpen = &H101, kSaveAs = &H103 ' commands of Wine's Notepad

' Without this, Wine's cscript ends in silence on the first error.
On Error Resume Next
Main WScript.Arguments(0)
If Err.Number <> 0 Then Fail "error " & Hex(Err.Number) & ": " & Err.Description
WScript.Echo "Done"

Sub Main(file)
    Dim notepad, dialog, text
    text = "Saved by a script & read back."
    Set notepad = CreateObject("Ghosthand.Ghosthand").MainWindow("notepad", "", "", 0, 60)
    If Not notepad.OpenSaveDialog(0) Is Nothing Then Fail "there is a file dialog at once"
    notepad.Edit().Text = text

    notepad.Command kSaveAs
    Set dialog = notepad.OpenSaveDialog()
    WScript.Echo dialog.Text & ", folder: " & dialog.Path
    dialog.File file
    If Not notepad.OpenSaveDialog(0) Is Nothing Then Fail "the dialog is still open"

    notepad.Command kNew
    If notepad.Edit().Text <> "" Then Fail "a new text is not empty"

    notepad.Command kOpen
    Set dialog = notepad.OpenSaveDialog()
    WScript.Echo dialog.Text
    dialog.File file
    WScript.Echo "Read back: " & notepad.Edit().Text
    If notepad.Edit().Text <> text Then Fail "another text was read back"
End Sub

Sub Fail(reason)
    WScript.Echo "FAILED: " & reason
    WScript.Quit 1
End Sub
