// A picture of the whole desktop.
#pragma once

#include <optional>
#include <string>

#include <windows.h>

namespace trace {

// Writes a PNG. The rectangle that the picture shows, in screen coordinates; none if there is no picture, as
// on a locked desktop or where the file cannot be written. The calling thread must have joined COM.
std::optional<RECT> SaveDesktopPicture(const std::wstring& path) noexcept;

} // namespace trace
