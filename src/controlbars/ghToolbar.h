// A toolbar: a control of the system, or a bar or popup bar of the host's own kind.
#pragma once

#include <cstdint>
#include <string_view>

#include "controlbars/ghControlBar.h"
#include "hostlink/indexed_walk.h"

class ghToolbar : public ghControlBar {
public:
    // Takes the host's bar out of its customisation mode, every time an object is made from a window.
    explicit ghToolbar(HWND window);

    // A caption is looked for when no button has the id, or none (0) is given.
    std::unique_ptr<ghControlBarItem> GetItemByID(const std::string& caption, int id) const override;
    std::unique_ptr<ghControlBarItem> GetItem(int index) const override;
    int ItemsCount() const override;
    // Clicks the top-level window, which closes an open popup.
    void CloseMenu() override;

private:
    int FindIndex(const std::string& caption, int id) const;
};

namespace controlbars {

// The walks over a tool bar's buttons that are no separators, and where they stand.
struct ButtonPosition : hostlink::IndexedPosition {
    std::int32_t id = 0; // of the button that is looked for
};
bool StepToId(const hostlink::HostWindow& toolbar, std::string_view, ButtonPosition& position);
bool StepToCaption(const hostlink::HostWindow& toolbar, std::string_view caption, ButtonPosition& position);

// A toolbar of the system before one of the host's own kinds; null if there is none. `caption` is tested by
// containment unless it is empty, an id below 1 means any, `flags` are engine::SearchFlag bits.
HWND FindToolbar(HWND from, std::string_view caption, std::int64_t id, std::uint32_t flags);

} // namespace controlbars
