#include "fault/steps.h"

#include <algorithm>

namespace fault_tests {

namespace {

// Numbers: samples/host/host_ids.h. The status bar tells the last command; 404 is one without effect.
constexpr char kStatus[] = "status = host.ChildWindow('', '', 1090); host.Command(404); ";
constexpr char kHost[] = "sample_host";

constexpr Step kSteps[] = {
    // In the middle of these, everything happens.
    {"tree text", kHost, "host.Command(630); tree = host.WindowByID('Trees', 5).TreeCtrl(1140)",
     "tree.ItemByPath('Box|Hole 2|Thread').Text", "Thread", "Trees", 0, 10, true},
    {"list view text", kHost, "host.Command(631); list = host.WindowByID('List views', 5).ListView(1150)",
     "list.GetSubItem(3, 1)", "Aluminium", "List views", 0, 10, true},
    {"tool bar button", kHost, "bar = host.Toolbar('', 1080)", "bar.GetItemByID('Measure', 0, 0, 1).Enabled",
     "True", "Frame", 1, 10, true},
    {"grid cell", kHost, "host.Command(610); grid = host.WindowByID('CAD', 5).GXGrid(1103)",
     "grid.SetText(1, 2, '41'); grid.GetText(1, 2)", "41", "CAD", 0, 10, true},
    {"synchronisation", kHost, "edit = host.WindowByID('Document 1.1001', 5)",
     "edit.Click(1, 5, 5); edit.Enabled", "True", "Document 1", 0, 5, true},
    {"menu walk", kHost, "", "host.MenuIndex('3.3', 20); status.Text", "Command 303", "Frame", 0, 3, true},
    {"popup walk", kHost, "bar = host.Toolbar('', 1082)",
     "bar.GetItemByID('Hatch', 0, 0, 1).Expand().GetItemByID('Lines', 0, 0, 1).Click(); status.Text",
     "Command 710", "Frame", 1, 3, true},
    {"popup by clicks", kHost, "bar = host.Toolbar('', 1081)",
     "bar.GetItemByID('Arc', 0, 0, 1).Expand().GetItemByID('Center', 0, 0, 1).Click(); status.Text",
     "Command 707", "Frame", 1, 3, true},
    {"context menu", kHost,
     "host.Command(608); area = host.WindowByID('Context menus', 5).ChildWindow('', '', 1085)",
     "menu = area.ContextMenu(10, 10); menu.GetItemByID('Circle', 0, 0, 1).Enabled; menu.CloseMenu()", "",
     "Context menus", 1, 3, true},
    {"wait for a dialog", kHost, "", "host.ActiveDialog(1)", "Nothing", "Frame", 1, 0, true},
    {"wait for a child", kHost, "host.Command(630); page = host.WindowByID('Trees', 5)",
     "page.ChildWindow('never', '', 0, 0, 1)", "Nothing", "Trees", 1, 0, true},
    {"wait for enabled", kHost,
     "item = host.Toolbar('', 1081).GetItemByID('Spline', 0, 0, 1); item.EnabledTimeout = 1", "item.Click()",
     "Click: 80020009", "Frame", 1, 0, true},
    {"held keys", kHost, "bar = host.Toolbar('', 1081)", "bar.Click(1, 10, 10, 12); status.Text",
     "Command 701", "Frame", 0, 3, true},
    {"real click", kHost, "bar = host.Toolbar('', 1081)", "bar.Click(1, 10, 10, 128); status.Text",
     "Command 701", "Frame", 0, 3, true},
    {"press and release", kHost, "host.Command(610); view = host.WindowByID('CAD', 5).CADView(5)",
     "view.MouseDown(1, 20, 20, 500, 400); view.MouseUp(1, 20, 20, 500, 400)", "", "CAD", 0, 2, true},
    {"camera", kHost, "host.Command(610); view = host.WindowByID('CAD', 5).CADView(5)",
     "view.SetCameraPosition('yaw=-35.00 pitch=25.00 zoom=1.000'); view.CameraPosition",
     "yaw=-35.00 pitch=25.00 zoom=1.000", "CAD", 0, 5, true},
    {"text", kHost, "edit = host.WindowByID('Document 1.1001', 5)", "edit.Text = 'typed'; edit.Text", "typed",
     "Document 1", 0, 10, true},
    {"file dialog", kHost, "host.Command(626); dialog = host.OpenSaveDialog(5)",
     "dialog.File('part'); status.Text", "Opened: part", "Open drawing", 0, 3, true},
    {"window by name", kHost, "", "host.WindowByID('CAD.1103', 0).ControlID", "1103", "Frame", 0, 5, true},
    {"main window", kHost, "", "ghosthand.MainWindow('sample_host', '', '', 0, 2).Visible", "True", "Frame",
     1, 5, true},
    {"model tree", kHost, "host.Command(610); tree = host.WindowByID('CAD', 5).CADTree(1100)",
     "item = tree.ItemByPath('Gearbox|Housing'); item.Starred = True; item.Starred", "True", "CAD", 0, 5,
     true},

    // More members for the soak.
    {"list box", kHost, "host.Command(620); list = host.WindowByID('List boxes', 5).ListBox(1201)",
     "list.SelectItem(1); list.SelectItem(2); list.GetItem(2); list.SelectedItem; list.IsSelected(2)", "True",
     "List boxes", 0, 5},
    {"combo box", kHost, "host.Command(621); combo = host.WindowByID('Combo boxes', 5).ComboBox(1020)",
     "combo.SelectItemByName('Contour'); combo.SelectItem(5); combo.GetItemCount(); combo.GetItem(4)",
     "R&D notes", "Combo boxes", 0, 5},
    {"tabs", kHost, "host.Command(622); tab = host.WindowByID('Tabs', 5).TabCtrl(1220)",
     "tab.SelectItem(2); tab.SelectItemByName('Geometry'); tab.GetItem(3)", "R&D", "Tabs", 0, 5},
    {"track bar", kHost, "host.Command(623); bar = host.WindowByID('Track bars', 5).TrackBar(1230)",
     "bar.Pos = 40; bar.Pos = 50; bar.Pos", "50", "Track bars", 0, 5},
    {"check box", kHost, "host.Command(624); box = host.WindowByID('Check boxes', 5).CheckBox('', 1010)",
     "box.Checked = True; box.Checked = False; box.CheckedState", "0", "Check boxes", 0, 5},
    {"list view selection", kHost,
     "host.Command(631); list = host.WindowByID('List views', 5).ListView(1150)",
     "list.SelectItemByName('Bear'); list.SelectItem(3); list.AddToSelection(1); list.IsSelected(3)", "True",
     "List views", 0, 5},
    {"tree selection", kHost, "host.Command(630); tree = host.WindowByID('Trees', 5).TreeCtrl(1141)",
     "tree.SelectItem('1'); item = tree.SelectedItem; item.Expanded = True; item.Expanded = False; item.Text",
     "Box", "Trees", 0, 5},
    {"group combo", kHost, "host.Command(610); combo = host.WindowByID('CAD', 5).GroupCombo(1102)",
     "combo.SelectItemByName('Metals', 'Brass'); combo.HeadingText", "Metals", "CAD", 0, 5},
    {"size and place", kHost, "host.Command(630); page = host.WindowByID('Trees', 5)",
     "page.position(10, 10); page.Left; page.Parent.Visible; page.Width; page.Enabled", "True", "Trees", 0,
     5},
    {"searches", kHost, "host.Command(630); page = host.WindowByID('Trees', 5)",
     "host.Edit(1001, 64).Visible; host.ActiveDocument(1).Visible; host.Button('none', 0, 64, 0); "
     "page.ChildWindow('', '', 1140).ControlID",
     "1140", "Trees", 0, 5},
    {"dialog", kHost, "host.Command(602)", "dialog = host.ActiveDialog(5); dialog.Close(); host.Enabled",
     "True", "Frame", 0, 3},
    {"accessible object", kHost, "", "object = host.AccessibleObject; host.Visible", "True", "Frame", 0, 3},
    {"real move", kHost, "host.Command(610); view = host.WindowByID('CAD', 5).CADView(5)",
     "view.MouseMove(30, 30, 500, 400); view.Click(1, 20, 20, 500, 400)", "", "CAD", 0, 2},
    {"members that find nothing", kHost,
     "host.Command(630); tree = host.WindowByID('Trees', 5).TreeCtrl(1140)",
     "tree.SelectItem('9'); tree.SelectItemByPath(''); tree.ItemByNum(999)", "Nothing", "Trees", 0, 3},

#ifdef DRIVE_WINE_PROGRAMS // programs with these controls and commands
    {"notepad text", "notepad", "edit = host.Edit()", "edit.Text = 'typed'; edit.Text", "typed", "", 0, 10,
     true},
    {"notepad click", "notepad", "edit = host.Edit()",
     "edit.Click(1, 5, 5, 128); edit.Click(1, 40, 5, 4); "
     "edit.Enabled",
     "True", "", 0, 5, true},
    {"notepad menu", "notepad", "",
     "host.MenuIndex('5.2', 20); dialog = host.ActiveDialog(5); dialog.Close(); "
     "host.Enabled",
     "True", "", 0, 3, true},
    {"wordpad tool bar", "wordpad", "bar = host.Toolbar('', 2003, 64)",
     "item = bar.GetItemByID('', 1400, 0, 1); item.Checked = True; item.Checked = False; item.Checked",
     "False", "", 1, 5, true},
    {"regedit tree", "regedit", "tree = host.TreeCtrl(0, 64)", "tree.ItemByNumPath('1/3').Text",
     "HKEY_LOCAL_MACHINE", "", 0, 10, true},
    {"regedit list", "regedit", "host.TreeCtrl(0, 64).SelectItem('1/1'); list = host.ListView(0, 64)",
     "list.ItemsCount; list.GetItem(0)", "(Default)", "", 0, 10, true},
#endif
};

} // namespace

std::span<const Step> Steps() {
    return kSteps;
}

std::string SetupOf(const Step& step) {
    std::string lines = "host = ghosthand.MainWindow('";
    lines += step.program;
    lines += "', '', '', 0, 20); ";
    if (step.program == std::string(kHost))
        lines += kStatus;
    return lines + step.setup;
}

std::string Mismatch(const Step& step, const std::string& result) {
    std::string text;
    if (result != step.expected)
        text.append("\"").append(result).append("\" instead of \"").append(step.expected).append("\"");
    return text;
}

std::vector<GlobalAtom> LastingAtoms() {
    auto atoms = GlobalAtoms();
    std::erase_if(atoms, [](const GlobalAtom& atom) {
        const std::string quoted = "'" + atom.name + "'";
        return atom.name.starts_with("yaw=") || std::ranges::any_of(kSteps, [&](const Step& step) {
                   return std::string(step.setup).find(quoted) != std::string::npos ||
                          std::string(step.lines).find(quoted) != std::string::npos;
               });
    });
    return atoms;
}

void Settle(const DrivenProgram& program) {
    Sleep(GetDoubleClickTime()); // the next click is no second one
    for (int level = 0; level < 3; ++level) {
        PostMessageA(program.Frame(), WM_KEYDOWN, VK_ESCAPE, 1);
        PostMessageA(program.Frame(), WM_KEYUP, VK_ESCAPE, 1);
    }
    PostMessageA(program.Frame(), WM_CANCELMODE, 0, 0);
    if (program.IsSampleHost()) {
        for (HWND dialog = nullptr;
             (dialog = program.Window("Open drawing")) != nullptr && IsWindow(dialog);) {
            DWORD_PTR answer = 0;
            if (!SendMessageTimeoutA(dialog, WM_CLOSE, 0, 0, SMTO_NORMAL, 5000, &answer))
                return;
        }
    }
    // The registry editor's and the notepad's own boxes, which stand before their main windows.
    const HWND popup = GetLastActivePopup(program.Frame());
    if (popup != program.Frame() && !program.IsSampleHost())
        PostMessageA(popup, WM_CLOSE, 0, 0);
    program.Answers();
}

} // namespace fault_tests
