"""A story in the sample host's CAD page: start one sample_host.exe, then run "python cad_story.py".

Hides a part, colours another, sets a parameter and the material, restores a camera and replays a recorded
click. Leave the mouse alone meanwhile: the view is driven with the real cursor.
"""

from ghosthand_helpers import by_name, expect, ghosthand, main_window

# Commands and control ids of the sample host (samples/host/host_ids.h).
PAGE_CAD, CAD_TREE, MATERIAL, PARAMETER_GRID, STATUS_BAR = 610, 1100, 1102, 1103, 1090
LEFT_BUTTON = 1
RED = 208 + 64 * 0x100 + 56 * 0x10000
# What a recorder noted: the camera, the size of the view, and a click on the input shaft.
CAMERA = "yaw=-35.00 pitch=25.00 zoom=1.000"
RECORDED_SIZE = 500, 400
RECORDED_CLICK = 223, 181


def main():
    host = main_window("sample_host")
    host.Command(PAGE_CAD)
    page = host.ActiveDocument()
    print(f'Page:           "{page.Text}"')
    change_parts(page.CADTree(CAD_TREE))
    set_parameters(page)
    replay_click(host, page.CADView())
    ghosthand().UnblockMouse()


def change_parts(tree):
    wall = by_name(tree.ItemByPath("Gearbox|Housing|Right wall"))
    wall.Visible = False
    expect("Wall visible", wall.Visible, False)
    shaft = by_name(tree.ItemByPath("Gearbox|Shafts|Input shaft"))
    shaft.Color = RED
    expect("Shaft colour", shaft.Color, RED)
    by_name(tree.ItemByPath("Gearbox|Housing|Base plate")).Checked = True
    expect("Selected", tree.SelectItemByPath("Gearbox|Shafts|Output shaft"), True)


def set_parameters(page):
    grid = page.GXGrid(PARAMETER_GRID)
    rows = {grid.GetText(row, 1): row for row in range(1, grid.RowsCount + 1)}
    diameter = rows["Shaft diameter"]
    grid.SetText(diameter, 2, "40")
    expect("Shaft diameter", grid.GetText(diameter, 2), "40")
    expect("Mass read-only", grid.IsReadOnly(rows["Mass"], 2), True)
    material = page.GroupCombo(MATERIAL)
    material.SelectItemByName("Metals", "Brass")
    expect("Material", f"{material.HeadingText} > {material.Text}", "Metals > Brass")


def replay_click(host, view):
    view.SetCameraPosition(CAMERA, *RECORDED_SIZE)
    expect("Camera", view.CameraPosition, CAMERA)
    view.MouseDown(LEFT_BUTTON, 200, 60, *RECORDED_SIZE)
    view.MouseMove(290, 80, *RECORDED_SIZE)
    view.MouseUp(LEFT_BUTTON, 290, 80, *RECORDED_SIZE)
    expect("Drag orbits", view.CameraPosition != CAMERA, True)
    view.SetCameraPosition(CAMERA, *RECORDED_SIZE)
    view.Click(LEFT_BUTTON, *RECORDED_CLICK, *RECORDED_SIZE)
    expect("Status bar", host.ChildWindow("", "msctls_statusbar32", STATUS_BAR).Text, "Picked Input shaft")


main()
print("Done")
