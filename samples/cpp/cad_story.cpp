// A story in the sample host's CAD page: start one sample_host.exe, then run cpp_cad_story.exe.
// Hides a part, colours another, sets a parameter and the material, restores a camera and replays a recorded
// click. Leave the mouse alone meanwhile: the view is driven with the real cursor.
#include "ghosthand_helpers.h"

using namespace helpers;

// Commands and control ids of the sample host (samples/host/host_ids.h).
constexpr long kPageCad = 610, kCadTree = 1100, kMaterial = 1102, kParameterGrid = 1103, kStatusBar = 1090;
constexpr long kLeftButton = 1;
constexpr long kRed = RGB(208, 64, 56);
// What a recorder noted: the camera, the size of the view, and a click on the input shaft.
constexpr char kCamera[] = "yaw=-35.00 pitch=25.00 zoom=1.000";
constexpr long kWidth = 500, kHeight = 400, kClickX = 223, kClickY = 181;

static Object<ICADTreeItem> Part(const Object<ITreeControl>& tree, const char* path) {
    return Get(tree, &ITreeControl::ItemByPath, Text(path)).As<ICADTreeItem>();
}

static void ChangeParts(const Object<ITreeControl>& tree) {
    const auto wall = Part(tree, "Gearbox|Housing|Right wall");
    Check(wall->put_Visible(VARIANT_FALSE));
    Expect("Wall visible:", Get(wall, &ICADTreeItem::get_Visible), false);
    const auto shaft = Part(tree, "Gearbox|Shafts|Input shaft");
    Check(shaft->put_Color(kRed));
    Expect("Shaft colour:", Get(shaft, &ICADTreeItem::get_Color), kRed);
    Check(Part(tree, "Gearbox|Housing|Base plate")->put_Checked(VARIANT_TRUE));
    Expect("Selected:", Get(tree, &ITreeControl::SelectItemByPath, Text("Gearbox|Shafts|Output shaft")),
           true);
}

static long RowOf(const Object<IGXGrid>& grid, const std::string& name) {
    for (long row = 1; row <= Get(grid, &IGXGrid::get_RowsCount); ++row)
        if (Get(grid, &IGXGrid::GetText, row, 1) == name)
            return row;
    throw std::runtime_error("there is no parameter " + name);
}

static void SetParameters(const Object<IBaseWindow>& page) {
    const auto grid = Get(page, &IBaseWindow::GXGrid, kParameterGrid, 0, 10);
    const long diameter = RowOf(grid, "Shaft diameter");
    Check(grid->SetText(diameter, 2, Text("40")));
    Expect("Shaft diameter:", Get(grid, &IGXGrid::GetText, diameter, 2), "40");
    Expect("Mass read-only:", Get(grid, &IGXGrid::get_IsReadOnly, RowOf(grid, "Mass"), 2), true);
    const auto material = Get(page, &IBaseWindow::GroupCombo, kMaterial, 0, 10);
    Get(material, &IGroupCombo::SelectItemByName, Text("Metals"), Text("Brass"));
    Expect("Material:",
           Get(material, &IGroupCombo::get_HeadingText) + " > " + Get(material, &IBaseWindow::get_Text),
           "Metals > Brass");
}

static void ReplayClick(const Object<IBaseWindow>& host, const Object<ICADView>& view) {
    Check(view->SetCameraPosition(Text(kCamera), kWidth, kHeight));
    Expect("Camera:", Get(view, &ICADView::get_CameraPosition), kCamera);
    Check(view->MouseDown(kLeftButton, 200, 60, kWidth, kHeight, 0));
    Check(view->MouseMove(290, 80, kWidth, kHeight, 0));
    Check(view->MouseUp(kLeftButton, 290, 80, kWidth, kHeight, 0));
    Expect("Drag orbits:", Get(view, &ICADView::get_CameraPosition) != kCamera, true);
    Check(view->SetCameraPosition(Text(kCamera), kWidth, kHeight));
    Check(view->Click(kLeftButton, kClickX, kClickY, kWidth, kHeight, 0));
    const auto status =
        Get(host, &IBaseWindow::ChildWindow, Text(""), Text("msctls_statusbar32"), kStatusBar, 0, 10);
    Expect("Status bar:", Get(status, &IBaseWindow::get_Text), "Picked Input shaft");
}

static void Story() {
    const auto host = MainWindow("sample_host");
    Get(host, &IBaseWindow::Command, kPageCad);
    const auto page = Get(host, &IBaseWindow::ActiveDocument, 10);
    std::printf("Page:           \"%s\"\n", Get(page, &IBaseWindow::get_Text).c_str());
    ChangeParts(Get(page, &IBaseWindow::CADTree, kCadTree, 0, 10));
    SetParameters(page);
    ReplayClick(host, Get(page, &IBaseWindow::CADView, 10));
    Check(CreateGhosthand()->UnblockMouse());
}

int main() {
    return Run(Story);
}
