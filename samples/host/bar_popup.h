// Popup menus that are bars of the host's own instead of system menus. They never take the activation
// by themselves; the message loop hands the keys to the innermost one.
#pragma once

#include "bar_window.h"
#include "host_misbehaviour.h"

#include <vector>
#include <windows.h>

namespace sample_host {

// `corner`: the upper left one, in screen coordinates. `origin`: the bar whose entry opens the popup,
// null for a context menu. Popups that do not lead to the origin are closed.
void OpenBarPopup(PopupKind kind, POINT corner, const std::vector<BarButton>& entries, HWND origin);

void CloseBarPopups();

// A tool bar that floats, in a window like a popup's; it stays when popups close.
void OpenFloatingBar();

// Misbehaviour::StubbornPopups or HidePopups, for that time.
void SpoilPopups(Misbehaviour how, DWORD milliseconds);

// To be asked for every message of the loop: true when a popup used it up.
bool IsBarPopupMessage(const MSG& message);

} // namespace sample_host
