; Drives Wine's Notepad as a tester would: start one Notepad, then run "AutoHotkey64.exe notepad.ahk".
; On Windows, whose Notepad has other commands and controls, run sample_host.ahk or cad_story.ahk.
#Requires AutoHotkey v2.0
#Include ghosthand_helpers.ahk

; Commands of Wine's Notepad.
kNew := 256, kOpen := 257, kSaveAs := 259, kFont := 320
kYes := 6

notepad := MainWindow("notepad")
Print('Main window:    "' notepad.Text '"')
field := notepad.Edit()

TypeText(field, "First words")
Expect("Typed", field.Text, "First words")
PressKeys(field, "^a") ; select all: what is typed replaces it
TypeText(field, "Typed by AutoHotkey.")
Expect("Typed over it", field.Text, "Typed by AutoHotkey.")

dialog := OpenDialog(notepad, kFont)
Print('Dialog opened:  "' dialog.Text '"')
dialog.Close()
Expect("Dialog gone", WaitUntilGone(dialog), true)

text := ""
Loop 300
    text .= "0123456789"
field.Text := text
Expect("Long text", LongText(field) == text, true)
path := A_Temp "\ghosthand_sample.txt"
SaveAs(path)
Expect("File saved", FileRead(path) == text, true)
notepad.Command(kNew)
Expect("New text", field.Text, "")
notepad.Command(kOpen)
notepad.OpenSaveDialog().File(path)
Expect("Read back", LongText(field) == text, true)
Expect("Dialog alive", IsAlive(dialog), false)
Print("Done")

SaveAs(path) {
    notepad.Command(kSaveAs)
    notepad.OpenSaveDialog().File(path)
    question := notepad.ActiveDialog(0)
    if !IsNothing(question)
        question.Button("", kYes).Click() ; replace it
}
