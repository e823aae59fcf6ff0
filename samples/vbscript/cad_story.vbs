' A story in the sample host's CAD page: hides a part, colours another, sets a parameter and the material,
' restores a camera and replays a recorded click in a view of another size.
' Start one sample_host.exe, then run "cscript cad_story.vbs". Leave the mouse alone meanwhile: the view is
' driven with the real cursor.
Option Explicit

' Commands and control ids of the sample host (samples/host/host_ids.h).
Const kPageCad = 610
Const kPageOptions = 611
Const kPageRibbon = 612
Const kCadTree = 1100
Const kMaterial = 1102
Const kParameterGrid = 1103
Const kOptionTree = 1110
Const kRibbonWidget = 1120
Const kStatusBar = 1090

Const kLeftButton = 1
' What a recorder noted: the camera, the size of the view, and a click on the input shaft.
Const kCamera = "yaw=-35.00 pitch=25.00 zoom=1.000"
Const kRecordedWidth = 500
Const kRecordedHeight = 400
Const kRecordedX = 223
Const kRecordedY = 181

' Without this, Wine's cscript ends in silence on the first error.
On Error Resume Next
Main
If Err.Number <> 0 Then Fail Err.Description & " (error " & Hex(Err.Number) & ")"
WScript.Echo "Done"

Sub Main()
    Dim ghosthand, host, page

    Set ghosthand = CreateObject("Ghosthand.Ghosthand")
    Set host = ghosthand.MainWindow("sample_host", "", "", 0, 60)
    If host Is Nothing Then Fail "the sample host's main window was not found"
    SetOptions host
    host.Command kPageCad
    Set page = host.ActiveDocument()
    If page Is Nothing Then Fail "the CAD page did not open"
    WScript.Echo "Page:           """ & page.Text & """"

    ChangeParts page
    SetParameters page
    ReplayClick host, page
    ghosthand.UnblockMouse
End Sub

Sub SetOptions(host)
    Dim dialog, item, widget

    host.Command kPageOptions
    Set dialog = host.ActiveDialog()
    If dialog Is Nothing Then Fail "the dialog Options did not open"
    Set item = dialog.OptionTree(kOptionTree).GetItemByPath("General|Units")
    If item Is Nothing Then Fail "the option General|Units was not found"
    item.Text = "inch"
    WScript.Echo "Option:         " & item.Parent.Label & " > " & item.Label & " = " & item.Text
    If item.Text <> "inch" Then Fail "the option did not take the text"
    dialog.Close

    host.Command kPageRibbon
    Set dialog = host.ActiveDialog()
    If dialog Is Nothing Then Fail "the dialog Customise ribbon did not open"
    Set widget = dialog.RibCustomisationWidget("Ribbon forms")
    If widget Is Nothing Then Fail "the list of ribbon forms was not found"
    widget.Selected = "Sketch"
    WScript.Echo "Ribbon form:    " & widget.Selected
    If widget.Selected <> "Sketch" Then Fail "the form was not selected"
    dialog.Close
    If Not host.ActiveDialog(0) Is Nothing Then Fail "a dialog is still open"
End Sub

Sub ChangeParts(page)
    Dim tree, wall, shaft

    Set tree = page.CADTree(kCadTree)
    If tree Is Nothing Then Fail "the model tree was not found"
    Set wall = tree.ItemByPath("Gearbox|Housing|Right wall")
    If wall Is Nothing Then Fail "the part Right wall was not found"
    wall.Visible = False
    WScript.Echo "Right wall:     visible = " & wall.Visible
    If wall.Visible Then Fail "the part is still visible"
    Set shaft = tree.ItemByPath("Gearbox|Shafts|Input shaft")
    shaft.Color = RGB(208, 64, 56)
    WScript.Echo "Input shaft:    colour = &H" & Hex(shaft.Color)
    If shaft.Color <> RGB(208, 64, 56) Then Fail "the part did not take the colour"
    tree.ItemByPath("Gearbox|Shafts|Output shaft").Starred = True
    tree.ItemByPath("Gearbox|Housing|Base plate").Checked = True
    If Not tree.SelectItemByPath("Gearbox|Shafts|Output shaft") Then Fail "the output shaft cannot be selected"
End Sub

Sub SetParameters(page)
    Dim grid, combo, row

    Set grid = page.GXGrid(kParameterGrid)
    If grid Is Nothing Then Fail "the grid was not found"
    row = RowOf(grid, "Shaft diameter")
    grid.SetText row, 2, "40"
    WScript.Echo "Shaft diameter: " & grid.GetText(row, 2) & " " & grid.GetText(row, 3)
    If grid.GetText(row, 2) <> "40" Then Fail "the parameter was not set"
    If Not grid.IsReadOnly(RowOf(grid, "Mass"), 2) Then Fail "the mass can be edited"

    Set combo = page.GroupCombo(kMaterial)
    If combo Is Nothing Then Fail "the list of materials was not found"
    If Not combo.SelectItemByName("Metals", "Brass") Then Fail "brass was not found among the metals"
    WScript.Echo "Material:       " & combo.HeadingText & " > " & combo.Text
    WScript.Echo "Mass:           " & grid.GetText(RowOf(grid, "Mass"), 2) & " g"
End Sub

Sub ReplayClick(host, page)
    Dim view, camera, status

    Set view = page.CADView()
    If view Is Nothing Then Fail "the view was not found"
    view.SetCameraPosition kCamera, kRecordedWidth, kRecordedHeight
    camera = view.CameraPosition
    WScript.Echo "Camera:         " & camera & " at " & view.Width & " x " & view.Height
    If camera <> kCamera Then Fail "the view did not take the camera"

    view.MouseDown kLeftButton, 200, 60, kRecordedWidth, kRecordedHeight
    view.MouseMove 290, 80, kRecordedWidth, kRecordedHeight
    view.MouseUp kLeftButton, 290, 80, kRecordedWidth, kRecordedHeight
    WScript.Echo "After a drag:   " & view.CameraPosition
    If view.CameraPosition = camera Then Fail "the drag did not orbit"

    view.SetCameraPosition camera, 430, 350
    WScript.Echo "Restored:       " & view.CameraPosition & " at " & view.Width & " x " & view.Height
    view.Click kLeftButton, kRecordedX, kRecordedY, kRecordedWidth, kRecordedHeight
    Set status = host.ChildWindow("", "msctls_statusbar32", kStatusBar)
    WScript.Echo "Status bar:     " & status.Text
    If status.Text <> "Picked Input shaft" Then Fail "the click hit something else"
End Sub

Function RowOf(grid, name)
    For RowOf = 1 To grid.RowsCount
        If grid.GetText(RowOf, 1) = name Then Exit Function
    Next
    Fail "there is no parameter " & name
End Function

Sub Fail(reason)
    WScript.Echo "FAILED: " & reason
    WScript.Quit 1
End Sub
