// Requests to the host's own controls that carry a text: a record of ghosthand/host_contract.h that has a
// TextBuffer in it.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>

#include "engine/ghBaseWindow.h"

namespace controls {

// What the host answered to `request` (wParam of `message`): it wrote the text into the buffer or put a
// pointer to its own in place. Empty if it did neither. `bufferOffset`: of the TextBuffer in the record.
std::string RequestText(const ghBaseWindow& window, UINT message, WPARAM request, std::span<std::byte> record,
                        std::size_t bufferOffset);

// Whether the host's buffer holds the text with its terminator. A text that it does not hold is reported
// to the diagnostic sink.
bool FitsTextBuffer(std::string_view text);

// Hands a text to the host. The request's result; 0 for a text that does not fit the buffer, of which
// nothing is sent.
LRESULT SendText(const ghBaseWindow& window, UINT message, WPARAM request, std::span<std::byte> record,
                 std::size_t bufferOffset, std::string text);

} // namespace controls
