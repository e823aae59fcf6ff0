// The searches for the host's own controls, which answer to messages of their own instead of having a
// window class that tells them. Each answers at once: the window found or null; a search from a null handle
// finds nothing. A control id below 1 means any; `flags` are engine::SearchFlag bits.
#pragma once

#include <string_view>

#include "engine/window_finders.h"

namespace controls {

// Each asks the window itself.
bool IsCadTree(HWND window);
bool IsGroupCombo(HWND window);
bool IsGrid(HWND window);
bool IsRibbonWidget(HWND window);
bool IsCadView(HWND window);

inline constexpr engine::ControlKind kCadTree = {"SysTreeView32", false, IsCadTree, "CAD tree"};
inline constexpr engine::ControlKind kGroupCombo = {"ComboBox", true, IsGroupCombo, "group combo"};

// The first match; an occurrence number in the flags counts for nothing.
HWND FindGrid(HWND from, std::int64_t id, std::uint32_t flags);
// Below `from` at any depth, hidden or not, then among the top-level windows of its program.
HWND FindCadView(HWND from);
// `name` is tested by containment in the widget's caption unless it is empty.
HWND FindRibbonWidget(HWND from, std::string_view name, std::int64_t id, std::uint32_t flags);

} // namespace controls
