#include "hostlink/module_sends.h"

#include <cstring>

#include "hostlink/host_text.h"
#include "hostlink/remote_send.h"
#include "hostlink/shared_section.h"

namespace hostlink {

namespace {

using SendFunction = int (*)(ModuleSend*);
SendFunction moduleSend = nullptr;

ModuleSend Describe(const HostWindow& target, UINT message, WPARAM wParam,
                    std::span<std::byte> block) noexcept {
    return {target.window, target.threadId, message, wParam, block.data(), block.size(), nullptr, 0, 0};
}

} // namespace

bool SendThroughModule(HMODULE module) noexcept {
    moduleSend = reinterpret_cast<SendFunction>(GetProcAddress(module, "ghosthand_remote_send"));
    return moduleSend != nullptr;
}

bool SendsThroughModule() noexcept {
    return moduleSend != nullptr;
}

bool SendForProgram(ModuleSend& send) noexcept {
    const HostWindow target = {send.window, send.threadId};
    const std::span block(send.block, static_cast<std::size_t>(send.blockSize));
    send.result = 0;
    if (send.text == nullptr) {
        const auto result = TryRemoteSend(target, send.message, static_cast<WPARAM>(send.wParam), block);
        send.result = result.value_or(0);
        return result.has_value();
    }
    try {
        std::string text = send.text;
        send.result = RemoteSendWithString(target, send.message, static_cast<WPARAM>(send.wParam), block,
                                           static_cast<std::size_t>(send.stringOffset), text);
        std::memcpy(send.text, text.c_str(), text.size() + 1);
        return true;
    } catch (...) {
        send.text[0] = '\0';
        return false;
    }
}

std::optional<LRESULT> ModuleRemoteSend(const HostWindow& target, UINT message, WPARAM wParam,
                                        std::span<std::byte> block) noexcept {
    ModuleSend send = Describe(target, message, wParam, block);
    return moduleSend(&send) != 0 ? std::optional(static_cast<LRESULT>(send.result)) : std::nullopt;
}

LRESULT ModuleRemoteSendWithString(const HostWindow& target, UINT message, WPARAM wParam,
                                   std::span<std::byte> block, std::size_t stringOffset, std::string& text) {
    char buffer[kRemoteStringSize] = {};
    std::memcpy(buffer, text.data(), CutLength(text, sizeof buffer - 1));
    ModuleSend send = Describe(target, message, wParam, block);
    send.text = buffer;
    send.stringOffset = stringOffset;
    moduleSend(&send);
    text = buffer;
    return static_cast<LRESULT>(send.result);
}

} // namespace hostlink
