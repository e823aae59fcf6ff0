// Drives the sample host: start one sample_host.exe, then run cpp_sample_host.exe.
#include "ghosthand_helpers.h"

using namespace helpers;

// Commands and control ids of the sample host (samples/host/host_ids.h).
constexpr long kPageSettings = 601, kPageContextMenus = 608, kPageTrees = 630, kPageListViews = 631;
constexpr long kEdit = 1001, kCheckBox = 1010, kTriStateBox = 1011, kRadioImperial = 1016;
constexpr long kDropDownList = 1020, kListBox = 1022, kMenuArea = 1085, kPartsTree = 1140, kLayersList = 1151;
constexpr long kDrawSnap = 705;

// Opens a page of the sample host and returns its window.
static Object<IBaseWindow> Page(const Object<IBaseWindow>& host, long command) {
    Get(host, &IBaseWindow::Command, command);
    auto page = Get(host, &IBaseWindow::ActiveDocument, 10);
    std::printf("Page opened:    \"%s\"\n", Get(page, &IBaseWindow::get_Text).c_str());
    return page;
}

static void SetOptions(const Object<IBaseWindow>& host) {
    const auto dialog = OpenDialog(host, kPageSettings);
    std::printf("Dialog opened:  \"%s\"\n", Get(dialog, &IBaseWindow::get_Text).c_str());
    const auto edit = Get(dialog, &IBaseWindow::Edit, kEdit, 0, 10);
    Check(edit->put_Text(Text("New setting")));
    Expect("Field:", Get(edit, &IBaseWindow::get_Text), "New setting");
    const auto box = Get(dialog, &IBaseWindow::CheckBox, Text(""), kCheckBox, 0, 10);
    Check(box->put_Checked(Get(box, &ICheckBox::get_Checked) ? VARIANT_FALSE : VARIANT_TRUE));
    Check(box->put_Checked(VARIANT_TRUE));
    Expect("Check box:", Get(box, &ICheckBox::get_Checked), true);
    const auto threeStates = Get(dialog, &IBaseWindow::CheckBox, Text(""), kTriStateBox, 0, 10);
    Check(threeStates->put_CheckedState(ghINDETERMINATE));
    ghCheckBoxState state = ghUNCHECKED;
    Check(threeStates->get_CheckedState(&state));
    Expect("Three states:", state, ghINDETERMINATE);
    Check(Get(dialog, &IBaseWindow::Button, Text(""), kRadioImperial, 0, 10)->Click(1, 1, 1, 0));
    const auto combo = Get(dialog, &IBaseWindow::ComboBox, kDropDownList, 0, 10);
    Get(combo, &IComboBox::SelectItem, 1);
    Expect("Combo box:", Get(combo, &IBaseWindow::get_Text), Get(combo, &IComboBox::GetItem, 1));
    const auto list = Get(dialog, &IBaseWindow::ListBox, kListBox, 0, 10);
    Get(list, &IListBox::SelectItem, 2);
    Expect("List box:", Get(list, &IListBox::get_SelectedItem), 2);
    Check(dialog->Close());
    Expect("Dialog gone:", WaitUntilGone(dialog), true);
}

static void UseMenus(const Object<IBaseWindow>& host) {
    Check(host->MenuChars(Text("ha"), 200)); // Alt, H, A: Help, About
    const auto about = Get(host, &IBaseWindow::ActiveDialog, 10);
    std::printf("Menu opened:    \"%s\"\n", Get(about, &IBaseWindow::get_Text).c_str());
    Check(about->Close());

    const auto page = Page(host, kPageContextMenus);
    const auto area = Get(page, &IBaseWindow::ChildWindow, Text(""), Text(""), kMenuArea, 0, 10);
    const auto snap = [&area] {
        const auto menu = Get(area, &IBaseWindow::ContextMenu, 10, 10);
        return Get(menu, &IControlBar::GetItemByID, Text("Snap"), kDrawSnap, 0, 10);
    };
    const auto item = snap();
    const bool wasChecked = Get(item, &IControlBarItem::get_Checked);
    Check(item->Click(1, 1, 1));
    Expect("Snap marked:", Get(snap(), &IControlBarItem::get_Checked), !wasChecked);
    Check(Get(host, &IBaseWindow::CurrentContextMenu, 10)->CloseMenu());
}

static void UseTree(const Object<ITreeControl>& tree) {
    const auto first = Get(tree, &ITreeControl::ItemByNumPath, Text("1"));
    Check(first->put_Selected(VARIANT_TRUE));
    Expect("Tree item:", Get(Get(tree, &ITreeControl::get_SelectedItem), &ITreeItem::get_Text),
           Get(first, &ITreeItem::get_Text));
    Check(first->put_Expanded(VARIANT_TRUE));
    Expect("Expanded:", Get(first, &ITreeItem::get_Expanded), true);
}

static void UseList(const Object<IListView>& layers) {
    Expect("List view:", Get(layers, &IListBox::SelectItemByName, Text("Layer 1")), true);
    const long selected = Get(layers, &IListBox::get_SelectedItem);
    Expect("Selected:", Get(layers, &IListBox::GetItem, selected), "Layer 1");
    Get(layers, &IListView::CheckItemByName, Text("Layer 10"));
    Expect("Checked:", Get(layers, &IListView::IsChecked, Get(layers, &IListBox::get_SelectedItem) + 1),
           true);
}

static void Story() {
    const auto host = MainWindow("sample_host");
    std::printf("Main window:    \"%s\"\n", Get(host, &IBaseWindow::get_Text).c_str());
    Check(host->FitSize(900, 600));
    Expect("Client width:", Get(host, &IBaseWindow::get_Width), 900);
    SetOptions(host);
    UseMenus(host);
    UseTree(Get(Page(host, kPageTrees), &IBaseWindow::TreeCtrl, kPartsTree, 0, 10));
    UseList(Get(Page(host, kPageListViews), &IBaseWindow::ListView, kLayersList, 0, 10));
}

int main() {
    return Run(Story);
}
