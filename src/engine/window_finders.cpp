#include "engine/window_finders.h"

#include "engine/global_atom.h"
#include "engine/window_relations.h"
#include "hostlink/host_classes.h"
#include "hostlink/registered_messages.h"
#include "hostlink/window_kind.h"

namespace engine {

namespace {

HWND ResultOf(WindowCriteria& criteria) {
    return Search(criteria) ? criteria.result : nullptr;
}

bool IsCheckBox(HWND window) noexcept {
    switch (hostlink::WindowStyle(window) & BS_TYPEMASK) {
    case BS_CHECKBOX:
    case BS_AUTOCHECKBOX:
    case BS_3STATE:
    case BS_AUTO3STATE:
        return true;
    default:
        return false;
    }
}

} // namespace

HWND FindBelow(HWND from, WindowCriteria& criteria) {
    if (from == nullptr) {
        return nullptr; // a null parent would search the whole desktop
    }
    criteria.parent = from;
    return ResultOf(criteria);
}

HWND FindMainWindow(std::string_view application, std::string_view caption, std::string_view className,
                    std::uint32_t flags) {
    WindowCriteria criteria;
    criteria.flags = flags | kIgnoreId | kIgnoreStyle;
    SetSearchText(criteria.moduleName, application);
    WantCaption(criteria, caption);
    WantClass(criteria, className);
    return ResultOf(criteria);
}

HWND FindControl(HWND from, const ControlKind& kind, std::int64_t id, std::uint32_t flags) {
    WindowCriteria criteria;
    criteria.flags = flags | kIgnoreCaption | kIgnoreStyle | (kind.classContains ? kClassContains : 0u);
    SetSearchText(criteria.className, kind.className);
    WantId(criteria, id);
    criteria.customTest = kind.customTest;
    criteria.customKind = kind.customKind;
    return FindBelow(from, criteria);
}

HWND FindTabControl(HWND from, std::int64_t id, std::uint32_t flags) {
    constexpr ControlKind kKinds[] = {
        {"SysTabControl32"}, {"BCGTab", true}, {"BCGPTabWnd", true}, {"GXTabBeam", true}};
    for (const ControlKind& kind : kKinds) {
        if (const HWND found = FindControl(from, kind, id, flags)) {
            return found;
        }
    }
    return nullptr;
}

HWND FindChildWindow(HWND from, std::string_view caption, std::string_view className, std::int64_t id,
                     std::uint32_t flags, bool (*customTest)(HWND), std::string_view customKind) {
    WindowCriteria criteria;
    criteria.flags = flags | kIgnoreStyle;
    WantCaption(criteria, caption);
    WantClass(criteria, className);
    WantId(criteria, id);
    criteria.customTest = customTest;
    criteria.customKind = customKind;
    return FindBelow(from, criteria);
}

HWND FindChildDialog(HWND from, std::string_view caption, std::int64_t id, std::uint32_t flags) {
    return FindChildWindow(from, caption, hostlink::kDialogClass, id, flags);
}

HWND FindChildDialogByControl(HWND from, std::string_view caption, std::int64_t id, bool visibleOnly) {
    const std::uint32_t flags = kAnyDescendant | (visibleOnly ? 0u : kIncludeHidden);
    for (const std::string_view className : {"Static", "Button"}) {
        if (const HWND control = FindChildWindow(from, caption, className, id, flags)) {
            return GetParent(control);
        }
    }
    return nullptr;
}

HWND FindButton(HWND from, std::string_view caption, std::int64_t id, std::uint32_t flags) {
    return FindChildWindow(from, caption, "Button", id, flags);
}

HWND FindCheckBox(HWND from, std::string_view caption, std::int64_t id, std::uint32_t flags) {
    return FindChildWindow(from, caption, "Button", id, flags, id < 1 ? IsCheckBox : nullptr, "check box");
}

HWND FindActiveDocument(HWND from) {
    WindowCriteria criteria;
    criteria.flags = kClassContains | kIgnoreCaption | kIgnoreId | kIgnoreStyle;
    SetSearchText(criteria.className, "MDIClient");
    const HWND client = FindBelow(from, criteria);
    return client == nullptr ? nullptr : reinterpret_cast<HWND>(SendMessageA(client, WM_MDIGETACTIVE, 0, 0));
}

HWND FindWindowByName(HWND from, const std::string& name) {
    const GlobalAtom atom(name);
    if (from == nullptr || atom.Value() == 0) {
        return nullptr;
    }
    const HWND named = reinterpret_cast<HWND>(
        SendMessageA(TopLevelAncestor(from), hostlink::MSG_HA_GetWindoHWND, atom.Value(), 0));
    return IsWindow(named) ? named : nullptr;
}

} // namespace engine
