' Drives Wine's Notepad as a tester would: start one Notepad, then run "cscript notepad.vbs". On Windows, whose
' Notepad has other commands and controls, run sample_host.vbs or cad_story.vbs.
Option Explicit

' Commands of Wine's Notepad.
Const kNew = 256
Const kOpen = 257
Const kSaveAs = 259
Const kFont = 320
' Where the text is saved; kept from one run to the next, so that saving asks whether to replace it.
Const kFile = "C:\ghosthand_demo.txt"

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
    text = Space(24) & "Typed by a script through Ghosthand." ' beside the menu that is opened at the end
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

    SaveAs notepad
    notepad.Command kNew
    WScript.Echo "New text:       """ & edit.Text & """"
    Open notepad
    WScript.Echo "Read back:      """ & edit.Text & """"
    If edit.Text <> text Then Fail "the saved text was not read back"

    notepad.MenuChars "f"
    WScript.Echo "Menu opened:    File"
End Sub

Sub SaveAs(notepad)
    Dim dialog, question
    notepad.Command kSaveAs
    Set dialog = notepad.OpenSaveDialog()
    If dialog Is Nothing Then Fail "the dialog Save As did not open"
    dialog.File kFile
    Set question = notepad.ActiveDialog(0)
    If Not question Is Nothing Then question.Button("", 6).Click ' Yes, replace it
    WScript.Echo "Saved as:       " & kFile & ", title """ & notepad.Text & """"
End Sub

Sub Open(notepad)
    Dim dialog
    notepad.Command kOpen
    Set dialog = notepad.OpenSaveDialog()
    If dialog Is Nothing Then Fail "the dialog Open did not open"
    dialog.File kFile
End Sub

Sub Fail(reason)
    WScript.Echo "FAILED: " & reason
    WScript.Quit 1
End Sub
