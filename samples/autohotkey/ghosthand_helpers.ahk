; What test scripts ask for first, for AutoHotkey 2 (64-bit). Copy it beside your scripts and change it.
; Times are in seconds. A window is any object that a member of Ghosthand handed out; a search that finds
; nothing answers an empty reference, which IsNothing tells.

; An error ends the script with its text on the standard output.
OnError(ReportError)
ReportError(exception, mode) {
    Print("FAILED: " exception.Message " (line " exception.Line " of " exception.File ")")
    ExitApp 1
}

Print(text) {
    FileAppend text "`n", "*", "CP0"
}

; A script that is not started by a console has none: Print then goes nowhere.
Expect(what, got, wanted) {
    Print(Format("{:-15}", what ":") " " got)
    if (got != wanted)
        throw Error(what " is '" got "', not '" wanted "'")
}

IsNothing(object) {
    return ComObjType(object) = 9 && ComObjValue(object) = 0 || object = ""
}

; The main window of a running program; ends the script if there is none.
MainWindow(program, seconds := 60) {
    window := ComObject("Ghosthand.Ghosthand").MainWindow(program, "", "", 0, seconds)
    if IsNothing(window)
        throw Error("the main window of " program " was not found: start it first")
    return window
}

; Whether the window still exists, shown or not: the client area of a living one is at least one pixel.
IsAlive(window) {
    return window.Width > 0
}

; Waits until the window is closed or hidden. False if it is still there.
WaitUntilGone(window, seconds := 10) {
    end := A_TickCount + seconds * 1000
    while (window.Visible && A_TickCount < end)
        WaitASecond(window)
    WaitASecond(window) ; a dialog that is closed is hidden first, and then its owner takes input again
    return !window.Visible
}

; Waits for a second, or until the window no longer exists: a search ends early then.
WaitASecond(window) {
    window.ChildWindow("(no such window)", "(no such window)", 0, 0, 1)
}

; Runs a menu command by its id and returns the dialog that it opens. Command returns when the program is idle
; again, also while the dialog is open: it never blocks.
OpenDialog(window, command, seconds := 10) {
    window.Command(command)
    dialog := window.ActiveDialog(seconds)
    if IsNothing(dialog)
        throw Error("command " command " opened no dialog")
    return dialog
}

; Types a text into the window, a character at a time, and waits until it has arrived.
TypeText(window, text) {
    window.SetFocus()
    bytes := Buffer(StrPut(text, "CP0")) ; the program's characters are those of the system's code page
    StrPut(text, bytes, "CP0")
    Loop bytes.Size - 1
        window.PostMessageFocus(0x102, NumGet(bytes, A_Index - 1, "UChar")) ; WM_CHAR
    window.PostMessage(0) ; waits, which PostMessageFocus does not
}

; Presses a key combination as AutoHotkey writes it: PressKeys(window, "^a"). Real key strokes, which reach what
; is in front.
PressKeys(window, keys) {
    window.SetFocus()
    Send keys
    Sleep 50 ; until the system has passed them on
    window.PostMessage(0)
}

; The window's handle, for AutoHotkey's own functions: WinGetText("ahk_id " HandleOf(window)).
HandleOf(window) {
    accessible := ComObjQuery(window.AccessibleObject, "{00000114-0000-0000-C000-000000000046}") ; IOleWindow
    ComCall(3, accessible, "Ptr*", &handle := 0)
    return handle
}

; The window's whole text; Text ends after 259 bytes.
LongText(window) {
    return ControlGetText(HandleOf(window))
}
