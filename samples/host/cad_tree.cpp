#include "cad_tree.h"

#include "cad_model.h"
#include "host_ids.h"

#include <ghosthand/host_contract.h>

#include <algorithm>
#include <commctrl.h>
#include <cstring>
#include <optional>
#include <vector>

namespace sample_host {
namespace {

namespace cad_tree = ghosthand::host_contract::cad_tree;

const UINT kCadTreeRequest = RegisterWindowMessageA(ghosthand::host_contract::message_name::kCadTree);

// The index of a tree item in the model. What another program says to be an item need not be one.
std::optional<int> ModelItem(HWND tree, LPARAM lParam) {
    TVITEMA item{};
    item.mask = TVIF_PARAM;
    item.hItem = reinterpret_cast<HTREEITEM>(lParam);
    if (!item.hItem || !TreeView_GetItem(tree, &item))
        return std::nullopt;
    return static_cast<int>(item.lParam);
}

// The boxes of the tree are its state images: 1 is empty, 2 is checked.
void ShowCheck(HWND tree, HTREEITEM item, bool checked) {
    TreeView_SetItemState(tree, item, INDEXTOSTATEIMAGEMASK(checked ? 2 : 1), TVIS_STATEIMAGEMASK);
}

LRESULT AnswerSetColor(HWND tree, LPARAM lParam) {
    if (!lParam)
        return 0;
    const auto& request = *reinterpret_cast<const cad_tree::ColorRequest*>(lParam);
    const auto item = ModelItem(tree, static_cast<LPARAM>(request.item));
    if (!item)
        return 0;
    SetColor(*item, static_cast<COLORREF>(request.color));
    ModelChanged();
    return 1;
}

// Answers a request about one item; 0 for a request that this program does not know.
LRESULT AnswerAboutItem(HWND tree, WPARAM request, LPARAM lParam) {
    const auto index = ModelItem(tree, lParam);
    if (!index)
        return 0;
    auto& item = ModelItems()[*index];
    switch (request) {
    case cad_tree::kGetVisible:
        return item.visible;
    case cad_tree::kGetChecked:
        return item.checked;
    case cad_tree::kGetColor:
        return static_cast<LRESULT>(item.color);
    case cad_tree::kGetStarred:
        return item.starred;
    case cad_tree::kShow:
    case cad_tree::kHide:
        item.visible = request == cad_tree::kShow;
        break;
    case cad_tree::kCheck:
    case cad_tree::kUncheck:
        item.checked = request == cad_tree::kCheck;
        ShowCheck(tree, reinterpret_cast<HTREEITEM>(lParam), item.checked);
        break;
    case cad_tree::kStar:
    case cad_tree::kUnstar:
        item.starred = request == cad_tree::kStar;
        break;
    default:
        return 0;
    }
    ModelChanged();
    return 1;
}

LRESULT Answer(HWND tree, WPARAM request, LPARAM lParam) {
    switch (request) {
    case cad_tree::kProbe:
        return ghosthand::host_contract::kProbeAnswer;
    case cad_tree::kSetColor:
        return AnswerSetColor(tree, lParam);
    default:
        return AnswerAboutItem(tree, request, lParam);
    }
}

void OpenMenu(HWND tree, POINT screenPoint) {
    TVHITTESTINFO hit{};
    hit.pt = screenPoint;
    ScreenToClient(tree, &hit.pt);
    const HTREEITEM item = TreeView_HitTest(tree, &hit);
    const auto index = ModelItem(tree, reinterpret_cast<LPARAM>(item));
    const HMENU menu = CreatePopupMenu();
    if (index) {
        const auto& chosen = ModelItems()[*index];
        TreeView_SelectItem(tree, item);
        AppendMenuA(menu, MF_STRING | (chosen.visible ? MF_CHECKED : 0), ids::kItemVisible, "&Visible");
        AppendMenuA(menu, MF_STRING | (chosen.starred ? MF_CHECKED : 0), ids::kItemStarred, "&Starred");
        AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
        AppendMenuA(menu, MF_STRING, ids::kItemRed, "&Red");
        AppendMenuA(menu, MF_STRING, ids::kItemGreen, "&Green");
        AppendMenuA(menu, MF_STRING, ids::kItemBlue, "&Blue");
    } else {
        AppendMenuA(menu, MF_STRING, ids::kPartsShowAll, "Show &all parts");
    }
    TrackPopupMenu(menu, TPM_RIGHTBUTTON, screenPoint.x, screenPoint.y, 0, tree, nullptr);
    DestroyMenu(menu);
}

void OnCommand(HWND tree, unsigned command) {
    const auto selected = ModelItem(tree, reinterpret_cast<LPARAM>(TreeView_GetSelection(tree)));
    auto& items = ModelItems();
    if (command == ids::kPartsShowAll)
        std::ranges::for_each(items, [](auto& item) { item.visible = true; });
    if (!selected)
        return ModelChanged();
    switch (command) {
    case ids::kItemVisible:
        items[*selected].visible = !items[*selected].visible;
        break;
    case ids::kItemStarred:
        items[*selected].starred = !items[*selected].starred;
        break;
    case ids::kItemRed:
        SetColor(*selected, RGB(208, 64, 56));
        break;
    case ids::kItemGreen:
        SetColor(*selected, RGB(72, 160, 72));
        break;
    case ids::kItemBlue:
        SetColor(*selected, RGB(56, 104, 200));
        break;
    default:
        break;
    }
    ModelChanged();
}

// After a click or a key that may have toggled a box.
void TakeChecks(HWND tree, HTREEITEM item) {
    for (; item; item = TreeView_GetNextSibling(tree, item)) {
        if (const auto index = ModelItem(tree, reinterpret_cast<LPARAM>(item)))
            ModelItems()[*index].checked = TreeView_GetCheckState(tree, item) == 1;
        TakeChecks(tree, TreeView_GetChild(tree, item));
    }
}

LRESULT OnMessage(HWND tree, UINT message, WPARAM wParam, LPARAM lParam, const NextProcedure& next) {
    if (message == kCadTreeRequest)
        return Answer(tree, wParam, lParam);
    switch (message) {
    case WM_CONTEXTMENU:
        OpenMenu(tree, {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))});
        return 0;
    case WM_COMMAND:
        OnCommand(tree, LOWORD(wParam));
        return 0;
    case WM_LBUTTONDOWN:
    case WM_KEYDOWN: {
        const LRESULT result = next(tree, message, wParam, lParam);
        TakeChecks(tree, TreeView_GetRoot(tree));
        ModelChanged();
        return result;
    }
    default:
        break;
    }
    return next(tree, message, wParam, lParam);
}

// Hidden items are grey, others have their part's colour beside the label, starred ones an asterisk.
LRESULT DrawItem(NMTVCUSTOMDRAW& drawing) {
    if (drawing.nmcd.dwDrawStage == CDDS_PREPAINT)
        return CDRF_NOTIFYITEMDRAW;
    const auto index = static_cast<int>(drawing.nmcd.lItemlParam);
    if (index < 0 || index >= static_cast<int>(ModelItems().size()))
        return CDRF_DODEFAULT;
    if (drawing.nmcd.dwDrawStage == CDDS_ITEMPREPAINT) {
        if (!IsShown(index))
            drawing.clrText = RGB(150, 150, 150);
        return CDRF_NOTIFYPOSTPAINT;
    }
    RECT label{};
    const HTREEITEM item = reinterpret_cast<HTREEITEM>(drawing.nmcd.dwItemSpec);
    std::memcpy(&label, &item, sizeof item);
    if (!SendMessageA(drawing.nmcd.hdr.hwndFrom, TVM_GETITEMRECT, TRUE, reinterpret_cast<LPARAM>(&label)))
        return CDRF_DODEFAULT;
    const auto& shown = ModelItems()[index];
    RECT mark{label.right + 4, label.top + 3, label.right + 14, label.bottom - 3};
    if (shown.shape != Shape::Assembly) {
        SetDCBrushColor(drawing.nmcd.hdc, shown.color);
        FillRect(drawing.nmcd.hdc, &mark, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
    }
    if (shown.starred)
        TextOutA(drawing.nmcd.hdc, mark.right + 4, label.top, "*", 1);
    return CDRF_DODEFAULT;
}

void Fill(HWND tree) {
    const auto& items = ModelItems();
    std::vector<HTREEITEM> inserted;
    for (std::size_t index = 0; index < items.size(); ++index) {
        TVINSERTSTRUCTA item{};
        item.hParent = items[index].parent < 0 ? TVI_ROOT : inserted[items[index].parent];
        item.hInsertAfter = TVI_LAST;
        item.item.mask = TVIF_TEXT | TVIF_PARAM;
        item.item.pszText = const_cast<char*>(items[index].name.c_str());
        item.item.lParam = static_cast<LPARAM>(index);
        inserted.push_back(TreeView_InsertItem(tree, &item));
        ShowCheck(tree, inserted.back(), items[index].checked);
    }
    for (const HTREEITEM item : inserted)
        TreeView_Expand(tree, item, TVE_EXPAND);
}

} // namespace

HWND AddCadTree(HWND parent, Area area, int id) {
    const HWND tree = AddControl(parent, {.className = WC_TREEVIEWA,
                                          .text = "Model",
                                          .style = TVS_HASLINES | TVS_LINESATROOT | TVS_HASBUTTONS |
                                                   TVS_SHOWSELALWAYS | WS_BORDER | WS_TABSTOP,
                                          .area = area,
                                          .id = id,
                                          .behaviour = OnMessage});
    // Set after the creation, as the system wants it.
    SetWindowLongPtrA(tree, GWL_STYLE, GetWindowLongPtrA(tree, GWL_STYLE) | TVS_CHECKBOXES);
    Fill(tree);
    ShowsModel(tree);
    return tree;
}

bool OnCadTreeNotify(const NMHDR& notification, LRESULT& result) {
    switch (notification.code) {
    case static_cast<UINT>(NM_CUSTOMDRAW):
        result = DrawItem(const_cast<NMTVCUSTOMDRAW&>(reinterpret_cast<const NMTVCUSTOMDRAW&>(notification)));
        return true;
    case static_cast<UINT>(TVN_SELCHANGEDA):
        SelectItem(static_cast<int>(reinterpret_cast<const NMTREEVIEWA&>(notification).itemNew.lParam));
        return true;
    default:
        return false;
    }
}

} // namespace sample_host
