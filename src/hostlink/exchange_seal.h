// The seal on a remote send's request: what its sender published, in a section of its own.
//
// The request crosses in the shared section, which any process can write and in which two scripts can get
// into each other's way. The hook sends only what the seal vouches for.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

#include <windows.h>

#include "hostlink/shared_section.h"

namespace hostlink {

// What is to be sent in the control's own thread, with the memory that its parameters point at.
struct Request {
    // A request of that thread's own, without a text. `block` has at most kRemoteDataSize bytes.
    Request(HWND target, UINT message, WPARAM wParam, std::span<const std::byte> block) noexcept;
    // The request as it stood in the shared section. A copy: what is checked is what is sent, and nobody can
    // change it while the host reads it.
    explicit Request(bool hasText) noexcept;

    HWND target;
    UINT message;
    WPARAM wParam;
    std::uint64_t stringOffset; // 0 for a request without a text
    bool hasText;
    alignas(16) char block[kRemoteDataSize];
    char text[kRemoteStringSize]; // empty for a request without a text
};

// Called by the sender, when all of the request stands in the shared section.
void SealRequest(bool hasText) noexcept;
// Called by the hook. False if the request, its block or its text is not what was sealed.
bool IsSealed(const Request& request) noexcept;

// The hook tells the sender that the message was sent: an answer of 0 is not the same as no answer.
void BreakSeal() noexcept;
bool IsSealBroken() noexcept;

} // namespace hostlink
