' The jobs with Ghosthand from VBScript.
Option Explicit

' Commands and control ids of the window "Peers" (samples/host/host_ids.h).
Const WM_COMMAND = &H111
Const kFirstCommand = 4000
Const kForm = 4200
Const kQuestion = 4201
Const kBar = 1300
Const kList = 1301
Const kTree = 1302
Const kDeepTree = 1303
Const kResult = 1304
Const kField = 1310
Const kEdit = 1001
Const kLastOfMany = 10999
Const kFinds = 20

Dim begin, texts

' Without this, Wine's cscript ends in silence on the first error.
On Error Resume Next
Run WScript.Arguments(0)
If Err.Number <> 0 Then WScript.Echo "FAILED: " & Err.Description & " (error " & Hex(Err.Number) & ")": WScript.Quit 1
WScript.Echo "Done"

Sub Run(job)
    Dim caption, host
    caption = "Peers"
    If job = "find" Then caption = "Many children"
    Set host = CreateObject("Ghosthand.Ghosthand").MainWindow("sample_host", caption, "", 0, 60)
    texts = ""
    Select Case job
        Case "find": Find host
        Case "list": ReadList host.ListView(kList)
        Case "tree": ReadTree host.TreeCtrl(kTree)
        Case "select": SelectItem Quick(host.TreeCtrl(kDeepTree))
        Case "tools": PressTools Quick(host.Toolbar("", kBar))
        Case "menus": ChooseCommands host
        Case "form": FillForm host
        Case "rounds": PlayRounds host, CLng(WScript.Arguments(1))
    End Select
    WScript.Echo "time " & CLng((Timer - begin) * 1000)
    WScript.Echo texts
End Sub

' The same object, whose actions do not wait for the program: as the other tools' do not.
Function Quick(control)
    control.Synchronization = False
    Set Quick = control
End Function

' ActiveDialog looks every 100 ms; with no time to wait it looks once, and this script looks all the time.
Function NextDialog(host)
    Do
        Set NextDialog = host.ActiveDialog(0)
    Loop While NextDialog Is Nothing
End Function

Sub AddText(text)
    texts = texts & "text " & text & vbCrLf
End Sub

Sub Find(many)
    Dim number, text
    begin = Timer
    For number = 1 To kFinds
        text = many.Edit(kLastOfMany, &H40).Text
    Next
    AddText text
End Sub

Sub ReadList(view)
    Dim row
    begin = Timer
    For row = 0 To 999
        AddText view.GetItem(row)
    Next
End Sub

Sub ReadTree(tree)
    Dim number
    begin = Timer
    For number = 1 To 1000
        AddText tree.ItemByNumPath(CStr(number)).Text
    Next
End Sub

Sub SelectItem(tree)
    begin = Timer
    tree.SelectItemByPath "Assembly 9|Part 9|Feature 99"
End Sub

Sub PressTools(bar)
    Dim number
    begin = Timer
    For number = 0 To 49
        bar.GetItemByID("Tool " & number).Click
    Next
End Sub

Sub ChooseCommands(host)
    Dim number
    begin = Timer
    ' As the other tools do it: sent, so that each is done when the next one goes out.
    host.Synchronization = False
    For number = 0 To 49
        host.SendMessage WM_COMMAND, kFirstCommand + number
    Next
End Sub

Sub FillForm(host)
    Dim dialog, number, names
    names = Array("Bracket", "Housing", "Flange", "Shaft")
    begin = Timer
    host.Synchronization = False ' the dialog is waited for anyway
    host.Command kForm
    Set dialog = NextDialog(host)
    For number = 0 To 3
        Quick(dialog.Edit(kField + number)).Text = names(number)
    Next
    Quick(dialog.ComboBox(kField + 7)).SelectItem 3
    Quick(dialog.ComboBox(kField + 8)).SelectItem 1
    Quick(dialog.ListBox(kField + 9)).SelectItem 4
    ' Clicks that nobody waits for come last: what takes the focus away would undo one that is under way.
    Quick(dialog.CheckBox("", kField + 4)).Checked = True
    Quick(dialog.CheckBox("", kField + 5)).Checked = True
    Quick(dialog.Button("", kField + 6)).Click
    Quick(dialog.Button("OK")).Click
    Do
    Loop Until host.ActiveDialog(0) Is Nothing
End Sub

Sub PlayRounds(host, last)
    Dim result, dialog, number, text
    Set result = host.ChildWindow("", "Static", kResult)
    begin = Timer
    host.Synchronization = False ' the dialog comes later anyway
    For number = 1 To last
        host.Command kQuestion
        Set dialog = NextDialog(host)
        Quick(dialog.Edit(kEdit)).Text = "value " & number
        Quick(dialog.Button("OK")).Click
        Do
            text = result.Text
        Loop While text = ""
        AddText text
    Next
End Sub
