// An edit control over a part of a control, for one value.
#pragma once

#include "control.h"

#include <functional>
#include <string>

namespace sample_host {

// Return and the loss of the focus hand the typed text to `commit`, Escape drops it.
void OpenCellEdit(HWND parent, RECT area, const std::string& text,
                  std::function<void(const std::string&)> commit);

} // namespace sample_host
