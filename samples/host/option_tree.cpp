#include "option_tree.h"

#include "cell_edit.h"
#include "host_ids.h"
#include "host_text.h"

#include <algorithm>
#include <map>
#include <windowsx.h>

namespace sample_host {
namespace {

namespace option_tree = ghosthand::host_contract::option_tree;

const UINT kOptionTreeRequest = RegisterWindowMessageA(ghosthand::host_contract::message_name::kOptionTree);

const UINT kItemAtPoint = RegisterWindowMessageA(ghosthand::host_contract::message_name::kItemAtPoint);

constexpr int kRowHeight = 18; // pixels
constexpr int kIndent = 18;
constexpr int kValueColumn = 200;
constexpr int kRowsPerNotch = 3; // of the wheel

// An identifier is this plus the node's index. It is the host's own choice, all 64 bits of it; an address
// would do, but an index can be checked when it comes back.
constexpr std::uint64_t kFirstIdentifier = 0x5A0000001;

constexpr int kNone = -1;

struct Node {
    Option option; // without the children, which are nodes themselves
    int parent = kNone, firstChild = kNone, nextSibling = kNone;
    int depth = 0;
};

// The nodes in the order in which they are shown; node 0 is the root.
struct Tree {
    std::vector<Node> nodes;
    int scrolled = 0; // rows above the window
};

std::map<HWND, Tree> trees;

void AddNodes(Tree& tree, Option option, int parent) {
    const int index = static_cast<int>(tree.nodes.size());
    const std::vector<Option> children = std::move(option.children);
    tree.nodes.push_back(
        {std::move(option), parent, kNone, kNone, parent == kNone ? -1 : tree.nodes[parent].depth + 1});
    int previous = kNone;
    for (const Option& child : children) {
        const int added = static_cast<int>(tree.nodes.size());
        AddNodes(tree, child, index);
        (previous == kNone ? tree.nodes[index].firstChild : tree.nodes[previous].nextSibling) = added;
        previous = added;
    }
}

// Null for what is no identifier of this tree.
Node* NodeOf(Tree& tree, std::uint64_t identifier) {
    const std::uint64_t index = identifier - kFirstIdentifier;
    return identifier >= kFirstIdentifier && index < tree.nodes.size() ? &tree.nodes[index] : nullptr;
}

LRESULT IdentifierOf(int index) {
    return index == kNone ? 0 : static_cast<LRESULT>(kFirstIdentifier + index);
}

bool SetValue(HWND window, Node& node, const std::string& value) {
    const bool fits = node.option.kind == Option::Kind::CheckBox ? value == "0" || value == "1"
                                                                 : node.option.kind == Option::Kind::Text;
    if (node.option.readOnly || !fits)
        return false;
    node.option.value = value;
    InvalidateRect(window, nullptr, TRUE);
    return true;
}

// Answers a request with a text. The record lies in memory of this program.
LRESULT AnswerTextRequest(HWND window, WPARAM request, LPARAM lParam) {
    if (!lParam)
        return 0;
    auto& record = *reinterpret_cast<option_tree::TextRequest*>(lParam);
    Node* node = NodeOf(trees[window], record.item);
    if (!node)
        return 0;
    if (request == option_tree::kSetText)
        return SetValue(window, *node, ReadText(record.buffer));
    AnswerText(record.buffer, request == option_tree::kLabel ? node->option.label : node->option.value);
    return 1;
}

LRESULT AnswerAboutItem(HWND window, WPARAM request, LPARAM lParam) {
    const Node* node = NodeOf(trees[window], static_cast<std::uint64_t>(lParam));
    if (!node)
        return 0;
    switch (request) {
    case option_tree::kFirstChild:
        return IdentifierOf(node->firstChild);
    case option_tree::kNextSibling:
        return IdentifierOf(node->nextSibling);
    case option_tree::kParent:
        return IdentifierOf(node->parent);
    case option_tree::kItemKind:
        return node->option.kind == Option::Kind::CheckBox ? option_tree::kCheckBoxKind : 0;
    case option_tree::kReadOnly:
        return node->option.readOnly;
    default:
        return 0; // a request that a later version may know
    }
}

LRESULT Answer(HWND window, WPARAM request, LPARAM lParam) {
    switch (request) {
    case option_tree::kRoot:
        return IdentifierOf(trees[window].nodes.empty() ? kNone : 0);
    case option_tree::kLabel:
    case option_tree::kGetText:
    case option_tree::kSetText:
        return AnswerTextRequest(window, request, lParam);
    default:
        return AnswerAboutItem(window, request, lParam);
    }
}

RECT AreaOf(const Tree& tree, int index, const RECT& client) {
    const int top = (index - 1 - tree.scrolled) * kRowHeight;
    return {0, top, client.right, top + kRowHeight};
}

void DrawNode(HDC canvas, const Node& node, RECT area) {
    const Option& option = node.option;
    area.left = 6 + node.depth * kIndent;
    if (option.kind == Option::Kind::CheckBox) {
        RECT box{area.left, area.top + 2, area.left + 14, area.top + 16};
        DrawFrameControl(canvas, &box, DFC_BUTTON,
                         DFCS_BUTTONCHECK | (option.value == "1" ? DFCS_CHECKED : 0) |
                             (option.readOnly ? DFCS_INACTIVE : 0));
        area.left += 18;
    }
    SetTextColor(canvas, GetSysColor(option.readOnly ? COLOR_GRAYTEXT : COLOR_WINDOWTEXT));
    constexpr UINT kFormat = DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS;
    DrawTextA(canvas, option.label.c_str(), -1, &area, kFormat);
    area.left = kValueColumn;
    if (option.kind == Option::Kind::Text)
        DrawTextA(canvas, option.value.c_str(), -1, &area, kFormat);
}

void Paint(HWND window) {
    PAINTSTRUCT painting;
    const HDC canvas = BeginPaint(window, &painting);
    const HGDIOBJ font = SelectObject(canvas, DialogFont());
    SetBkMode(canvas, TRANSPARENT);
    RECT client;
    GetClientRect(window, &client);
    const Tree& tree = trees[window];
    for (int index = 1; index < static_cast<int>(tree.nodes.size()); ++index) {
        const RECT area = AreaOf(tree, index, client);
        if (RectVisible(canvas, &area))
            DrawNode(canvas, tree.nodes[index], area);
    }
    SelectObject(canvas, font);
    EndPaint(window, &painting);
}

// The node of the row under a point, 0 for none.
int NodeAt(const Tree& tree, POINT point) {
    const int index = point.y / kRowHeight + tree.scrolled + 1;
    return index < static_cast<int>(tree.nodes.size()) ? index : 0;
}

LRESULT AnswerItemAtPoint(HWND window, LPARAM lParam) {
    if (!lParam)
        return 0;
    auto& record = *reinterpret_cast<ghosthand::host_contract::ItemAtPoint*>(lParam);
    const Tree& tree = trees[window];
    RECT client;
    GetClientRect(window, &client);
    const int index = record.y < 0 ? 0 : NodeAt(tree, {record.x, record.y});
    if (index == 0)
        return 0;
    const RECT area = AreaOf(tree, index, client);
    record = {record.x, record.y,   static_cast<std::uint64_t>(IdentifierOf(index)),
              0,        0,          area.left,
              area.top, area.right, area.bottom};
    return 1;
}

void Toggle(HWND window, Node& node) {
    if (node.option.kind == Option::Kind::CheckBox)
        SetValue(window, node, node.option.value == "1" ? "0" : "1");
}

void Edit(HWND window, int index) {
    Tree& tree = trees[window];
    const Option& option = tree.nodes[index].option;
    if (option.kind != Option::Kind::Text || option.readOnly)
        return;
    RECT area;
    GetClientRect(window, &area);
    area = AreaOf(tree, index, area);
    area.left = kValueColumn - 4;
    OpenCellEdit(window, area, option.value,
                 [=](const std::string& text) { SetValue(window, trees[window].nodes[index], text); });
}

void Scroll(HWND window, int rows) {
    Tree& tree = trees[window];
    tree.scrolled = std::clamp(tree.scrolled + rows, 0, static_cast<int>(tree.nodes.size()) - 1);
    InvalidateRect(window, nullptr, TRUE);
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == kOptionTreeRequest)
        return Answer(window, wParam, lParam);
    if (message == kItemAtPoint)
        return AnswerItemAtPoint(window, lParam);
    const POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    switch (message) {
    case WM_PAINT:
        Paint(window);
        return 0;
    case WM_LBUTTONDOWN:
        SetFocus(window);
        if (const int node = NodeAt(trees[window], point))
            Toggle(window, trees[window].nodes[node]);
        return 0;
    case WM_LBUTTONDBLCLK:
        if (const int node = NodeAt(trees[window], point))
            Edit(window, node);
        return 0;
    case WM_MOUSEWHEEL:
        Scroll(window, -kRowsPerNotch * GET_WHEEL_DELTA_WPARAM(wParam) / WHEEL_DELTA);
        return 0;
    case WM_NCDESTROY:
        trees.erase(window);
        return 0;
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

} // namespace

HWND AddOptionTree(HWND parent, Area area, int id, Option root) {
    RegisterHostClass(ids::kOptionTreeClass, Procedure, COLOR_WINDOW);
    const HWND window = AddControl(parent, {.className = ids::kOptionTreeClass,
                                            .style = WS_BORDER | WS_TABSTOP | WS_CLIPCHILDREN,
                                            .area = area,
                                            .id = id});
    AddNodes(trees[window], std::move(root), kNone);
    return window;
}

} // namespace sample_host
