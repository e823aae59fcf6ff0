#include "hostlink/host_text.h"

#include <algorithm>
#include <cstring>

#include <windows.h>

namespace hostlink {

namespace {

constexpr std::uint64_t kPageSize = 4096;

// Unlike a plain read, a failing ReadProcessMemory harms nobody.
bool TryRead(std::uint64_t address, char* buffer, std::size_t size) noexcept {
    SIZE_T read = 0;
    return ReadProcessMemory(GetCurrentProcess(),
                             reinterpret_cast<const void*>(static_cast<std::uintptr_t>(address)), buffer,
                             size, &read) != FALSE &&
           read == size;
}

} // namespace

void CopyHostText(std::uint64_t address, std::span<char> buffer) noexcept {
    std::size_t length = 0;
    while (length < buffer.size()) {
        // Page by page: the text may end just before memory that cannot be read.
        const auto toPageEnd = static_cast<std::size_t>(kPageSize - (address + length) % kPageSize);
        const std::size_t chunk = std::min(buffer.size() - length, toPageEnd);
        if (!TryRead(address + length, buffer.data() + length, chunk)) {
            buffer[length] = '\0';
            return;
        }
        if (std::memchr(buffer.data() + length, '\0', chunk) != nullptr) {
            return;
        }
        length += chunk;
    }
    buffer[CutLength({buffer.data(), buffer.size()}, buffer.size() - 1)] = '\0';
}

std::string ToAnsi(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_ACP, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string ansi(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, text.data(), length, ansi.data(), size, nullptr, nullptr);
    return ansi;
}

CodePage SystemCodePage() noexcept {
    return {GetACP() == CP_UTF8, [](unsigned char byte) noexcept { return IsDBCSLeadByte(byte) != FALSE; }};
}

std::size_t CutLength(std::string_view text, std::size_t limit) noexcept {
    return CutLength(text, limit, SystemCodePage());
}

} // namespace hostlink
