// The look of items that their control leaves to its parent to draw.
#pragma once

#include <windows.h>

namespace sample_host {

void DrawItemText(const DRAWITEMSTRUCT& item, const char* text);

// Answers WM_MEASUREITEM.
void MeasureItemText(MEASUREITEMSTRUCT& item);

} // namespace sample_host
