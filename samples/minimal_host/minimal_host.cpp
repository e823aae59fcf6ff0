// The smallest program that scripts can drive in its own controls: names of windows, a grid, and a tree whose
// parts have a check and a colour. Copy what you need; it takes C++11, the system and this one header. A
// script that drives it is minimal_host.vbs; the whole contract is in docs/making-a-program-scriptable.md.
#include <windows.h>

#include <commctrl.h>

#include <ghosthand/host_contract.h>

#include <string>
#include <vector>

namespace contract = ghosthand::host_contract;

namespace {

// What the program is about: parts and parameters

struct Part {
    const char* name;
    bool visible;
    bool checked;
    bool starred;
    COLORREF color;
};

struct Parameter {
    std::string name;
    std::string value;
    bool readOnly;
};

std::vector<Part> parts = {{"Plate", true, false, false, RGB(160, 160, 160)},
                           {"Bolt", true, false, false, RGB(90, 90, 200)},
                           {"Nut", true, false, false, RGB(90, 200, 90)}};
std::vector<Parameter> parameters = {{"Length", "120", false}, {"Width", "80", false}, {"Mass", "1.5", true}};

HWND partsTree, parameterGrid;

// Messages: register each name once, compare with the number in the window procedure

const UINT kGetWindowByName = RegisterWindowMessageA(contract::message_name::kGetWindowByName);
const UINT kGridRequest = RegisterWindowMessageA(contract::message_name::kGrid);
const UINT kTreeRequest = RegisterWindowMessageA(contract::message_name::kCadTree);

// Names of windows. Sent to the main window: the window that has the name in an atom.

HWND WindowOfName(ATOM atom) {
    char name[256] = "";
    GlobalGetAtomNameA(atom, name, sizeof name); // the atom belongs to the sender
    // Without regard to case: an atom keeps the case in which some program added it first.
    if (lstrcmpiA(name, "parts") == 0)
        return partsTree;
    if (lstrcmpiA(name, "parameters") == 0)
        return parameterGrid;
    return nullptr;
}

// The grid. A row is a parameter: name, value.

constexpr int kColumns = 2;
constexpr int kRowHeight = 20;

LRESULT AnswerAboutCell(WPARAM request, contract::grid::CellRequest& cell) {
    // Counted from 1, and not to be trusted: it comes from another program.
    if (cell.row < 1 || cell.row > static_cast<int>(parameters.size()) || cell.column < 1 ||
        cell.column > kColumns)
        return 0;
    Parameter& parameter = parameters[static_cast<std::size_t>(cell.row) - 1];
    const bool readOnly = cell.column == 1 || parameter.readOnly;
    switch (request) {
    case contract::grid::kGetCellText:
        contract::WriteText(cell.buffer, cell.column == 1 ? parameter.name : parameter.value, GetACP(),
                            IsDBCSLeadByte);
        return 1;
    case contract::grid::kSetCellText:
        if (readOnly)
            return 0;
        parameter.value = contract::ReadText(cell.buffer);
        InvalidateRect(parameterGrid, nullptr, TRUE);
        return 1;
    case contract::grid::kCellReadOnly:
        contract::WriteText(cell.buffer, readOnly ? "1" : "0", GetACP(), IsDBCSLeadByte);
        return 1;
    default:
        return 0;
    }
}

LRESULT AnswerAboutGrid(WPARAM request, LPARAM lParam) {
    switch (request) {
    case contract::grid::kProbe:
        return contract::kProbeAnswer;
    case contract::grid::kColumnCount:
        return kColumns;
    case contract::grid::kRowCount:
        return static_cast<LRESULT>(parameters.size());
    default:
        return lParam != 0 ? AnswerAboutCell(request, *reinterpret_cast<contract::grid::CellRequest*>(lParam))
                           : 0;
    }
}

void PaintGrid(HWND grid) {
    PAINTSTRUCT paint;
    const HDC canvas = BeginPaint(grid, &paint);
    int y = 0;
    for (const Parameter& parameter : parameters) {
        TextOutA(canvas, 4, y + 2, parameter.name.data(), static_cast<int>(parameter.name.size()));
        TextOutA(canvas, 104, y + 2, parameter.value.data(), static_cast<int>(parameter.value.size()));
        y += kRowHeight;
    }
    EndPaint(grid, &paint);
}

LRESULT CALLBACK GridProcedure(HWND grid, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == kGridRequest)
        return AnswerAboutGrid(wParam, lParam);
    if (message == WM_PAINT) {
        PaintGrid(grid);
        return 0;
    }
    return DefWindowProcA(grid, message, wParam, lParam);
}

// The tree. A tree view of the system's; only what it does not know of a part is asked here.

// The part of an item. What another program says to be an item need not be one.
Part* PartOf(LPARAM lParam) {
    TVITEMA item = {};
    item.mask = TVIF_PARAM;
    item.hItem = reinterpret_cast<HTREEITEM>(lParam);
    const bool exists = item.hItem != nullptr && TreeView_GetItem(partsTree, &item) != FALSE;
    return exists ? &parts[static_cast<std::size_t>(item.lParam)] : nullptr;
}

LRESULT AnswerAboutTree(WPARAM request, LPARAM lParam) {
    namespace tree = contract::cad_tree;
    if (request == tree::kProbe)
        return contract::kProbeAnswer;
    if (request == tree::kSetColor) {
        const auto* color = reinterpret_cast<const tree::ColorRequest*>(lParam);
        Part* const part = color != nullptr ? PartOf(static_cast<LPARAM>(color->item)) : nullptr;
        if (part != nullptr)
            part->color = static_cast<COLORREF>(color->color);
        return part != nullptr;
    }
    Part* const part = PartOf(lParam);
    if (part == nullptr)
        return 0;
    switch (request) {
    case tree::kGetVisible:
        return part->visible;
    case tree::kGetChecked:
        return part->checked;
    case tree::kGetStarred:
        return part->starred;
    case tree::kGetColor:
        return static_cast<LRESULT>(part->color);
    case tree::kShow:
    case tree::kHide:
        part->visible = request == tree::kShow;
        return 1;
    case tree::kCheck:
    case tree::kUncheck:
        part->checked = request == tree::kCheck;
        TreeView_SetCheckState(partsTree, reinterpret_cast<HTREEITEM>(lParam), part->checked);
        return 1;
    case tree::kStar:
    case tree::kUnstar:
        part->starred = request == tree::kStar;
        return 1;
    default:
        return 0; // a request of a later version
    }
}

WNDPROC systemTreeProcedure;

LRESULT CALLBACK TreeProcedure(HWND tree, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == kTreeRequest)
        return AnswerAboutTree(wParam, lParam);
    return CallWindowProcA(systemTreeProcedure, tree, message, wParam, lParam);
}

// The rest is any program's

void CreateControls(HWND frame) {
    partsTree = CreateWindowA(WC_TREEVIEWA, "", WS_CHILD | WS_VISIBLE | WS_BORDER | TVS_CHECKBOXES, 0, 0, 200,
                              260, frame, reinterpret_cast<HMENU>(1), nullptr, nullptr);
    systemTreeProcedure = reinterpret_cast<WNDPROC>(
        SetWindowLongPtrA(partsTree, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(TreeProcedure)));
    for (std::size_t index = 0; index < parts.size(); ++index) {
        TVINSERTSTRUCTA insertion = {};
        insertion.hInsertAfter = TVI_LAST;
        insertion.item.mask = TVIF_TEXT | TVIF_PARAM;
        insertion.item.pszText = const_cast<char*>(parts[index].name);
        insertion.item.lParam = static_cast<LPARAM>(index);
        SendMessageA(partsTree, TVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&insertion));
    }
    parameterGrid = CreateWindowA("MinimalHostGrid", "", WS_CHILD | WS_VISIBLE | WS_BORDER, 210, 0, 180, 260,
                                  frame, reinterpret_cast<HMENU>(2), nullptr, nullptr);
}

LRESULT CALLBACK FrameProcedure(HWND frame, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == kGetWindowByName)
        return reinterpret_cast<LRESULT>(WindowOfName(static_cast<ATOM>(wParam)));
    if (message == WM_CREATE)
        CreateControls(frame);
    if (message == WM_DESTROY)
        PostQuitMessage(0);
    return DefWindowProcA(frame, message, wParam, lParam);
}

void RegisterClassOf(const char* name, WNDPROC procedure) {
    WNDCLASSA windowClass = {};
    windowClass.lpszClassName = name;
    windowClass.lpfnWndProc = procedure;
    windowClass.hCursor = LoadCursorA(nullptr, MAKEINTRESOURCEA(32512)); // the arrow
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    RegisterClassA(&windowClass);
}

} // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, char*, int) {
    InitCommonControls();
    RegisterClassOf("MinimalHostGrid", GridProcedure);
    RegisterClassOf("MinimalHost", FrameProcedure);
    CreateWindowA("MinimalHost", "Minimal host", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 60, 60, 420, 300, nullptr,
                  nullptr, nullptr, nullptr);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message); // let every message pass, also those that you do not know
    }
    return 0;
}
