' Drives the sample host: start one sample_host.exe, then run "cscript sample_host.vbs".
Option Explicit

' Commands and control ids of the sample host (samples/host/host_ids.h).
Const kFileNew = 101
Const kPageSettings = 601
Const kEdit = 1001

' Without this, Wine's cscript ends in silence on the first error.
On Error Resume Next
Main
If Err.Number <> 0 Then Fail Err.Description & " (error " & Hex(Err.Number) & ")"
WScript.Echo "Done"

Sub Main()
    Dim ghosthand, host, document, edit, dialog, text

    Set ghosthand = CreateObject("Ghosthand.Ghosthand")
    Set host = ghosthand.MainWindow("sample_host", "", "", 0, 60) ' a busy machine may need a while to start it
    If host Is Nothing Then Fail "the sample host's main window was not found"
    WScript.Echo "Main window:    """ & host.Text & """"
    WScript.Echo "Position:       " & host.Left & ", " & host.Top
    WScript.Echo "Client size:    " & host.Width & " x " & host.Height
    host.FitSize 900, 600
    WScript.Echo "After FitSize:  " & host.Width & " x " & host.Height
    If host.Width <> 900 Or host.Height <> 600 Then Fail "FitSize did not give 900 x 600"

    host.Command kFileNew
    Set document = host.ActiveDocument()
    If document Is Nothing Then Fail "no document opened"
    WScript.Echo "New document:   """ & document.Text & """"
    Set edit = document.Edit(kEdit)
    If edit Is Nothing Then Fail "the document's edit control was not found"
    text = "Typed into a document by a script."
    edit.Text = text
    WScript.Echo "Its text:       """ & edit.Text & """"
    If edit.Text <> text Then Fail "the edit control did not take the text"

    host.Command kPageSettings
    Set dialog = host.ActiveDialog()
    If dialog Is Nothing Then Fail "the dialog Settings did not open"
    WScript.Echo "Dialog opened:  """ & dialog.Text & """"
    Set edit = dialog.Edit(kEdit)
    If edit Is Nothing Then Fail "the dialog's edit control was not found"
    edit.Text = "New setting"
    WScript.Echo "Its field:      """ & edit.Text & """"
    If edit.Text <> "New setting" Then Fail "the dialog's edit control did not take the text"
    dialog.Close
    If Not host.ActiveDialog(0) Is Nothing Then Fail "the dialog is still open"
    WScript.Echo "Dialog closed"
End Sub

Sub Fail(reason)
    WScript.Echo "FAILED: " & reason
    WScript.Quit 1
End Sub
