; A story in the sample host's CAD page: start one sample_host.exe, then run "AutoHotkey64.exe cad_story.ahk".
; Hides a part, colours another, sets a parameter and the material, restores a camera and replays a recorded
; click. Leave the mouse alone meanwhile: the view is driven with the real cursor.
#Requires AutoHotkey v2.0
#Include ghosthand_helpers.ahk

; Commands and control ids of the sample host (samples/host/host_ids.h).
kPageCad := 610, kCadTree := 1100, kMaterial := 1102, kParameterGrid := 1103, kStatusBar := 1090
kLeftButton := 1
kRed := 208 + 64 * 0x100 + 56 * 0x10000
; What a recorder noted: the camera, the size of the view, and a click on the input shaft.
kCamera := "yaw=-35.00 pitch=25.00 zoom=1.000"
kWidth := 500, kHeight := 400
kClickX := 223, kClickY := 181

host := MainWindow("sample_host")
host.Command(kPageCad)
page := host.ActiveDocument()
Print('Page:           "' page.Text '"')
ChangeParts(page.CADTree(kCadTree))
SetParameters()
ReplayClick(page.CADView())
ComObject("Ghosthand.Ghosthand").UnblockMouse()
Print("Done")

ChangeParts(tree) {
    wall := tree.ItemByPath("Gearbox|Housing|Right wall")
    wall.Visible := false
    Expect("Wall visible", wall.Visible != 0, false)
    shaft := tree.ItemByPath("Gearbox|Shafts|Input shaft")
    shaft.Color := kRed
    Expect("Shaft colour", shaft.Color, kRed)
    tree.ItemByPath("Gearbox|Housing|Base plate").Checked := true
    Expect("Selected", tree.SelectItemByPath("Gearbox|Shafts|Output shaft") != 0, true)
}

SetParameters() {
    grid := page.GXGrid(kParameterGrid)
    rows := Map()
    Loop grid.RowsCount
        rows[grid.GetText(A_Index, 1)] := A_Index
    diameter := rows["Shaft diameter"]
    grid.SetText(diameter, 2, "40")
    Expect("Shaft diameter", grid.GetText(diameter, 2), "40")
    Expect("Mass read-only", grid.IsReadOnly(rows["Mass"], 2) != 0, true)
    material := page.GroupCombo(kMaterial)
    material.SelectItemByName("Metals", "Brass")
    Expect("Material", material.HeadingText " > " material.Text, "Metals > Brass")
}

ReplayClick(view) {
    view.SetCameraPosition(kCamera, kWidth, kHeight)
    Expect("Camera", view.CameraPosition, kCamera)
    view.MouseDown(kLeftButton, 200, 60, kWidth, kHeight)
    view.MouseMove(290, 80, kWidth, kHeight)
    view.MouseUp(kLeftButton, 290, 80, kWidth, kHeight)
    Expect("Drag orbits", view.CameraPosition != kCamera, true)
    view.SetCameraPosition(kCamera, kWidth, kHeight)
    view.Click(kLeftButton, kClickX, kClickY, kWidth, kHeight)
    Expect("Status bar", host.ChildWindow("", "msctls_statusbar32", kStatusBar).Text, "Picked Input shaft")
}
