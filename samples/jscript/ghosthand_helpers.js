// What test scripts ask for first, for JScript. Copy it beside your scripts and change it.
// Times are in seconds. A window is any object that a member of Ghosthand handed out.

// Runs main and says what went wrong; Wine's cscript would end in silence.
function run(main) {
    try {
        main();
        WScript.Echo("Done");
    } catch (error) {
        WScript.Echo("FAILED: " + (error.message || "error " + (error.number >>> 0).toString(16)));
        WScript.Quit(1);
    }
}

// The main window of a running program; stops the script if there is none.
function mainWindow(program, seconds) {
    var ghosthand = new ActiveXObject("Ghosthand.Ghosthand");
    var window = ghosthand.MainWindow(program, "", "", 0, seconds || 60);
    if (window === null) throw new Error("the main window of " + program + " was not found: start it first");
    return window;
}

// Whether the window still exists, shown or not: the client area of a living one is at least one pixel.
function isAlive(window) {
    return window.Width > 0;
}

// Waits until the window is closed or hidden. False if it is still there.
function waitUntilGone(window, seconds) {
    var end = new Date().getTime() + (seconds || 10) * 1000;
    while (window.Visible && new Date().getTime() < end) waitASecond(window);
    waitASecond(window); // a dialog that is closed is hidden first, and then its owner takes input again
    return !window.Visible;
}

// Waits for a second, or until the window no longer exists: a search ends early then.
function waitASecond(window) {
    window.ChildWindow("(no such window)", "(no such window)", 0, 0, 1);
}

// Runs a menu command by its id and returns the dialog that it opens. Command returns when the program is idle
// again, also while the dialog is open: it never blocks.
function openDialog(window, command, seconds) {
    window.Command(command);
    var dialog = window.ActiveDialog(seconds || 10);
    if (dialog === null) throw new Error("command " + command + " opened no dialog");
    return dialog;
}

// Types a text into the window, a character at a time, and waits until it has arrived. Characters are those of
// ASCII; others have the codes of the system's code page.
function typeText(window, text) {
    window.SetFocus();
    for (var i = 0; i < text.length; ++i) window.PostMessageFocus(0x102, text.charCodeAt(i)); // WM_CHAR
    window.PostMessage(0); // waits, which PostMessageFocus does not
}

// Presses a key combination as WScript.Shell writes it: pressKeys(window, "^a"). Real key strokes, which reach what
// is in front. Not under Wine, whose script host lacks SendKeys.
function pressKeys(window, keys) {
    window.SetFocus();
    new ActiveXObject("WScript.Shell").SendKeys(keys);
    waitASecond(window); // until the system has passed them on
    window.PostMessage(0);
}

// The window's whole text; Text ends after 259 bytes. Not under Wine, whose accessible objects have no value.
function longText(window) {
    return window.AccessibleObject.accValue(0);
}

// Prints a value and stops the script if it is not the wanted one.
function expect(what, got, wanted) {
    WScript.Echo((what + ":               ").substr(0, 16) + got);
    if (got !== wanted) throw new Error(what + " is '" + got + "', not '" + wanted + "'");
}
