// Remote sends of a program that is not the module. Hook procedures and shared sections live in the module
// alone: such a program has the module that it loaded do its remote sends.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "hostlink/host_window.h"

namespace hostlink {

// From now on, TryRemoteSend, RemoteSend and RemoteSendWithString of this program go through the module,
// which stays loaded for as long. False, and they send nothing, if the module does not export the way.
bool SendThroughModule(HMODULE module) noexcept;

// What crosses from program to module: both may have been built by different compilers.
struct ModuleSend {
    HWND window;
    std::uint32_t threadId;
    std::uint32_t message;
    std::uint64_t wParam;
    std::byte* block; // in and out
    std::uint64_t blockSize;
    char* text; // in and out, NUL-terminated, kRemoteStringSize bytes; null for a send without a text
    std::uint64_t stringOffset;
    std::int64_t result; // 0 if the message was not sent
};
static_assert(sizeof(ModuleSend) == 64);

// The module's side. False if the message was not sent; a send with a text does not tell and is true.
bool SendForProgram(ModuleSend& send) noexcept;

// The program's side: whether there is a module to send through, and the sends.
bool SendsThroughModule() noexcept;
std::optional<LRESULT> ModuleRemoteSend(const HostWindow& target, UINT message, WPARAM wParam,
                                        std::span<std::byte> block) noexcept;
LRESULT ModuleRemoteSendWithString(const HostWindow& target, UINT message, WPARAM wParam,
                                   std::span<std::byte> block, std::size_t stringOffset, std::string& text);

} // namespace hostlink
