' The tool bars of Wine's WordPad, whose buttons have no texts.
Option Explicit

Const kAnyDescendant = &H40
Const kStandardBar = 2002, kFormatBar = 2003
Const kFind = 1014, kCopy = 1310
Const kAlignLeft = 1100, kAlignCenter = 1101, kBold = 1400, kItalic = 1401
Const kFail = &H80004005

Dim wordpad, failures
failures = 0

' Without this, Wine's cscript ends in silence on the first error.
On Error Resume Next
Main
If Err.Number <> 0 Then Fail "error " & Hex(Err.Number) & ": " & Err.Description
If failures = 0 Then WScript.Echo "Done"

Sub Main()
    Dim ghosthand
    Set ghosthand = CreateObject("Ghosthand.Ghosthand")
    ghosthand.AllowMouseBlocks = False
    Set wordpad = ghosthand.MainWindow("wordpad", "", "", 0, 60)
    Check "the main window", wordpad Is Nothing, False
    CheckButtons wordpad.Toolbar("", kFormatBar, kAnyDescendant)
    Buttons wordpad.Toolbar("", kStandardBar, kAnyDescendant)
End Sub

Sub CheckButtons(bar)
    Dim bold
    Set bold = bar.GetItemByID("", kBold)
    Check "bold at first", bold.Checked, False
    bold.Checked = True
    Check "bold", bold.Checked, True
    Check "italic", bar.GetItemByID("", kItalic).Checked, False
    bold.Checked = True
    Check "bold once more", bold.Checked, True
    bold.Checked = False
    Check "bold no more", bold.Checked, False
    bar.GetItemByID("", kAlignCenter).Click
    Check "centred", bar.GetItemByID("", kAlignCenter).Checked, True
    Check "to the left", bar.GetItemByID("", kAlignLeft).Checked, False
End Sub

Sub Buttons(bar)
    Dim copy, dialog
    Check "an unknown button", bar.GetItemByID("", 999, 0, 0) Is Nothing, True
    Check "a caption", bar.GetItemByID("Find", 0, 0, 0) Is Nothing, True
    Set copy = bar.GetItemByID("", kCopy)
    Check "copy", copy.Enabled, False
    copy.EnabledTimeout = 0
    Check "clicking copy", ResultOfClick(copy), kFail
    wordpad.ChildWindow("", "RichEdit", 0, kAnyDescendant).Text = "Text to be found."
    bar.GetItemByID("", kFind).Click
    Set dialog = wordpad.ActiveDialog()
    Check "the dialog", dialog Is Nothing, False
    dialog.Close
End Sub

Function ResultOfClick(item)
    On Error Resume Next
    item.Click
    ResultOfClick = Err.Number
    Err.Clear
End Function

Sub Check(what, actual, wanted)
    If actual <> wanted Then Fail what & " is """ & actual & """ instead of """ & wanted & """"
End Sub

Sub Fail(reason)
    failures = failures + 1
    WScript.Echo "FAILED: " & reason
End Sub
