// A story in the sample host's CAD page: start one sample_host.exe, then run this. It hides a part, colours another,
// sets a parameter and the material, restores a camera and replays a recorded click. Leave the mouse alone meanwhile:
// the view is driven with the real cursor.
//     csc /platform:x64 CadStory.cs GhosthandHelpers.cs
using System;
using System.Collections.Generic;
using static Helpers;

static class CadStory
{
    // Commands and control ids of the sample host (samples/host/host_ids.h).
    const int PageCad = 610, CadTree = 1100, Material = 1102, ParameterGrid = 1103, StatusBar = 1090;
    const int LeftButton = 1;
    const int Red = 208 + 64 * 0x100 + 56 * 0x10000;
    // What a recorder noted: the camera, the size of the view, and a click on the input shaft.
    const string Camera = "yaw=-35.00 pitch=25.00 zoom=1.000";
    const int Width = 500, Height = 400, ClickX = 223, ClickY = 181;

    [STAThread]
    static int Main() => Run(Story);

    static void Story()
    {
        dynamic host = MainWindow("sample_host");
        host.Command(PageCad);
        dynamic page = host.ActiveDocument();
        Console.WriteLine($"Page:           \"{page.Text}\"");
        ChangeParts(page.CADTree(CadTree));
        SetParameters(page);
        ReplayClick(host, page.CADView());
        Ghosthand().UnblockMouse();
    }

    static void ChangeParts(dynamic tree)
    {
        dynamic wall = tree.ItemByPath("Gearbox|Housing|Right wall");
        wall.Visible = false;
        Expect("Wall visible", (bool)wall.Visible, false);
        dynamic shaft = tree.ItemByPath("Gearbox|Shafts|Input shaft");
        shaft.Color = Red;
        Expect("Shaft colour", (int)shaft.Color, Red);
        tree.ItemByPath("Gearbox|Housing|Base plate").Checked = true;
        Expect("Selected", (bool)tree.SelectItemByPath("Gearbox|Shafts|Output shaft"), true);
    }

    static void SetParameters(dynamic page)
    {
        dynamic grid = page.GXGrid(ParameterGrid);
        var rows = new Dictionary<string, int>();
        for (int row = 1; row <= grid.RowsCount; ++row) rows[grid.GetText(row, 1)] = row;
        int diameter = rows["Shaft diameter"];
        grid.SetText(diameter, 2, "40");
        Expect("Shaft diameter", (string)grid.GetText(diameter, 2), "40");
        // A property with arguments: an index to C#.
        Expect("Mass read-only", (bool)grid.IsReadOnly[rows["Mass"], 2], true);
        dynamic material = page.GroupCombo(Material);
        material.SelectItemByName("Metals", "Brass");
        Expect("Material", $"{material.HeadingText} > {material.Text}", "Metals > Brass");
    }

    static void ReplayClick(dynamic host, dynamic view)
    {
        view.SetCameraPosition(Camera, Width, Height);
        Expect("Camera", (string)view.CameraPosition, Camera);
        view.MouseDown(LeftButton, 200, 60, Width, Height);
        view.MouseMove(290, 80, Width, Height);
        view.MouseUp(LeftButton, 290, 80, Width, Height);
        Expect("Drag orbits", (string)view.CameraPosition != Camera, true);
        view.SetCameraPosition(Camera, Width, Height);
        view.Click(LeftButton, ClickX, ClickY, Width, Height);
        Expect("Status bar", (string)host.ChildWindow("", "msctls_statusbar32", StatusBar).Text, "Picked Input shaft");
    }
}
