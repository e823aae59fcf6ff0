// Where the buttons of a bar are and what they look like.
#pragma once

#include "bar_window.h"

#include <span>

namespace sample_host {

// One rectangle for each button, in client coordinates.
std::vector<RECT> LayOutBar(std::span<const BarButton> buttons, bool vertical);

// `hot` is the index of the button under the cursor, -1 for none.
void PaintBar(HDC canvas, const RECT& client, std::span<const BarButton> buttons, std::span<const RECT> areas,
              bool vertical, int hot);

} // namespace sample_host
