; The sample host through AutoHotkey: contract.ahk MODULE. Reads the whole type library, calls members with arguments
; left out and by reference, gets nothing, gets an error with its text, and lets everything go. (AutoHotkey passes no
; arguments by name.)
#Requires AutoHotkey v2.0
#Include ..\..\..\samples\autohotkey\ghosthand_helpers.ahk

kSettings := 601, kOpenDrawing := 626, kApply := 1005, kDropDownList := 1020

ReadTypeLibrary()
Drive()
Expect("Unloadable", DllCall(A_Args[1] "\DllCanUnloadNow", "Int"), 0)
Print("Done")

; Every description of every function can be read and has a name.
ReadTypeLibrary() {
    id := Buffer(16)
    DllCall("ole32\CLSIDFromString", "WStr", "{ADF61CBC-BE37-4075-A6D5-3983AAF171ED}", "Ptr", id, "HRESULT")
    DllCall("oleaut32\LoadRegTypeLib", "Ptr", id, "UShort", 1, "UShort", 0, "UInt", 0x409, "Ptr*", &library := 0,
            "HRESULT")
    functions := 0
    count := ComCall(3, library, "UInt") ; GetTypeInfoCount
    Loop count {
        ComCall(4, library, "UInt", A_Index - 1, "Ptr*", &info := 0) ; GetTypeInfo
        ComCall(3, info, "Ptr*", &attributes := 0) ; GetTypeAttr
        Loop NumGet(attributes, 48, "UShort") { ; cFuncs
            ComCall(5, info, "UInt", A_Index - 1, "Ptr*", &description := 0) ; GetFuncDesc
            ComCall(12, info, "Int", NumGet(description, "Int"), "Ptr*", &name := 0, "Ptr", 0, "Ptr", 0, "Ptr", 0)
            if (StrGet(name) = "")
                throw Error("a function has no name")
            DllCall("oleaut32\SysFreeString", "Ptr", name)
            ComCall(20, info, "Ptr", description, "Int") ; ReleaseFuncDesc
            functions += 1
        }
        ComCall(19, info, "Ptr", attributes, "Int") ; ReleaseTypeAttr
        ObjRelease(info)
    }
    ObjRelease(library)
    Expect("Types", count, 42)
    Expect("Functions read", functions > 1000, true) ; inherited ones count in each interface
}

Drive() {
    ghosthand := ComObject("Ghosthand.Ghosthand")
    Expect("Interface", ComObjType(ghosthand, "Name"), "IGhosthand")
    host := ghosthand.MainWindow("sample_host", , , , 60)
    Expect("In the middle", IsNothing(host), false)
    Expect("Left out", ghosthand.MainWindow("sample_host").Text, host.Text)
    name := "sample_host"
    Expect("By reference", ghosthand.MainWindow(&name).Text, host.Text)

    dialog := OpenDialog(host, kSettings)
    number := 1
    Expect("A number, too", dialog.ComboBox(kDropDownList).GetItem(&number), "Brass")
    Expect("In the middle", dialog.Button(, kApply).ControlID, kApply)
    Expect("Nothing", IsNothing(dialog.TreeCtrl(9999, 0, 0)), true)
    dialog.Close()
    WaitUntilGone(dialog)

    host.Command(kOpenDrawing)
    files := host.OpenSaveDialog()
    files.Close()
    try
        files.File("part.cad")
    catch Error as failure {
        Expect("Error", InStr(failure.Message, "(0x80004005)") > 0, true)
        Expect("Its text", InStr(failure.Message, "Expected to find edit control") > 0, true)
        return
    }
    throw Error("File did not fail without its dialog")
}
