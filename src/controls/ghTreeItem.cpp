#include "controls/ghTreeItem.h"

#include "controlbars/context_menu.h"
#include "controls/item_point.h"
#include "engine/activation.h"
#include "engine/synchronise.h"

void ghTreeItem::Select() const {
    engine::Activate(m_tree);
    SendMessageA(m_tree.Window(), TVM_SELECTITEM, TVGN_CARET, reinterpret_cast<LPARAM>(m_item));
    engine::Synchronise(m_tree);
}

bool ghTreeItem::Selected() const noexcept {
    return controls::ItemState(m_tree.Window(), m_item, TVIS_SELECTED) != 0;
}

void ghTreeItem::SetSelected(bool selected) const {
    if (selected) {
        Select();
    }
}

bool ghTreeItem::Expanded() const noexcept {
    return controls::ItemState(m_tree.Window(), m_item, TVIS_EXPANDED) != 0;
}

void ghTreeItem::SetExpanded(bool expanded) const noexcept {
    controls::ExpandItem(m_tree.Window(), m_item, expanded ? TVE_EXPAND : TVE_COLLAPSE);
}

int ghTreeItem::StateImage() const noexcept {
    return static_cast<int>(controls::ItemState(m_tree.Window(), m_item, TVIS_OVERLAYMASK) >> 8);
}

std::string ghTreeItem::Text() const {
    return controls::ItemText(m_tree.Host(), m_item);
}

void ghTreeItem::SetText(const std::string& text) const {
    Select();
    const auto window = reinterpret_cast<HWND>(
        SendMessageA(m_tree.Window(), TVM_EDITLABELA, 0, reinterpret_cast<LPARAM>(m_item)));
    if (!IsWindow(window)) {
        return;
    }
    ghBaseWindow edit(window);
    edit.SetSynchronization(m_tree.Synchronization());
    edit.SetText(text, false);
    engine::Activate(m_tree); // the edit control loses the focus, which ends the editing
}

std::optional<POINT> ghTreeItem::TextCentre() const {
    controls::EnsureItemVisible(m_tree.Window(), m_item);
    const std::optional<RECT> text = controls::ItemTextRectangle(m_tree.Host(), m_item);
    return text ? std::optional(controls::Centre(*text)) : std::nullopt;
}

std::unique_ptr<ghControlBar> ghTreeItem::ContextMenu() const {
    const std::optional<POINT> point = TextCentre();
    return point ? controlbars::OpenContextMenu(m_tree, point->x, point->y) : nullptr;
}
