#include "ghinspect/program_tree.h"

#include <algorithm>
#include <set>
#include <utility>

namespace inspector {

namespace {

// From the top-level window down to the window.
std::vector<HWND> WayTo(HWND window) {
    std::vector<HWND> way;
    const HWND desktop = GetDesktopWindow();
    for (HWND step = window; step != nullptr && step != desktop; step = GetAncestor(step, GA_PARENT)) {
        way.push_back(step);
    }
    std::ranges::reverse(way);
    return way;
}

} // namespace

// Nothing is drawn while many items change; without a change nothing is drawn anew.
class ProgramTree::Redrawing {
public:
    explicit Redrawing(HWND tree) noexcept : m_tree(tree) {}
    ~Redrawing() {
        if (m_isHeld) {
            SendMessageW(m_tree, WM_SETREDRAW, TRUE, 0);
            InvalidateRect(m_tree, nullptr, TRUE);
        }
    }
    Redrawing(const Redrawing&) = delete;
    Redrawing& operator=(const Redrawing&) = delete;

    void Hold() noexcept {
        if (!m_isHeld) {
            m_isHeld = true;
            SendMessageW(m_tree, WM_SETREDRAW, FALSE, 0);
        }
    }

private:
    HWND m_tree;
    bool m_isHeld = false;
};

void ProgramTree::Create(HWND parent, int id) {
    m_tree = CreateWindowExW(WS_EX_CLIENTEDGE, WC_TREEVIEWW, L"",
                             WS_CHILD | WS_VISIBLE | WS_TABSTOP | TVS_HASBUTTONS | TVS_HASLINES |
                                 TVS_LINESATROOT | TVS_SHOWSELALWAYS | TVS_DISABLEDRAGDROP,
                             0, 0, 0, 0, parent, reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), nullptr,
                             nullptr);
    m_root.item = TVI_ROOT;
}

ProgramTree::Key ProgramTree::KeyOf(const Target& target) noexcept {
    return target.window != nullptr ? reinterpret_cast<Key>(target.window)
                                    : -static_cast<Key>(target.processId);
}

ProgramTree::Node* ProgramTree::NodeOf(HTREEITEM handle) const {
    TVITEMW item{};
    item.mask = TVIF_PARAM;
    item.hItem = handle;
    const bool isThere =
        handle != nullptr && SendMessageW(m_tree, TVM_GETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    return isThere ? reinterpret_cast<Node*>(item.lParam) : nullptr;
}

bool ProgramTree::IsOpen(const Node& node) const {
    return (TreeView_GetItemState(m_tree, node.item, TVIS_EXPANDED) & TVIS_EXPANDED) != 0;
}

std::vector<Target> ProgramTree::OpenBranches() const {
    std::vector<Target> open;
    std::vector<const Node*> left = {&m_root};
    while (!left.empty()) {
        const Node* const node = left.back();
        left.pop_back();
        for (const auto& [key, child] : node->children) {
            if (!child->children.empty() || IsOpen(*child)) {
                open.push_back(child->target);
                left.push_back(child.get());
            }
        }
    }
    return open;
}

const Label& ProgramTree::LabelOf(Node& node) {
    if (!node.label) {
        node.label = inspector::LabelOf(node.target.window);
    }
    return *node.label;
}

void ProgramTree::Merge(Snapshot snapshot, bool withHidden) {
    const bool wasChanging = std::exchange(m_isChanging, true);
    m_withHidden = withHidden;
    m_programs.clear();
    std::vector<Target> programs;
    for (const ProgramRow& row : snapshot.programs) {
        programs.push_back({row.facts.processId, nullptr});
        m_programs[row.facts.processId] = row.facts;
    }
    {
        Redrawing redrawing(m_tree);
        MergeBranch(m_root, programs, redrawing);
        // From the outside to the inside: a branch may have gone with the one around it.
        std::vector<Node*> left = {&m_root};
        while (!left.empty()) {
            Node* const node = left.back();
            left.pop_back();
            const auto branch = std::ranges::find(snapshot.branches, node->target, &Branch::parent);
            if (node != &m_root && branch != snapshot.branches.end()) {
                MergeWindows(*node, branch->windows, redrawing);
            }
            for (const auto& [key, child] : node->children) {
                if (!child->children.empty()) {
                    left.push_back(child.get());
                }
            }
        }
    }
    for (ProgramRow& row : snapshot.programs) {
        Node& node = *m_root.children[KeyOf({row.facts.processId, nullptr})];
        if (!node.label || node.label->text != row.label.text ||
            node.label->isVisible != row.label.isVisible) {
            node.label = std::move(row.label);
            Redisplay(node);
        }
    }
    RefreshLabels();
    m_isChanging = wasChanging;
}

void ProgramTree::RefreshLabels() {
    HTREEITEM item = TreeView_GetFirstVisible(m_tree);
    for (UINT left = TreeView_GetVisibleCount(m_tree) + 1; left > 0 && item != nullptr; --left) {
        Node* const node = NodeOf(item);
        if (node != nullptr && node->target.window != nullptr && node->label) {
            const Label before = std::exchange(*node->label, inspector::LabelOf(node->target.window));
            if (before.text != node->label->text || before.isVisible != node->label->isVisible ||
                before.hasChildren != node->label->hasChildren) {
                Redisplay(*node);
            }
        }
        item = TreeView_GetNextVisible(m_tree, item);
    }
}

// The tree view asks for the text again, and measures it.
void ProgramTree::Redisplay(const Node& node) const {
    TVITEMW item{};
    item.mask = TVIF_TEXT | TVIF_CHILDREN;
    item.hItem = node.item;
    item.pszText = LPSTR_TEXTCALLBACKW;
    item.cChildren = I_CHILDRENCALLBACK;
    SendMessageW(m_tree, TVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

void ProgramTree::MergeWindows(Node& parent, const std::vector<HWND>& windows, Redrawing& redrawing) {
    std::vector<Target> targets;
    targets.reserve(windows.size());
    for (const HWND window : windows) {
        targets.push_back({parent.target.processId, window});
    }
    MergeBranch(parent, targets, redrawing);
}

void ProgramTree::MergeBranch(Node& parent, const std::vector<Target>& targets, Redrawing& redrawing) {
    std::set<Key> wanted;
    for (const Target& target : targets) {
        wanted.insert(KeyOf(target));
    }
    for (auto child = parent.children.begin(); child != parent.children.end();) {
        if (wanted.contains(child->first)) {
            ++child;
            continue;
        }
        redrawing.Hold();
        Remove(*child->second);
        child = parent.children.erase(child);
    }
    // New ones come behind the one that they follow; the others keep their places, though the order on the
    // screen changes with each click.
    HTREEITEM previous = TVI_FIRST;
    for (const Target& target : targets) {
        const auto known = parent.children.find(KeyOf(target));
        if (known != parent.children.end()) {
            previous = known->second->item;
        } else {
            redrawing.Hold();
            Insert(parent, target, previous);
            previous = parent.children[KeyOf(target)]->item;
        }
    }
}

void ProgramTree::Insert(Node& parent, const Target& target, HTREEITEM after) {
    auto node = std::make_unique<Node>();
    node->parent = &parent;
    node->target = target;
    if (target.window == nullptr) {
        node->label.emplace().hasChildren = true; // Merge writes it
    }
    TVINSERTSTRUCTW insertion{};
    insertion.hParent = parent.item;
    insertion.hInsertAfter = after;
    insertion.item.mask = TVIF_TEXT | TVIF_PARAM | TVIF_CHILDREN;
    insertion.item.pszText = LPSTR_TEXTCALLBACKW;
    insertion.item.lParam = reinterpret_cast<LPARAM>(node.get());
    insertion.item.cChildren = I_CHILDRENCALLBACK;
    node->item = reinterpret_cast<HTREEITEM>(
        SendMessageW(m_tree, TVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&insertion)));
    parent.children[KeyOf(target)] = std::move(node);
}

// The tree view would select a neighbour instead, as if the user had meant that one.
void ProgramTree::Remove(Node& node) {
    HTREEITEM selected = TreeView_GetSelection(m_tree);
    for (const Node* step = NodeOf(selected); step != nullptr; step = step->parent) {
        if (step == &node) {
            TreeView_SelectItem(m_tree, nullptr);
            break;
        }
    }
    TreeView_DeleteItem(m_tree, node.item);
}

void ProgramTree::Clear(Node& node) {
    Redrawing redrawing(m_tree);
    redrawing.Hold();
    for (const auto& [key, child] : node.children) {
        TreeView_DeleteItem(m_tree, child->item);
    }
    node.children.clear();
    // So that opening it is asked for again, also by a message.
    TreeView_SetItemState(m_tree, node.item, 0, TVIS_EXPANDEDONCE);
}

void ProgramTree::Fill(Node& node) {
    const bool wasChanging = std::exchange(m_isChanging, true);
    Redrawing redrawing(m_tree);
    if (node.target.window != nullptr) {
        MergeWindows(node, explain::ChildrenOf(node.target.window), redrawing);
    } else if (const auto* const program = Program(node.target.processId); program != nullptr) {
        MergeWindows(node, WindowsOf(*program, m_withHidden), redrawing);
    }
    m_isChanging = wasChanging;
}

void ProgramTree::Open(Node& node) {
    if (IsOpen(node)) {
        Fill(node); // it may have changed since the last snapshot
    } else {
        TreeView_Expand(m_tree, node.item, TVE_EXPAND);
    }
}

std::optional<Target> ProgramTree::Selected() const {
    const Node* const node = NodeOf(TreeView_GetSelection(m_tree));
    return node == nullptr ? std::nullopt : std::optional(node->target);
}

bool ProgramTree::Select(const Target& target) {
    const auto program = m_root.children.find(KeyOf({target.processId, nullptr}));
    if (program == m_root.children.end()) {
        return false;
    }
    Node* node = program->second.get();
    for (const HWND step : target.window == nullptr ? std::vector<HWND>() : WayTo(target.window)) {
        const bool hadIt = node->children.contains(KeyOf({0, step}));
        if (!hadIt || !IsOpen(*node)) {
            Open(*node);
        }
        const auto child = node->children.find(KeyOf({0, step}));
        if (child == node->children.end()) {
            return false;
        }
        node = child->second.get();
    }
    const bool wasChanging = std::exchange(m_isChanging, true);
    TreeView_SelectItem(m_tree, node->item);
    TreeView_EnsureVisible(m_tree, node->item);
    m_isChanging = wasChanging;
    return true;
}

const explain::ProgramFacts* ProgramTree::Program(DWORD processId) const {
    const auto program = m_programs.find(processId);
    return program == m_programs.end() ? nullptr : &program->second;
}

void ProgramTree::OnDisplay(NMTVDISPINFOW& display) const {
    Node* const node = reinterpret_cast<Node*>(display.item.lParam);
    if (node == nullptr) {
        return;
    }
    const Label& label = LabelOf(*node);
    if ((display.item.mask & TVIF_TEXT) != 0 && display.item.cchTextMax > 0) {
        lstrcpynW(display.item.pszText, label.text.c_str(), display.item.cchTextMax);
    }
    display.item.cChildren = label.hasChildren ? 1 : 0;
}

LRESULT ProgramTree::OnCustomDraw(NMTVCUSTOMDRAW& draw) const {
    if (draw.nmcd.dwDrawStage == CDDS_PREPAINT) {
        return CDRF_NOTIFYITEMDRAW;
    }
    Node* const node = reinterpret_cast<Node*>(draw.nmcd.lItemlParam);
    const bool isPlain = (draw.nmcd.uItemState & CDIS_SELECTED) == 0;
    if (draw.nmcd.dwDrawStage == CDDS_ITEMPREPAINT && node != nullptr && isPlain &&
        !LabelOf(*node).isVisible) {
        draw.clrText = GetSysColor(COLOR_GRAYTEXT);
    }
    return CDRF_DODEFAULT;
}

LRESULT ProgramTree::OnNotify(NMHDR& header) {
    switch (header.code) {
    case TVN_GETDISPINFOW:
        OnDisplay(reinterpret_cast<NMTVDISPINFOW&>(header));
        return 0;
    case TVN_ITEMEXPANDINGW: {
        const auto& expanding = reinterpret_cast<const NMTREEVIEWW&>(header);
        Node* const node = NodeOf(expanding.itemNew.hItem);
        if (node != nullptr && (expanding.action & TVE_EXPAND) != 0) {
            Fill(*node);
        }
        return 0;
    }
    case TVN_ITEMEXPANDEDW: {
        const auto& expanded = reinterpret_cast<const NMTREEVIEWW&>(header);
        Node* const node = NodeOf(expanded.itemNew.hItem);
        if (node != nullptr && expanded.action == TVE_COLLAPSE) {
            Clear(*node);
        }
        return 0;
    }
    case NM_CUSTOMDRAW:
        return OnCustomDraw(reinterpret_cast<NMTVCUSTOMDRAW&>(header));
    default:
        return 0;
    }
}

} // namespace inspector
