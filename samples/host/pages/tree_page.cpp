// Tree views: a small one with all kinds of items whose labels can be edited, the same without editing,
// one that is filled when a branch is expanded, and one with 10,000 items.
#include "bar_popup.h"
#include "control.h"
#include "host_ids.h"
#include "mdi_page.h"
#include "tree_items.h"

#include <commctrl.h>
#include <cstring>
#include <string>

namespace sample_host {
namespace {

constexpr int kLargeItems = 10000;
constexpr int kLazyLevels = 3;
constexpr int kLazyChildren = 3;

void AddOutsideCodePage(HWND tree, HTREEITEM parent) {
    wchar_t text[] = L"Caf\u00E9 \u0416";
    TVINSERTSTRUCTW insertion{};
    insertion.hParent = parent;
    insertion.hInsertAfter = TVI_LAST;
    insertion.item.mask = TVIF_TEXT;
    insertion.item.pszText = text;
    SendMessageW(tree, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insertion));
}

// Two overlay images and one state image, each a square of its own colour.
HIMAGELIST SquareImages() {
    constexpr int kSize = 16;
    const HIMAGELIST images = ImageList_Create(kSize, kSize, ILC_COLOR24 | ILC_MASK, 3, 0);
    const HDC screen = GetDC(nullptr);
    const HDC canvas = CreateCompatibleDC(screen);
    for (const COLORREF color : {RGB(96, 128, 192), RGB(192, 64, 64), RGB(64, 160, 64)}) {
        const HBITMAP square = CreateCompatibleBitmap(screen, kSize, kSize);
        const HGDIOBJ before = SelectObject(canvas, square);
        const HBRUSH brush = CreateSolidBrush(color);
        const RECT whole{0, 0, kSize, kSize};
        FillRect(canvas, &whole, GetSysColorBrush(COLOR_WINDOW));
        const bool isOverlay = ImageList_GetImageCount(images) > 0;
        const RECT area = isOverlay ? RECT{0, 8, 8, 16} : RECT{1, 1, 15, 15};
        FillRect(canvas, &area, brush);
        DeleteObject(brush);
        SelectObject(canvas, before);
        ImageList_AddMasked(images, square, GetSysColor(COLOR_WINDOW));
        DeleteObject(square);
    }
    DeleteDC(canvas);
    ReleaseDC(nullptr, screen);
    ImageList_SetOverlayImage(images, 1, 1);
    ImageList_SetOverlayImage(images, 2, 2);
    return images;
}

void SetState(HWND tree, HTREEITEM item, UINT mask, UINT state) {
    TVITEMA change{};
    change.mask = TVIF_STATE;
    change.hItem = item;
    change.stateMask = mask;
    change.state = state;
    SendMessageA(tree, TVM_SETITEMA, 0, reinterpret_cast<LPARAM>(&change));
}

void FillParts(HWND tree) {
    const HTREEITEM box = AddTreeItem(tree, TVI_ROOT, "Box");
    AddTreeItem(tree, box, "Hole 1");
    const HTREEITEM second = AddTreeItem(tree, box, "Hole 2");
    AddTreeItem(tree, second, "Thread");
    AddTreeItem(tree, box, "hole 2"); // differs by case
    const HTREEITEM namesake = AddTreeItem(tree, box, "Hole 2");
    AddTreeItem(tree, namesake, "Never reached by name");
    const HTREEITEM beam = AddTreeItem(tree, TVI_ROOT, "Tr\xE4ger");
    AddTreeItem(tree, beam, "\xC4nderung");
    AddOutsideCodePage(tree, beam);
    AddTreeItem(tree, TVI_ROOT, "Locked");
    const HTREEITEM overlay = AddTreeItem(tree, TVI_ROOT, "Overlay 2");
    SetState(tree, overlay, TVIS_OVERLAYMASK | TVIS_STATEIMAGEMASK,
             INDEXTOOVERLAYMASK(2) | INDEXTOSTATEIMAGEMASK(1));
    const HTREEITEM texts = AddTreeItem(tree, TVI_ROOT, "Long texts");
    for (const std::size_t length : {1022, 1023, 1024, 5000})
        AddTreeItem(tree, texts, std::to_string(length) + std::string(length - 4, 'x'));
}

HWND AddTree(HWND page, int id, DWORD style, const Area& area, SubclassProcedure behaviour = nullptr) {
    return AddControl(page, {.className = WC_TREEVIEWA,
                             .style = TVS_HASLINES | TVS_LINESATROOT | TVS_HASBUTTONS | TVS_SHOWSELALWAYS |
                                      WS_BORDER | WS_TABSTOP | style,
                             .area = area,
                             .id = id,
                             .behaviour = behaviour});
}

void AddPartsTree(HWND page, int id, DWORD style, const Area& area) {
    static const HIMAGELIST images = SquareImages(); // as long as the program
    const HWND tree = AddTree(page, id, style, area);
    SendMessageA(tree, TVM_SETIMAGELIST, TVSIL_NORMAL, reinterpret_cast<LPARAM>(images));
    FillParts(tree);
}

HTREEITEM AddLazyItem(HWND tree, HTREEITEM parent, const std::string& text, bool hasChildren) {
    const HTREEITEM added = AddTreeItem(tree, parent, text);
    TVITEMA change{};
    change.mask = TVIF_CHILDREN;
    change.hItem = added;
    change.cChildren = hasChildren ? 1 : 0;
    SendMessageA(tree, TVM_SETITEMA, 0, reinterpret_cast<LPARAM>(&change));
    return added;
}

HTREEITEM Related(HWND tree, UINT relation, HTREEITEM item) {
    return reinterpret_cast<HTREEITEM>(
        SendMessageA(tree, TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
}

int LevelOf(HWND tree, HTREEITEM item) {
    int level = 0;
    while ((item = Related(tree, TVGN_PARENT, item)) != nullptr)
        ++level;
    return level;
}

void AddLazyChildren(HWND tree, HTREEITEM parent) {
    static constexpr const char* kNames[] = {"Assembly ", "Part ", "Feature "};
    const int level = parent ? LevelOf(tree, parent) + 1 : 0;
    for (int number = 1; number <= kLazyChildren; ++number)
        AddLazyItem(tree, parent ? parent : TVI_ROOT, kNames[level] + std::to_string(number),
                    level + 1 < kLazyLevels);
}

// An item that the program removes as soon as it has been expanded.
LRESULT RemoveExpandedItem(HWND tree, UINT message, WPARAM wParam, LPARAM lParam, const NextProcedure& next) {
    const LRESULT result = next(tree, message, wParam, lParam);
    const auto item = reinterpret_cast<HTREEITEM>(lParam);
    if (message == TVM_EXPAND && TreeItemText(tree, item) == "Vanishing")
        SendMessageA(tree, TVM_DELETEITEM, 0, lParam);
    return result;
}

void AddLazyTree(HWND page) {
    const HWND tree = AddTree(page, ids::kLazyTree, 0, {430, 10, 200, 240}, RemoveExpandedItem);
    AddLazyChildren(tree, nullptr);
    AddTreeItem(tree, TVI_ROOT, "Vanishing");
    AddTreeItem(tree, TVI_ROOT, "Vanishing");
    AddTreeItem(tree, TVI_ROOT, "After it");
}

void AddLargeTree(HWND page) {
    const HWND tree = AddTree(page, ids::kLargeTree, 0, {640, 10, 200, 240});
    SendMessageA(tree, WM_SETREDRAW, FALSE, 0);
    for (int number = 0; number < kLargeItems; ++number)
        AddTreeItem(tree, TVI_ROOT, "Item " + std::to_string(number));
    SendMessageA(tree, WM_SETREDRAW, TRUE, 0);
}

void Build(HWND page) {
    AddPartsTree(page, ids::kPartsTree, TVS_EDITLABELS, {10, 10, 200, 240});
    AddPartsTree(page, ids::kFixedTree, 0, {220, 10, 200, 240});
    AddLazyTree(page);
    AddLargeTree(page);
}

// What the right click hit decides which of the two menus opens.
void OpenMenu(HWND tree, POINT position) {
    TVHITTESTINFO hit{};
    hit.pt = position;
    ScreenToClient(tree, &hit.pt);
    SendMessageA(tree, TVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit));
    if (!hit.hItem) {
        OpenBarPopup(PopupKind::Plain, position, {{.command = ids::kTreeAddItem, .text = "Add item"}},
                     nullptr);
        return;
    }
    OpenBarPopup(PopupKind::Plain, position,
                 {{.command = ids::kTreeRename, .text = "Rename " + TreeItemText(tree, hit.hItem)},
                  {.command = ids::kTreeDelete, .text = "Delete"}},
                 nullptr);
}

LRESULT AnswerNotification(const NMHDR& header) {
    switch (header.code) {
    case TVN_ITEMEXPANDINGA: {
        const HTREEITEM item = reinterpret_cast<const NMTREEVIEWA&>(header).itemNew.hItem;
        const bool isBranch =
            header.idFrom == ids::kLazyTree && LevelOf(header.hwndFrom, item) + 1 < kLazyLevels;
        if (isBranch && !Related(header.hwndFrom, TVGN_CHILD, item))
            AddLazyChildren(header.hwndFrom, item);
        return FALSE;
    }
    case TVN_BEGINLABELEDITA: {
        const auto& editing = reinterpret_cast<const NMTVDISPINFOA&>(header);
        return TreeItemText(header.hwndFrom, editing.item.hItem) == "Locked"; // TRUE refuses
    }
    case TVN_ENDLABELEDITA: {
        const char* text = reinterpret_cast<const NMTVDISPINFOA&>(header).item.pszText;
        return text && *text && *text != '!'; // names of this program do not begin with that
    }
    default:
        return 0;
    }
}

bool Handle(HWND, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (message == WM_NOTIFY) {
        result = AnswerNotification(*reinterpret_cast<const NMHDR*>(lParam));
        return true;
    }
    if (message == WM_CONTEXTMENU) {
        OpenMenu(reinterpret_cast<HWND>(wParam),
                 {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))});
        return true;
    }
    return false;
}

} // namespace

void OpenTreesPage() {
    OpenMdiPage({.name = "Trees",
                 .caption = "Trees",
                 .width = 870,
                 .height = 300,
                 .build = Build,
                 .handler = Handle});
}

} // namespace sample_host
