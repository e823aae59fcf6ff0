// The programs and their windows as a tree view.
#pragma once

#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <windows.h>

#include <commctrl.h>

#include "ghinspect/window_rows.h"

namespace inspector {

// Branches are filled when they are opened, and emptied when they are closed.
class ProgramTree {
public:
    void Create(HWND parent, int id);
    HWND Window() const noexcept { return m_tree; }

    // What a snapshot has to hold.
    std::vector<Target> OpenBranches() const;
    // Brings the tree up to date; what is open and selected stays so. When the selected one is gone, nothing
    // is selected.
    void Merge(Snapshot snapshot, bool withHidden);

    std::optional<Target> Selected() const;
    // Opens the way to it. False if it is not in the tree (yet).
    bool Select(const Target& target);
    // Null if the tree does not have it.
    const explain::ProgramFacts* Program(DWORD processId) const;

    // A notification of the tree view: the answer for it, none where it is not for this class.
    std::optional<LRESULT> OnNotify(NMHDR& header);
    // The selection changes because of Merge or Select, not by the user.
    bool IsChanging() const noexcept { return m_isChanging; }

private:
    // A window's handle, or the process id of a program with its sign changed.
    using Key = INT_PTR;
    struct Node {
        Node* parent = nullptr;
        Row row;
        HTREEITEM item = nullptr;
        std::map<Key, std::unique_ptr<Node>> children;
    };
    class Redrawing;

    static Key KeyOf(const Target& target) noexcept;
    Node* NodeOf(HTREEITEM item) const;
    bool IsOpen(const Node& node) const;
    void Fill(Node& node);
    void MergeRows(Node& parent, const std::vector<Row>& rows, Redrawing& redrawing);
    void Insert(Node& parent, const Row& row, HTREEITEM after);
    void Update(Node& node, const Row& row, Redrawing& redrawing);
    void Remove(Node& node);
    void Clear(Node& node);
    void Open(Node& node);
    LRESULT OnCustomDraw(NMTVCUSTOMDRAW& draw) const;

    HWND m_tree = nullptr;
    Node m_root;
    std::vector<explain::ProgramFacts> m_programs;
    bool m_withHidden = false;
    bool m_isChanging = false;
};

} // namespace inspector
