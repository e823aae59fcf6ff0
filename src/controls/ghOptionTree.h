// The host's option tree, and an item of it: the tree's window with the identifier that the host gave the
// item. No operation activates the tree, waits or synchronises.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/ghBaseWindow.h"

// The tree itself carries the item identifier 0, which means no item.
class ghOptionTree : public ghBaseWindow {
public:
    using ghBaseWindow::ghBaseWindow;

    bool IsValidItem() const noexcept { return IsValid() && m_item != 0; }

    ghOptionTree RootItem() const;
    // The item that a path of labels leads to, between any of "|/\"; the root's own label is not part of
    // it. The root's first child for an empty path; no item when nothing is found.
    ghOptionTree ItemByPath(const std::string& path) const;

    // The item's neighbours; no item where there is none.
    ghOptionTree ChildItem() const;
    ghOptionTree ParentItem() const;
    ghOptionTree SiblingItem() const;

    std::string Label() const;
    // The item's text value, "1" or "0" for a check box.
    std::string Value() const;
    // A text of 1024 bytes and more is not sent.
    void SetValue(const std::string& value) const;
    bool IsCheckbox() const noexcept;
    // Whether the text value is exactly "1".
    bool Checked() const;
    void SetChecked(bool checked) const;
    bool IsReadOnly() const noexcept;

    // The walk along a path and where it stands; the item at which it ends is the one found.
    struct PathPosition {
        std::uint64_t item = 0;
        std::uint64_t mark = 0;      // one of the siblings that were passed
        std::uint32_t untilMark = 1; // so many siblings further the mark moves up,
        std::uint32_t stride = 1;    // each time from twice as far
        std::uint32_t token = 0;     // where in the path the item's label is looked for
        std::uint32_t hasBegun = 0;
    };
    static bool StepAlongPath(const hostlink::HostWindow& control, std::string_view path,
                              PathPosition& position);

private:
    ghOptionTree Item(LRESULT identifier) const;
    LRESULT Ask(std::uint32_t request) const noexcept;
    std::string RequestText(std::uint32_t request) const;

    std::uint64_t m_item = 0;
};
