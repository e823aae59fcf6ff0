#include "controls/host_control_search.h"

#include "ghosthand/host_contract.h"
#include "hostlink/registered_messages.h"
#include "inhouse/dlgkit.h"
#include "inhouse/hostlink.h"

namespace controls {

namespace {

bool AnswersProbe(HWND window, UINT message) {
    return SendMessageA(window, message, 0, 0) == ghosthand::host_contract::kProbeAnswer;
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

DWORD ProcessOf(HWND window) noexcept {
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    return processId;
}

struct CadViewSearch {
    DWORD processId;
    HWND result = nullptr;
};

BOOL CALLBACK VisitDescendant(HWND window, LPARAM parameter) noexcept {
    auto& search = *reinterpret_cast<CadViewSearch*>(parameter);
    if (IsCadView(window)) {
        search.result = window;
    }
    return search.result == nullptr;
}

// The top-level windows of other programs are not asked: one that hangs would block the script.
BOOL CALLBACK VisitTopLevel(HWND window, LPARAM parameter) noexcept {
    const auto& search = *reinterpret_cast<const CadViewSearch*>(parameter);
    return ProcessOf(window) == search.processId ? VisitDescendant(window, parameter) : TRUE;
}

} // namespace

bool IsCadTree(HWND window) {
    return AnswersProbe(window, hlWM_REQUEST_CAD_TREE_INFORMATION);
}

bool IsGroupCombo(HWND window) {
    return dkGroupComboHelpers::check_combo_type(window);
}

HWND FindGrid(HWND from, std::int64_t id, std::uint32_t flags) {
    constexpr std::uint32_t kHonoured = engine::kAnyDescendant | engine::kIncludeHidden | engine::kIgnoreId;
    engine::WindowCriteria criteria;
    criteria.flags =
        (flags & kHonoured) | engine::kIgnoreCaption | engine::kIgnoreClass | engine::kIgnoreStyle;
    engine::WantId(criteria, id);
    criteria.customTest = IsGrid;
    return engine::FindBelow(from, criteria);
}

HWND FindCadView(HWND from) {
    CadViewSearch search = {ProcessOf(from)};
    if (search.processId == 0) {
        return nullptr;
    }
    EnumChildWindows(from, VisitDescendant, reinterpret_cast<LPARAM>(&search));
    if (search.result == nullptr) {
        EnumWindows(VisitTopLevel, reinterpret_cast<LPARAM>(&search));
    }
    return search.result;
}

HWND FindRibbonWidget(HWND from, std::string_view name, std::int64_t id, std::uint32_t flags) {
    return engine::FindChildWindow(from, name, "Static", id, flags, IsRibbonWidget);
}

} // namespace controls
