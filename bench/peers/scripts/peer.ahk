; The jobs with AutoHotkey, its own pauses taken out as its manual tells.
#Requires AutoHotkey v2.0
SetWinDelay -1
SetControlDelay -1

; Commands and control ids of the window "Peers" (samples/host/host_ids.h).
kFirstCommand := 4000, kForm := 4200, kQuestion := 4201
kFinds := 20

OnError(ReportError)
ReportError(exception, mode) {
    FileAppend "FAILED: " exception.Message " (line " exception.Line ")`n", "*"
    ExitApp 1
}

texts := ""
begin := 0
Jobs := Map("find", Find, "list", ReadList, "tree", ReadTree, "select", SelectItem, "tools", PressTools, "menus",
    ChooseCommands, "form", FillForm, "rounds", PlayRounds)
host := WinWait(A_Args[1] = "find" ? "Many children" : "Peers ahk_class SampleHostPeers", , 60)
Jobs[A_Args[1]]()
FileAppend "time " Round(Now() - begin, 3) "`n" texts "Done`n", "*"
ExitApp

Now() {
    static frequency := 0
    if !frequency
        DllCall("QueryPerformanceFrequency", "Int64*", &frequency)
    DllCall("QueryPerformanceCounter", "Int64*", &count := 0)
    return count * 1000 / frequency
}

AddText(text) {
    global texts .= "text " text "`n"
}

; Memory in the program, for messages that hand over pointers.
class Remote {
    __New(window, size) {
        this.process := DllCall("OpenProcess", "UInt", 0x38, "Int", 0, "UInt", WinGetPID(window), "Ptr")
        this.at := DllCall("VirtualAllocEx", "Ptr", this.process, "Ptr", 0, "Ptr", size, "UInt", 0x3000, "UInt", 4, "Ptr")
    }
    __Delete() {
        DllCall("VirtualFreeEx", "Ptr", this.process, "Ptr", this.at, "Ptr", 0, "UInt", 0x8000)
        DllCall("CloseHandle", "Ptr", this.process)
    }
    Write(bytes, offset := 0) {
        DllCall("WriteProcessMemory", "Ptr", this.process, "Ptr", this.at + offset, "Ptr", bytes, "Ptr", bytes.Size, "Ptr", 0)
    }
    Read(size, offset := 0) {
        bytes := Buffer(size)
        DllCall("ReadProcessMemory", "Ptr", this.process, "Ptr", this.at + offset, "Ptr", bytes, "Ptr", size, "Ptr", 0)
        return bytes
    }
}

Find() {
    global begin := Now()
    Loop kFinds
        text := ControlGetText("Edit1", host)
    AddText text
}

ReadList() {
    global begin := Now()
    Loop Parse ListViewGetContent("", "SysListView321", host), "`n"
        AddText A_LoopField
}

class Tree {
    __New(control) {
        this.control := ControlGetHwnd(control, host)
        this.remote := Remote(host, 1024)
    }
    Next(relation, item) => SendMessage(0x110A, relation, item, this.control) ; TVM_GETNEXTITEM
    Text(item) {
        request := Buffer(56, 0) ; TVITEMEXW as far as it is used
        NumPut("UInt", 1, request, 0), NumPut("Ptr", item, request, 8)
        NumPut("Ptr", this.remote.at + 64, request, 24), NumPut("Int", 400, request, 32)
        this.remote.Write(request)
        SendMessage(0x113E, 0, this.remote.at, this.control) ; TVM_GETITEMW
        return StrGet(this.remote.Read(800, 64), "UTF-16")
    }
}

ReadTree() {
    tree_ := Tree("SysTreeView321")
    global begin := Now()
    item := tree_.Next(0, 0)
    while item {
        AddText tree_.Text(item)
        item := tree_.Next(1, item)
    }
}

SelectItem() {
    tree_ := Tree("SysTreeView322")
    global begin := Now()
    parent := 0
    for name in ["Assembly 9", "Part 9", "Feature 99"] {
        item := tree_.Next(parent ? 4 : 0, parent)
        while item && tree_.Text(item) != name
            item := tree_.Next(1, item)
        parent := item
    }
    SendMessage(0x110B, 9, parent, tree_.control) ; TVM_SELECTITEM
}

; A button's place by its text, and a click there.
PressTools() {
    bar := ControlGetHwnd("ToolbarWindow321", host)
    memory := Remote(host, 1024)
    global begin := Now()
    Loop 50 {
        name := "Tool " (A_Index - 1)
        Loop SendMessage(0x418, 0, 0, bar) { ; TB_BUTTONCOUNT
            index := A_Index - 1
            SendMessage(0x417, index, memory.at, bar) ; TB_GETBUTTON
            command := NumGet(memory.Read(32), 4, "Int")
            SendMessage(0x44B, command, memory.at + 64, bar) ; TB_GETBUTTONTEXTW
            if StrGet(memory.Read(200, 64), "UTF-16") = name
                break
        }
        SendMessage(0x41D, index, memory.at, bar) ; TB_GETITEMRECT
        area := memory.Read(16)
        ControlClick "x" (NumGet(area, 0, "Int") + 3) " y" (NumGet(area, 4, "Int") + 3), bar, , , , "NA Pos"
    }
    SendMessage(0, 0, 0, bar)
}

ChooseCommands() {
    global begin := Now()
    Loop 50
        SendMessage(0x111, kFirstCommand + A_Index - 1, 0, host) ; WM_COMMAND
}

FillForm() {
    global begin := Now()
    PostMessage(0x111, kForm, 0, host)
    dialog := WinWait("Form ahk_class #32770", , 10)
    for name in ["Bracket", "Housing", "Flange", "Shaft"]
        ControlSetText name, "Edit" A_Index, dialog
    ControlSetChecked 1, "&Visible", dialog
    ControlSetChecked 1, "&Locked", dialog
    ControlSetChecked 1, "&Imperial", dialog
    ControlChooseIndex 4, "ComboBox1", dialog
    ControlChooseIndex 2, "ComboBox2", dialog
    ControlChooseIndex 5, "ListBox1", dialog
    ControlClick "OK", dialog, , , , "NA"
    WinWaitClose dialog, , 10
}

PlayRounds() {
    global begin := Now()
    Loop A_Args[2] {
        PostMessage(0x111, kQuestion, 0, host)
        dialog := WinWait("Question ahk_class #32770", , 10)
        ControlSetText "value " A_Index, "Edit1", dialog
        ControlClick "OK", dialog, , , , "NA"
        Loop
            text := ControlGetText("Static1", host)
        Until text != ""
        AddText text
    }
}
