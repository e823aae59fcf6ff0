#include "hostlink/exchange_seal.h"

#include <cstring>

#include "hostlink/digest.h"
#include "hostlink/shared_variable.h"

namespace hostlink {

namespace {

struct Seal {
    volatile std::uint64_t digest;
    volatile std::uint32_t broken;
    std::uint32_t padding;
};
GHOSTHAND_SHARED_VARIABLE constinit Seal seal = {0, 0, 0};

std::uint64_t DigestOf(const Request& request) noexcept {
    Digest digest;
    digest.Add(FromHandle(request.target));
    digest.Add(request.message);
    digest.Add(request.wParam);
    digest.Add(request.stringOffset);
    digest.Add(request.block);
    if (request.hasText) {
        digest.Add(request.text);
    }
    return digest.Value();
}

} // namespace

Request::Request(HWND window, UINT messageToSend, WPARAM parameter,
                 std::span<const std::byte> parameterBlock) noexcept
    : target(window), message(messageToSend), wParam(parameter), stringOffset(0), hasText(false), text{} {
    std::memset(block, 0, sizeof block);
    if (!parameterBlock.empty()) {
        std::memcpy(block, parameterBlock.data(), parameterBlock.size());
    }
}

Request::Request(bool hasTextToo) noexcept
    : target(ToWindow(shared.remoteTarget)), message(shared.remoteMsg),
      wParam(static_cast<WPARAM>(shared.remoteWParam)),
      stringOffset(hasTextToo ? std::uint64_t{shared.remoteStringOffset} : 0), hasText(hasTextToo) {
    std::memcpy(block, shared.remoteData, sizeof block);
    text[0] = '\0';
    if (hasText) {
        std::memcpy(text, shared.remoteString, sizeof text);
    }
}

void SealRequest(bool hasText) noexcept {
    seal.broken = 0;
    seal.digest = DigestOf(Request(hasText));
}

bool IsSealed(const Request& request) noexcept {
    return seal.broken == 0 && seal.digest == DigestOf(request);
}

void BreakSeal() noexcept {
    seal.broken = 1;
}

bool IsSealBroken() noexcept {
    return seal.broken != 0;
}

} // namespace hostlink
