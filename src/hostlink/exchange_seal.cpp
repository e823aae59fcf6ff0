#include "hostlink/exchange_seal.h"

#include <cstring>
#include <span>

#include "hostlink/shared_variable.h"

namespace hostlink {

namespace {

struct Seal {
    volatile std::uint64_t digest;
    volatile std::uint32_t broken;
    std::uint32_t padding;
};
GHOSTHAND_SHARED_VARIABLE constinit Seal seal = {0, 0, 0};

// Not against forgery, which a shared section cannot prevent, but against what is written at random or by
// another script.
class Digest {
public:
    void Add(std::uint64_t value) noexcept {
        constexpr std::uint64_t kOddMultiplier = 0x9E3779B97F4A7C15;
        m_value = (m_value ^ value) * kOddMultiplier;
        m_value ^= m_value >> 29;
    }
    void Add(std::span<const char> bytes) noexcept {
        for (std::size_t offset = 0; offset + sizeof(std::uint64_t) <= bytes.size();
             offset += sizeof(std::uint64_t)) {
            std::uint64_t value = 0;
            std::memcpy(&value, bytes.data() + offset, sizeof value);
            Add(value);
        }
    }
    std::uint64_t Value() const noexcept { return m_value; }

private:
    std::uint64_t m_value = 1;
};
static_assert(kRemoteDataSize % sizeof(std::uint64_t) == 0 && kRemoteStringSize % sizeof(std::uint64_t) == 0);

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
