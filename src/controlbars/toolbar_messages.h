// The messages that read the buttons of a toolbar. Those with a pointer are sent from inside the host.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include "hostlink/host_window.h"

#include <commctrl.h>

namespace controlbars {

// What TB_GETBUTTON fills.
struct ButtonRecord {
    std::int32_t bitmap = 0;
    std::int32_t command = 0;
    std::uint8_t state = 0;
    std::uint8_t style = 0;
    std::uint8_t reserved[6] = {};
    std::uint64_t data = 0;
    std::uint64_t string = 0; // an index; 0 for none. 0x10000 and more is a pointer of the host
};
static_assert(offsetof(ButtonRecord, command) == 4);
static_assert(offsetof(ButtonRecord, state) == 8);
static_assert(offsetof(ButtonRecord, style) == 9);
static_assert(offsetof(ButtonRecord, data) == 16);
static_assert(offsetof(ButtonRecord, string) == 24);
static_assert(sizeof(ButtonRecord) == 32);

// Whether it is a bar of the host's own kind, which answers some messages in its own way.
bool IsHostBar(HWND toolbar) noexcept;

// `index` is 0-based. None where the host does not answer or has no such button.
std::optional<ButtonRecord> ReadButton(const hostlink::HostWindow& toolbar, int index);
// In client coordinates.
std::optional<RECT> ReadButtonRectangle(const hostlink::HostWindow& toolbar, int index);
// The button's own text, else that of its string index. None where it has neither, and for a text of more
// than 1022 bytes, which the way into the host is too narrow for.
std::optional<std::string> ReadButtonText(const hostlink::HostWindow& toolbar, const ButtonRecord& button);

} // namespace controlbars
