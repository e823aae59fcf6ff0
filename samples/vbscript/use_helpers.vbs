' Shows the helpers at the sample host: start one sample_host.exe, then run "cscript use_helpers.vbs".
Option Explicit

' Commands and control ids of the sample host (samples/host/host_ids.h).
Const kFileNew = 101
Const kPageAbout = 606
Const kEdit = 1001

' Without this, Wine's cscript ends in silence on the first error.
On Error Resume Next
' Takes the helpers in. Wine's VBScript has no ExecuteGlobal: there, paste them at the end of the script.
Dim files
Set files = CreateObject("Scripting.FileSystemObject")
ExecuteGlobal files.OpenTextFile(files.BuildPath(files.GetParentFolderName(WScript.ScriptFullName), _
                                                 "ghosthand_helpers.vbs")).ReadAll
Err.Clear
Main
If Err.Number <> 0 Then Fail Err.Description & " (error " & Hex(Err.Number) & ")"
WScript.Echo "Done"

Sub Main()
    Dim host, edit, dialog
    Set host = CreateObject("Ghosthand.Ghosthand").MainWindow("sample_host", "", "", 0, 60)
    If host Is Nothing Then Fail "the sample host's main window was not found"

    host.Command kFileNew
    Set edit = host.ActiveDocument().Edit(kEdit)
    edit.Text = ""
    TypeText edit, "Typed by VBScript."
    WScript.Echo "Typed:          " & edit.Text
    If edit.Text <> "Typed by VBScript." Then Fail "the text did not arrive"

    Set dialog = OpenDialog(host, kPageAbout)
    If dialog Is Nothing Then Fail "the dialog About did not open"
    WScript.Echo "Dialog opened:  " & dialog.Text
    If WaitUntilGone(dialog, 1) Then Fail "the dialog is said to have gone while it is open"
    dialog.Close
    If Not WaitUntilGone(dialog, 10) Then Fail "the dialog is still open"
    WScript.Echo "Dialog gone"
    If IsAlive(dialog) Then Fail "the dialog is still alive"
    If Not IsAlive(host) Then Fail "the main window is no longer alive"
End Sub

Sub Fail(reason)
    WScript.Echo "FAILED: " & reason
    WScript.Quit 1
End Sub
