#include "controlbars/ghToolbar.h"

#include "controlbars/ghBCGPopupMenuButton.h"
#include "controlbars/ghBCGProPopupMenuButton.h"
#include "controlbars/ghToolbarButton.h"
#include "controlbars/toolbar_messages.h"
#include "engine/prefix_match.h"
#include "engine/window_finders.h"
#include "engine/window_relations.h"
#include "hostlink/host_classes.h"
#include "hostlink/registered_messages.h"
#include "hostlink/window_kind.h"
#include "input/mouse.h"

namespace {

// A window that claims more buttons than there are commands is not believed: to read them all would take hours.
constexpr int kMostButtons = 0x10000;

// The first button that is no separator and passes the test; -1 if there is none.
template <class Test>
int FindButton(const ghToolbar& toolbar, Test test) {
    const int count = toolbar.ItemsCount();
    for (int index = 0; index < count && count <= kMostButtons; ++index) {
        const auto button = controlbars::ReadButton(toolbar.Host(), index);
        if (button && (button->style & BTNS_SEP) == 0 && test(*button)) {
            return index;
        }
    }
    return ghToolbarButton::kNoIndex;
}

} // namespace

ghToolbar::ghToolbar(HWND window) : ghControlBar(window) {
    if (IsValid()) {
        SendMessageA(window, hostlink::BCGTOOLBAR_SET_CUSTOMIZE_MODE, 0, 0);
    }
}

std::unique_ptr<ghControlBarItem> ghToolbar::GetItemByID(const std::string& caption, int id) const {
    return GetItem(FindIndex(caption, id));
}

int ghToolbar::FindIndex(const std::string& caption, int id) const {
    using controlbars::ButtonRecord;
    int index = ghToolbarButton::kNoIndex;
    if (id != 0) {
        index = FindButton(*this, [&](const ButtonRecord& button) { return button.command == id; });
    }
    if (index == ghToolbarButton::kNoIndex && !caption.empty()) {
        index = FindButton(*this, [&](const ButtonRecord& button) {
            const auto text = controlbars::ReadButtonText(Host(), button);
            return text && engine::StartsWith(*text, caption);
        });
    }
    return index;
}

std::unique_ptr<ghControlBarItem> ghToolbar::GetItem(int index) const {
    if (index < 0 || index >= ItemsCount()) {
        return std::make_unique<ghToolbarButton>(*this, ghToolbarButton::kNoIndex);
    }
    const HWND parent = GetParent(Window());
    if ((hostlink::WindowStyle(parent) & WS_POPUP) != 0) {
        const hostlink::WindowClass parentClass(parent);
        if (hostlink::IsPlainPopupClass(parentClass)) {
            return std::make_unique<ghBCGPopupMenuButton>(*this, index);
        }
        if (hostlink::IsFrameworkClass(parentClass)) {
            return std::make_unique<ghBCGProPopupMenuButton>(*this, index);
        }
    }
    return std::make_unique<ghToolbarButton>(*this, index);
}

int ghToolbar::ItemsCount() const {
    return static_cast<int>(SendMessageA(Window(), TB_BUTTONCOUNT, 0, 0));
}

void ghToolbar::CloseMenu() {
    ghBaseWindow ancestor(engine::TopLevelAncestor(Window()));
    ancestor.SetSynchronization(Synchronization());
    input::Click(ancestor, input::kLeftButton, 1, 1, 0);
}

namespace controlbars {

HWND FindToolbar(HWND from, std::string_view caption, std::int64_t id, std::uint32_t flags) {
    for (const std::string_view className :
         {std::string_view("ToolbarWindow32"), hostlink::kPlainBarClass, hostlink::kProfessionalBarClass}) {
        if (const HWND found = engine::FindChildWindow(from, caption, className, id, flags)) {
            return found;
        }
    }
    return nullptr;
}

} // namespace controlbars
