' What test scripts ask for first, for VBScript. Copy it beside your scripts and change it; use_helpers.vbs shows how a
' script takes it in. Times are in seconds. A window is any object that a member of Ghosthand handed out.

' Whether the window still exists, shown or not: the client area of a living one is at least one pixel.
Function IsAlive(window)
    IsAlive = window.Width > 0
End Function

' Waits until the window is closed or hidden. False if it is still there.
Function WaitUntilGone(window, seconds)
    Dim elapsed
    elapsed = 0
    Do While window.Visible And elapsed < seconds
        WaitASecond window
        elapsed = elapsed + 1
    Loop
    WaitASecond window ' a dialog that is closed is hidden first, and then its owner takes input again
    WaitUntilGone = Not window.Visible
End Function

' Waits for a second, or until the window no longer exists: a search ends early then.
Sub WaitASecond(window)
    window.ChildWindow "(no such window)", "(no such window)", 0, 0, 1
End Sub

' Runs a menu command by its id and returns the dialog that it opens, Nothing if there is none. Command returns
' when the program is idle again, also while the dialog is open: it never blocks.
Function OpenDialog(window, command)
    window.Command command
    Set OpenDialog = window.ActiveDialog()
End Function

' Types a text into the window, a character at a time, and waits until it has arrived.
Sub TypeText(window, text)
    Dim i
    window.SetFocus
    For i = 1 To Len(text)
        window.PostMessageFocus &H102, Asc(Mid(text, i, 1)) ' WM_CHAR
    Next
    window.PostMessage 0 ' waits, which PostMessageFocus does not
End Sub

' Presses a key combination as WScript.Shell writes it: PressKeys window, "^a". Real key strokes, which reach what is
' in front. Not under Wine, whose script host lacks SendKeys.
Sub PressKeys(window, keys)
    window.SetFocus
    CreateObject("WScript.Shell").SendKeys keys
    WaitASecond window ' until the system has passed them on
    window.PostMessage 0
End Sub

' The window's whole text; Text ends after 259 bytes. Not under Wine, whose accessible objects have no value.
Function LongText(window)
    LongText = window.AccessibleObject.accValue(0)
End Function
