// Messages whose lParam must point at memory of the host: sent from inside the host's GUI thread, with
// their parameter block carried through the shared section. In that thread itself they are sent at once.
#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>

#include "hostlink/host_window.h"

namespace hostlink {

// Sends `message` to `target` with lParam pointing at a copy of `block`; the block is overwritten with
// what the host left there. Returns the message's result, none if the message was not sent and the block is
// untouched: for a block of more than 1024 bytes, where no hook can be installed, when the window goes, for
// a message below WM_USER (those of the system carry no block of ours) and when another process has changed
// the request on its way.
std::optional<LRESULT> TryRemoteSend(const HostWindow& target, UINT message, WPARAM wParam,
                                     std::span<std::byte> block = {});

// The same, with a result of 0 where the message was not sent.
LRESULT RemoteSend(const HostWindow& target, UINT message, WPARAM wParam, std::span<std::byte> block = {});

// The same with a text in and out. The host finds at `stringOffset` of the block a 64-bit pointer to the
// text and its 32-bit capacity, 1024; an offset that leaves no room for them within 1024 bytes is refused.
// `text` is cut at 1023 bytes on its way in; on return it holds what the host wrote there or the text at the
// pointer that it put in place, nothing after a failure.
LRESULT RemoteSendWithString(const HostWindow& target, UINT message, WPARAM wParam,
                             std::span<std::byte> block, std::size_t stringOffset, std::string& text);

// A structure as a parameter block.
template <class Record>
std::span<std::byte> AsBlock(Record& record) noexcept {
    return std::as_writable_bytes(std::span<Record, 1>(&record, 1));
}

} // namespace hostlink
