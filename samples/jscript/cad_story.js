// A story in the sample host's CAD page: start one sample_host.exe, then run "cscript cad_story.js".
// Hides a part, colours another, sets a parameter and the material, restores a camera and replays a recorded click.
// Leave the mouse alone meanwhile: the view is driven with the real cursor.
var files = new ActiveXObject("Scripting.FileSystemObject");
var folder = files.GetParentFolderName(WScript.ScriptFullName);
eval(files.OpenTextFile(files.BuildPath(folder, "ghosthand_helpers.js")).ReadAll());

// Commands and control ids of the sample host (samples/host/host_ids.h).
var kPageCad = 610, kCadTree = 1100, kMaterial = 1102, kParameterGrid = 1103, kStatusBar = 1090;
var kLeftButton = 1;
var kRed = 208 + 64 * 0x100 + 56 * 0x10000;
// What a recorder noted: the camera, the size of the view, and a click on the input shaft.
var kCamera = "yaw=-35.00 pitch=25.00 zoom=1.000";
var kWidth = 500, kHeight = 400, kClickX = 223, kClickY = 181;

run(function () {
    var host = mainWindow("sample_host");
    host.Command(kPageCad);
    var page = host.ActiveDocument();
    WScript.Echo("Page:           '" + page.Text + "'");
    changeParts(page.CADTree(kCadTree));
    setParameters(page);
    replayClick(host, page.CADView());
    new ActiveXObject("Ghosthand.Ghosthand").UnblockMouse();
});

function changeParts(tree) {
    var wall = tree.ItemByPath("Gearbox|Housing|Right wall");
    wall.Visible = false;
    expect("Wall visible", wall.Visible, false);
    var shaft = tree.ItemByPath("Gearbox|Shafts|Input shaft");
    shaft.Color = kRed;
    expect("Shaft colour", shaft.Color, kRed);
    tree.ItemByPath("Gearbox|Housing|Base plate").Checked = true;
    expect("Selected", tree.SelectItemByPath("Gearbox|Shafts|Output shaft"), true);
}

function setParameters(page) {
    var grid = page.GXGrid(kParameterGrid);
    var rows = {};
    for (var row = 1; row <= grid.RowsCount; ++row) rows[grid.GetText(row, 1)] = row;
    var diameter = rows["Shaft diameter"];
    grid.SetText(diameter, 2, "40");
    expect("Shaft diameter", grid.GetText(diameter, 2), "40");
    expect("Mass read-only", grid.IsReadOnly(rows["Mass"], 2), true);
    var material = page.GroupCombo(kMaterial);
    material.SelectItemByName("Metals", "Brass");
    expect("Material", material.HeadingText + " > " + material.Text, "Metals > Brass");
}

function replayClick(host, view) {
    view.SetCameraPosition(kCamera, kWidth, kHeight);
    expect("Camera", view.CameraPosition, kCamera);
    view.MouseDown(kLeftButton, 200, 60, kWidth, kHeight);
    view.MouseMove(290, 80, kWidth, kHeight);
    view.MouseUp(kLeftButton, 290, 80, kWidth, kHeight);
    expect("Drag orbits", view.CameraPosition !== kCamera, true);
    view.SetCameraPosition(kCamera, kWidth, kHeight);
    view.Click(kLeftButton, kClickX, kClickY, kWidth, kHeight);
    expect("Status bar", host.ChildWindow("", "msctls_statusbar32", kStatusBar).Text, "Picked Input shaft");
}
