# Drives Wine's Notepad as a tester would: start one Notepad, then run "powershell -File Notepad.ps1".
# On Windows, whose Notepad has other commands and controls, run SampleHost.ps1 or CadStory.ps1.
. "$PSScriptRoot\GhosthandHelpers.ps1"

# Commands of Wine's Notepad.
$New, $Open, $SaveAs, $Font = 256, 257, 259, 320
$Yes = 6

function Save-As($Notepad, [string]$Path) {
    [void]$Notepad.Command($SaveAs)
    $Notepad.OpenSaveDialog().File($Path)
    $question = $Notepad.ActiveDialog(0)
    if ($null -ne $question) { $question.Button('', $Yes).Click() } # replace it
}

$notepad = Get-MainWindow 'notepad'
"Main window:    $($notepad.Text)"
$edit = $notepad.Edit()

Send-Text $edit 'First words'
Assert-Equal 'Typed' $edit.Text 'First words'
Send-Keys $edit '^a' # select all: what is typed replaces it
Send-Text $edit 'Typed by PowerShell.'
Assert-Equal 'Typed over it' $edit.Text 'Typed by PowerShell.'

$dialog = Open-Dialog $notepad $Font
"Dialog opened:  $($dialog.Text)"
$dialog.Close()
Assert-Equal 'Dialog gone' (Wait-Gone $dialog) $true

$text = '0123456789' * 300
$edit.Text = $text
Assert-Equal 'Long text' ((Get-LongText $edit) -ceq $text) $true
$path = Join-Path $env:TEMP 'ghosthand_sample.txt'
Save-As $notepad $path
Assert-Equal 'File saved' ((Get-Content -Raw $path) -ceq $text) $true
[void]$notepad.Command($New)
Assert-Equal 'New text' $edit.Text ''
[void]$notepad.Command($Open)
$notepad.OpenSaveDialog().File($path)
Assert-Equal 'Read back' ((Get-LongText $edit) -ceq $text) $true
Assert-Equal 'Dialog alive' (Test-Alive $dialog) $false
'Done'
