# What test scripts ask for first, for PowerShell (64-bit, 5.1 or 7). Copy it beside your scripts and take it in with
#     . "$PSScriptRoot\GhosthandHelpers.ps1"
# Times are in seconds. A window is any object that a member of Ghosthand handed out; nothing found is $null.
Set-StrictMode -Version 2
$ErrorActionPreference = 'Stop'
Add-Type -AssemblyName System.Windows.Forms # for SendKeys

# The main window of a running program; stops the script if there is none.
function Get-MainWindow([string]$Program, [int]$Seconds = 60) {
    $window = (New-Object -ComObject Ghosthand.Ghosthand).MainWindow($Program, '', '', 0, $Seconds)
    if ($null -eq $window) { throw "the main window of $Program was not found: start it first" }
    $window
}

# Whether the window still exists, shown or not: the client area of a living one is at least one pixel.
function Test-Alive($Window) {
    $Window.Width -gt 0
}

# Waits until the window is closed or hidden. False if it is still there.
function Wait-Gone($Window, [int]$Seconds = 10) {
    $end = (Get-Date).AddSeconds($Seconds)
    while ($Window.Visible -and (Get-Date) -lt $end) { Wait-Second $Window }
    Wait-Second $Window # a dialog that is closed is hidden first, and then its owner takes input again
    -not $Window.Visible
}

# Waits for a second, or until the window no longer exists: a search ends early then.
function Wait-Second($Window) {
    [void]$Window.ChildWindow('(no such window)', '(no such window)', 0, 0, 1)
}

# Runs a menu command by its id and returns the dialog that it opens. Command returns when the program is idle again,
# also while the dialog is open: it never blocks.
function Open-Dialog($Window, [int]$Command, [int]$Seconds = 10) {
    [void]$Window.Command($Command)
    $dialog = $Window.ActiveDialog($Seconds)
    if ($null -eq $dialog) { throw "command $Command opened no dialog" }
    $dialog
}

# Types a text into the window, a character at a time, and waits until it has arrived. Characters are those of ASCII;
# others have the codes of the system's code page.
function Send-Text($Window, [string]$Text) {
    [void]$Window.SetFocus()
    foreach ($character in $Text.ToCharArray()) { [void]$Window.PostMessageFocus(0x102, [int]$character) } # WM_CHAR
    [void]$Window.PostMessage(0) # waits, which PostMessageFocus does not
}

# Presses a key combination as SendKeys writes it: Send-Keys $window '^a'. Real key strokes, which reach what is in
# front.
function Send-Keys($Window, [string]$Keys) {
    [void]$Window.SetFocus()
    [System.Windows.Forms.SendKeys]::SendWait($Keys)
    [void]$Window.PostMessage(0)
}

# The window's whole text; Text ends after 259 bytes.
function Get-LongText($Window) {
    $accessible = $Window.AccessibleObject
    [System.__ComObject].InvokeMember('accValue', 'GetProperty', $null, $accessible, @(0))
}

# Prints a value and stops the script if it is not the wanted one.
function Assert-Equal([string]$What, $Got, $Wanted) {
    '{0,-15} {1}' -f "${What}:", $Got
    if ($Got -cne $Wanted) { throw "$What is '$Got', not '$Wanted'" }
}
