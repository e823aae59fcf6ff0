// Drives the sample host: start one sample_host.exe, then run "cscript sample_host.js".
var files = new ActiveXObject("Scripting.FileSystemObject");
var folder = files.GetParentFolderName(WScript.ScriptFullName);
eval(files.OpenTextFile(files.BuildPath(folder, "ghosthand_helpers.js")).ReadAll());

// Commands and control ids of the sample host (samples/host/host_ids.h).
var kPageSettings = 601, kPageContextMenus = 608, kPageTrees = 630, kPageListViews = 631;
var kEdit = 1001, kCheckBox = 1010, kTriStateBox = 1011, kRadioImperial = 1016;
var kDropDownList = 1020, kListBox = 1022, kMenuArea = 1085, kPartsTree = 1140, kLayersList = 1151;
var kDrawSnap = 705;

run(function () {
    var host = mainWindow("sample_host");
    WScript.Echo("Main window:    '" + host.Text + "'");
    host.FitSize(900, 600);
    expect("Client size", host.Width + " x " + host.Height, "900 x 600");
    setOptions(host);
    useMenus(host);
    useTree(page(host, kPageTrees).TreeCtrl(kPartsTree));
    useList(page(host, kPageListViews).ListView(kLayersList));
});

// Opens a page of the sample host and returns its window.
function page(host, command) {
    host.Command(command);
    var window = host.ActiveDocument();
    WScript.Echo("Page opened:    '" + window.Text + "'");
    return window;
}

function setOptions(host) {
    var dialog = openDialog(host, kPageSettings);
    WScript.Echo("Dialog opened:  '" + dialog.Text + "'");
    var edit = dialog.Edit(kEdit);
    edit.Text = "New setting";
    expect("Field", edit.Text, "New setting");
    var box = dialog.CheckBox("", kCheckBox);
    box.Checked = !box.Checked;
    box.Checked = true;
    expect("Check box", box.Checked, true);
    box = dialog.CheckBox("", kTriStateBox);
    box.CheckedState = 2;
    expect("Three states", box.CheckedState, 2);
    dialog.Button("", kRadioImperial).Click();
    var combo = dialog.ComboBox(kDropDownList);
    combo.SelectItem(1);
    expect("Combo box", combo.Text, combo.GetItem(1));
    var list = dialog.ListBox(kListBox);
    list.SelectItem(2);
    expect("List box", list.SelectedItem, 2);
    dialog.Close();
    expect("Dialog gone", waitUntilGone(dialog), true);
}

function useMenus(host) {
    host.MenuChars("ha"); // Alt, H, A: Help, About
    var about = host.ActiveDialog();
    WScript.Echo("Menu opened:    '" + about.Text + "'");
    about.Close();

    var area = page(host, kPageContextMenus).ChildWindow("", "", kMenuArea);
    var snap = area.ContextMenu(10, 10).GetItemByID("Snap", kDrawSnap);
    var wasChecked = snap.Checked;
    snap.Click();
    var menu = area.ContextMenu(10, 10);
    expect("Snap marked", menu.GetItemByID("Snap", kDrawSnap).Checked, !wasChecked);
    menu.CloseMenu();
}

function useTree(tree) {
    var first = tree.ItemByNumPath("1");
    first.Selected = true;
    expect("Tree item", tree.SelectedItem.Text, first.Text);
    first.Expanded = true;
    expect("Expanded", first.Expanded, true);
}

function useList(layers) {
    expect("List view", layers.SelectItemByName("Layer 1"), true);
    expect("Selected", layers.GetItem(layers.SelectedItem), "Layer 1");
    layers.CheckItemByName("Layer 10");
    expect("Checked", layers.IsChecked(layers.SelectedItem + 1), true);
}
