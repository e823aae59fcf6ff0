// The searches that start from a window. Each answers at once: the window found or null; a search from a
// null handle finds nothing. `flags` are SearchFlag bits, the occurrence number in the high half; a control
// id below 1 means any.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "engine/window_search.h"

namespace engine {

// A kind of control, told by its window class and, where that is not enough, by a test of its own.
struct ControlKind {
    std::string_view className;
    bool classContains = false;
    bool (*customTest)(HWND) = nullptr;
    std::string_view customKind = {}; // as in WindowCriteria
};

inline constexpr ControlKind kEdit = {"Edit", true};
inline constexpr ControlKind kTreeView = {"SysTreeView32"};
inline constexpr ControlKind kListView = {"SysListView32"};
inline constexpr ControlKind kListBox = {"ListBox"};
inline constexpr ControlKind kComboBox = {"ComboBox", true};
inline constexpr ControlKind kOptionTree = {"qvaOptionTree", true};
inline constexpr ControlKind kTrackBar = {"msctls_trackbar32"};

// The main window of the program whose file name begins with `application`; caption and class are tested
// by containment unless they are empty.
HWND FindMainWindow(std::string_view application, std::string_view caption, std::string_view className,
                    std::uint32_t flags);

// The first window below `from` that meets the criteria; their parent is set here.
HWND FindBelow(HWND from, WindowCriteria& criteria);
HWND FindControl(HWND from, const ControlKind& kind, std::int64_t id, std::uint32_t flags);
// A tab control of the system before one of the host's own kinds.
HWND FindTabControl(HWND from, std::int64_t id, std::uint32_t flags);
// Caption and class are tested by containment unless they are empty.
HWND FindChildWindow(HWND from, std::string_view caption, std::string_view className, std::int64_t id,
                     std::uint32_t flags, bool (*customTest)(HWND) = nullptr,
                     std::string_view customKind = {});
HWND FindChildDialog(HWND from, std::string_view caption, std::int64_t id, std::uint32_t flags);
// The parent of the label, else of the button, with that caption and id at any depth below `from`.
HWND FindChildDialogByControl(HWND from, std::string_view caption, std::int64_t id, bool visibleOnly);
HWND FindButton(HWND from, std::string_view caption, std::int64_t id, std::uint32_t flags);
// Without an id only buttons that are check boxes count.
HWND FindCheckBox(HWND from, std::string_view caption, std::int64_t id, std::uint32_t flags);
// The active window of the MDI client below `from`.
HWND FindActiveDocument(HWND from);
// The window that the host itself gives that name.
HWND FindWindowByName(HWND from, const std::string& name);

} // namespace engine
