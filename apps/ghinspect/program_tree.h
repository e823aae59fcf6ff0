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

// Branches are filled when they are opened, and emptied when they are closed; what is written on a window is
// read when it comes into view.
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

    // A notification of the tree view: the answer for it.
    LRESULT OnNotify(NMHDR& header);
    // The selection changes because of Merge or Select, not by the user.
    bool IsChanging() const noexcept { return m_isChanging; }

private:
    // A window's handle, or the process id of a program with its sign changed.
    using Key = INT_PTR;
    struct Node {
        Node* parent = nullptr;
        Target target;
        std::optional<Label> label; // none: to be read when it is asked for
        HTREEITEM item = nullptr;
        std::map<Key, std::unique_ptr<Node>> children;
    };
    class Redrawing;

    static Key KeyOf(const Target& target) noexcept;
    static const Label& LabelOf(Node& node);
    Node* NodeOf(HTREEITEM item) const;
    bool IsOpen(const Node& node) const;
    void Fill(Node& node);
    void MergeBranch(Node& parent, const std::vector<Target>& targets, Redrawing& redrawing);
    void MergeWindows(Node& parent, const std::vector<HWND>& windows, Redrawing& redrawing);
    void Insert(Node& parent, const Target& target, HTREEITEM after);
    void Remove(Node& node);
    void Clear(Node& node);
    void Open(Node& node);
    // Reads what is in view anew.
    void RefreshLabels();
    void Redisplay(const Node& node) const;
    void OnDisplay(NMTVDISPINFOW& display) const;
    LRESULT OnCustomDraw(NMTVCUSTOMDRAW& draw) const;

    HWND m_tree = nullptr;
    Node m_root;
    std::map<DWORD, explain::ProgramFacts> m_programs;
    bool m_withHidden = false;
    bool m_isChanging = false;
};

} // namespace inspector
