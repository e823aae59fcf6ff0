' Drives Notepad as a tester would: start one Notepad, then run "cscript notepad.vbs".
Option Explicit

Const kFont = 320 ' Edit > Font... of Wine's Notepad

' Without this, Wine's cscript ends in silence on the first error.
On Error Resume Next
Main
If Err.Number <> 0 Then Fail Err.Description & " (error " & Hex(Err.Number) & ")"
WScript.Echo "Done"

Sub Main()
    Dim ghosthand, notepad, edit, dialog, text

    Set ghosthand = CreateObject("Ghosthand.Ghosthand")
    Set notepad = ghosthand.MainWindow("notepad", "", "", 0, 60) ' a busy machine may need a while to start it
    If notepad Is Nothing Then Fail "Notepad's main window was not found"
    WScript.Echo "Main window:    """ & notepad.Text & """"

    Set edit = notepad.Edit()
    If edit Is Nothing Then Fail "the edit control was not found"
    WScript.Echo "Text before:    """ & edit.Text & """"
    text = "Typed by a script through Ghosthand."
    edit.Text = text
    WScript.Echo "Text now:       """ & edit.Text & """"
    If edit.Text <> text Then Fail "the edit control did not take the text"

    WScript.Echo "Position:       " & notepad.Left & ", " & notepad.Top
    WScript.Echo "Client size:    " & notepad.Width & " x " & notepad.Height
    notepad.FitSize 640, 400
    WScript.Echo "After FitSize:  " & notepad.Width & " x " & notepad.Height
    If notepad.Width <> 640 Or notepad.Height <> 400 Then Fail "FitSize did not give 640 x 400"

    notepad.Command kFont
    Set dialog = notepad.ActiveDialog()
    If dialog Is Nothing Then Fail "the dialog Font did not open"
    WScript.Echo "Dialog opened:  """ & dialog.Text & """"
    dialog.Close
    If Not notepad.ActiveDialog(0) Is Nothing Then Fail "the dialog is still open"
    WScript.Echo "Dialog closed"
End Sub

Sub Fail(reason)
    WScript.Echo "FAILED: " & reason
    WScript.Quit 1
End Sub
