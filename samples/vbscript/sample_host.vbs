' Drives the sample host: start one sample_host.exe, then run "cscript sample_host.vbs".
Option Explicit

' Commands and control ids of the sample host (samples/host/host_ids.h).
Const kFileNew = 101
Const kPageSettings = 601
Const kPageTrees = 630
Const kPageListViews = 631
Const kPageTabs = 622
Const kPageTrackBars = 623
Const kEdit = 1001
Const kCheckBox = 1010
Const kTriStateBox = 1011
Const kRadioImperial = 1016
Const kDropDownList = 1020
Const kListBox = 1022
Const kPartsTree = 1140
Const kLayersList = 1151
Const kTabs = 1220
Const kHorizontalBar = 1230
Const kDrawBar = 1081
Const kDrawArc = 706

' Without this, Wine's cscript ends in silence on the first error.
On Error Resume Next
Main
If Err.Number <> 0 Then Fail Err.Description & " (error " & Hex(Err.Number) & ")"
WScript.Echo "Done"

Sub Main()
    Dim ghosthand, host, document, edit, dialog, text

    Set ghosthand = CreateObject("Ghosthand.Ghosthand")
    Set host = ghosthand.MainWindow("sample_host", "", "", 0, 60) ' a busy machine may need a while to start it
    If host Is Nothing Then Fail "the sample host's main window was not found"
    WScript.Echo "Main window:    """ & host.Text & """"
    WScript.Echo "Position:       " & host.Left & ", " & host.Top
    WScript.Echo "Client size:    " & host.Width & " x " & host.Height
    host.FitSize 900, 600
    WScript.Echo "After FitSize:  " & host.Width & " x " & host.Height
    If host.Width <> 900 Or host.Height <> 600 Then Fail "FitSize did not give 900 x 600"

    host.Command kFileNew
    Set document = host.ActiveDocument()
    If document Is Nothing Then Fail "no document opened"
    WScript.Echo "New document:   """ & document.Text & """"
    Set edit = document.Edit(kEdit)
    If edit Is Nothing Then Fail "the document's edit control was not found"
    text = "Typed into a document by a script."
    edit.Text = text
    WScript.Echo "Its text:       """ & edit.Text & """"
    If edit.Text <> text Then Fail "the edit control did not take the text"

    SetOptions host
    UseTree Page(host, kPageTrees).TreeCtrl(kPartsTree)
    UseListView Page(host, kPageListViews).ListView(kLayersList)
    UseTabs Page(host, kPageTabs).TabCtrl(kTabs)
    UseTrackBar Page(host, kPageTrackBars).TrackBar(kHorizontalBar)
    OpenToolbarPopup host
End Sub

' Opens a page of the sample host and returns its window.
Function Page(host, command)
    host.Command command
    Set Page = host.ActiveDocument()
    If Page Is Nothing Then Fail "page " & command & " did not open"
    WScript.Echo "Page opened:    """ & Page.Text & """"
End Function

' Sets every kind of option on the dialog Settings and reads it back.
Sub SetOptions(host)
    Dim dialog, edit, box, combo, list
    host.Command kPageSettings
    Set dialog = host.ActiveDialog()
    If dialog Is Nothing Then Fail "the dialog Settings did not open"
    WScript.Echo "Dialog opened:  """ & dialog.Text & """"

    Set edit = dialog.Edit(kEdit)
    edit.Text = "New setting"
    Expect "Field", edit.Text, "New setting"

    Set box = dialog.CheckBox("", kCheckBox)
    box.Checked = Not box.Checked
    box.Checked = True
    Expect "Check box", box.Checked, True
    Set box = dialog.CheckBox("", kTriStateBox)
    box.CheckedState = 2
    Expect "Three states", box.CheckedState, 2

    dialog.Button("", kRadioImperial).Click
    Set combo = dialog.ComboBox(kDropDownList)
    combo.SelectItem 1
    Expect "Combo box", combo.Text, combo.GetItem(1)
    Set list = dialog.ListBox(kListBox)
    list.SelectItem 2
    Expect "List box", list.SelectedItem, 2

    dialog.Close
    If Not host.ActiveDialog(0) Is Nothing Then Fail "the dialog is still open"
    WScript.Echo "Dialog closed"
End Sub

Sub UseTree(tree)
    Dim first
    Set first = tree.ItemByNumPath("1")
    first.Selected = True
    Expect "Tree item", tree.SelectedItem.Text, first.Text
    first.Expanded = True
    Expect "Expanded", first.Expanded, True
End Sub

Sub UseListView(list)
    Expect "List view", list.SelectItemByName("Layer 1"), True
    Expect "Selected", list.GetItem(list.SelectedItem), "Layer 1"
    list.CheckItemByName "Layer 10"
    Expect "Checked", list.IsChecked(list.SelectedItem + 1), True
End Sub

Sub UseTabs(tabs)
    Expect "Tab", tabs.SelectItemByName("R&D"), True
    Expect "Tab shown", tabs.GetItem(tabs.SelectedItem), "R&D"
End Sub

Sub UseTrackBar(bar)
    bar.Pos = bar.Max
    Expect "Track bar", bar.Pos, bar.Max
End Sub

' Opens the popup of a tool bar button and leaves it open.
Sub OpenToolbarPopup(host)
    Dim bar, popup
    Set bar = host.Toolbar("", kDrawBar)
    If bar Is Nothing Then Fail "the tool bar Draw was not found"
    WScript.Echo "Tool bar:       """ & bar.Text & """ with " & bar.ItemsCount & " buttons"
    Set popup = bar.GetItemByID("", kDrawArc).Expand()
    If popup Is Nothing Then Fail "the button Arc opened no popup"
    WScript.Echo "Popup opened:   " & popup.ItemsCount & " entries"
End Sub

Sub Expect(what, got, wanted)
    WScript.Echo Left(what & ":" & Space(16), 16) & got
    If got <> wanted Then Fail what & " is """ & got & """, not """ & wanted & """"
End Sub

Sub Fail(reason)
    WScript.Echo "FAILED: " & reason
    WScript.Quit 1
End Sub
