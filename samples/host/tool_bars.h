// The tool bars at the top of the frame:
// - "Standard" (ids::kStandardBar), the system's own. Buttons: New (text by string index), Open with a
//   drop-down menu (text by TBIF_TEXT), separator, Save (TBIF_TEXT), Print (string index, disabled),
//   separator, Grid (TBIF_TEXT, a check button, marked as in the menu), separator, and a button with
//   command 0 and the text "Measure" by string index 3.
// - "Draw" (ids::kDrawBar) and "Modify" (ids::kModifyBar), of the host's own kind (bar_window.h).
#pragma once

#include <windows.h>

namespace sample_host {

void CreateToolBars(HWND frame);
void ShowToolBars(bool show);

// Places the bars at the top of a frame of that width; returns the height that they take.
int LayOutToolBars(int width);

// The check button of a command follows the mark of its menu item.
void MarkToolBarButton(unsigned command, bool marked);

// Acts on a WM_NOTIFY of a tool bar; returns whether it was one. The answer goes to `result`.
bool OnToolBarNotify(const NMHDR& header, LRESULT& result);

} // namespace sample_host
