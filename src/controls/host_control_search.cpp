#include "controls/host_control_search.h"

#include "engine/enumerate.h"
#include "ghosthand/host_contract.h"
#include "hostlink/registered_messages.h"
#include "hostlink/window_kind.h"
#include "inhouse/dlgkit.h"
#include "inhouse/hostlink.h"

namespace controls {

namespace {

bool AnswersProbe(HWND window, UINT message) {
    return SendMessageA(window, message, 0, 0) == ghosthand::host_contract::kProbeAnswer;
}

} // namespace

bool IsCadTree(HWND window) {
    return AnswersProbe(window, hlWM_REQUEST_CAD_TREE_INFORMATION);
}

bool IsGroupCombo(HWND window) {
    return dkGroupComboHelpers::check_combo_type(window);
}

bool IsGrid(HWND window) {
    return AnswersProbe(window, hostlink::MSG_GX_RequestGridInformation);
}

bool IsRibbonWidget(HWND window) {
    return AnswersProbe(window, hostlink::MSG_REQUEST_RIB_CUSTOMISATION_WIDGET_DATA);
}

bool IsCadView(HWND window) {
    return SendMessageA(window, hostlink::MSG_HA_GetViewPosition, 1, 0) == 1;
}

HWND FindGrid(HWND from, std::int64_t id, std::uint32_t flags) {
    constexpr std::uint32_t kHonoured = engine::kAnyDescendant | engine::kIncludeHidden | engine::kIgnoreId;
    engine::WindowCriteria criteria;
    criteria.flags =
        (flags & kHonoured) | engine::kIgnoreCaption | engine::kIgnoreClass | engine::kIgnoreStyle;
    engine::WantId(criteria, id);
    criteria.customTest = IsGrid;
    criteria.customKind = "grid";
    return engine::FindBelow(from, criteria);
}

HWND FindCadView(HWND from) {
    const DWORD processId = hostlink::ProcessOf(from);
    if (processId == 0) {
        return nullptr;
    }
    HWND found = nullptr;
    engine::EnumerateWindows(from, [&](HWND window) {
        found = IsCadView(window) ? window : nullptr;
        return found == nullptr;
    });
    if (found != nullptr) {
        return found;
    }
    // The top-level windows of other programs are not asked: one that hangs would block the script.
    engine::EnumerateWindows(nullptr, [&](HWND window) {
        found = hostlink::ProcessOf(window) == processId && IsCadView(window) ? window : nullptr;
        return found == nullptr;
    });
    return found;
}

HWND FindRibbonWidget(HWND from, std::string_view name, std::int64_t id, std::uint32_t flags) {
    return engine::FindChildWindow(from, name, "Static", id, flags, IsRibbonWidget, "ribbon widget");
}

} // namespace controls
