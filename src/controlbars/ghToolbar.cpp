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
#include "hostlink/walk.h"
#include "hostlink/window_kind.h"
#include "input/mouse.h"

namespace {

constexpr int kMostButtons = 0x10000; // as many as there are commands

int CountButtons(HWND toolbar) noexcept {
    return static_cast<int>(SendMessageA(toolbar, TB_BUTTONCOUNT, 0, 0));
}

// `isMeant(button)` is asked of buttons that are no separators.
template <class IsMeant>
bool StepToButton(const hostlink::HostWindow& toolbar, controlbars::ButtonPosition& position,
                  IsMeant isMeant) {
    return hostlink::StepToItem(
        position, kMostButtons, [&] { return CountButtons(toolbar.window); },
        [&](int index) {
            const auto button = controlbars::ReadButton(toolbar, index);
            return button && (button->style & BTNS_SEP) == 0 && isMeant(*button);
        });
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
    using controlbars::ButtonPosition;
    if (id != 0) {
        ButtonPosition position = {{}, id};
        hostlink::Walk<ButtonPosition, controlbars::StepToId>(Host(), {}, position);
        if (position.found >= 0) {
            return position.found;
        }
    }
    if (caption.empty()) {
        return ghToolbarButton::kNoIndex;
    }
    ButtonPosition position;
    hostlink::Walk<ButtonPosition, controlbars::StepToCaption>(Host(), caption, position);
    return position.found;
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
    return CountButtons(Window());
}

void ghToolbar::CloseMenu() {
    ghBaseWindow ancestor(engine::TopLevelAncestor(Window()));
    ancestor.SetSynchronization(Synchronization());
    input::Click(ancestor, input::kLeftButton, 1, 1, 0);
}

namespace controlbars {

bool StepToId(const hostlink::HostWindow& toolbar, std::string_view, ButtonPosition& position) {
    return StepToButton(toolbar, position,
                        [&](const ButtonRecord& button) { return button.command == position.id; });
}

bool StepToCaption(const hostlink::HostWindow& toolbar, std::string_view caption, ButtonPosition& position) {
    return StepToButton(toolbar, position, [&](const ButtonRecord& button) {
        const auto text = ReadButtonText(toolbar, button);
        return text && engine::StartsWith(*text, caption);
    });
}

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
