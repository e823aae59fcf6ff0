// An item of the host's model tree. A tree that does not know the requests answers false and colour 0, and
// changes nothing. Nothing is activated; the changes synchronise.
#pragma once

#include <cstdint>

#include "controls/ghTreeItem.h"

class ghCADTreeItem : public ghTreeItem {
public:
    using ghTreeItem::ghTreeItem;

    bool Visible() const noexcept;
    void SetVisible(bool visible) const;
    bool Checked() const noexcept;
    void SetChecked(bool checked) const;
    // The host's own number for a colour, passed through as it is.
    int Color() const noexcept;
    void SetColor(int color) const;
    bool Starred() const noexcept;
    void SetStarred(bool starred) const;

private:
    std::int32_t Ask(std::uint32_t request) const noexcept;
    void Order(std::uint32_t request) const;
};
