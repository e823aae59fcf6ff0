// The window classes of the host, and of the system, that tell a kind of window.
#pragma once

#include "hostlink/window_class.h"

namespace hostlink {

// What searches look for by containment.
inline constexpr std::string_view kDialogClass = "#32770";
inline constexpr std::string_view kMenuClass = "#32768";
inline constexpr std::string_view kPlainBarClass = "BCGToolBar";
inline constexpr std::string_view kProfessionalBarClass = "BCGPToolBar";

inline bool IsDialogClass(const WindowClass& window) noexcept {
    return window.StartsWith(kDialogClass);
}
inline bool IsMenuClass(const WindowClass& window) noexcept {
    return window.StartsWith(kMenuClass);
}

// Bars of the host's own kinds, which answer some messages of a toolbar in their own way.
inline bool IsPlainBarClass(const WindowClass& window) noexcept {
    return window.StartsWith(kPlainBarClass);
}
inline bool IsProfessionalBarClass(const WindowClass& window) noexcept {
    return window.StartsWith(kProfessionalBarClass);
}
inline bool IsHostBarClass(const WindowClass& window) noexcept {
    return IsPlainBarClass(window) || IsProfessionalBarClass(window);
}

// The popup windows that the bars of the host's popup menus lie in. The professional kind has the class of
// any window of the host's framework.
inline bool IsPlainPopupClass(const WindowClass& window) noexcept {
    return window.StartsWith("BCGPopupMenu");
}
inline bool IsFrameworkClass(const WindowClass& window) noexcept {
    return window.StartsWith("Afx");
}

inline bool IsMdiFrameClass(const WindowClass& window) noexcept {
    return window.Name().find("AfxMDIFrame") != std::string_view::npos;
}

} // namespace hostlink
