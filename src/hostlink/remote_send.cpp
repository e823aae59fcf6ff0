#include "hostlink/remote_send.h"

#include <cstring>
#include <optional>

#include "hostlink/exchange_seal.h"
#include "hostlink/hook.h"
#include "hostlink/host_text.h"
#include "hostlink/module_sends.h"
#include "hostlink/registered_messages.h"
#include "hostlink/shared_section.h"

namespace hostlink {

namespace {

// What the host finds at the string offset of the block.
struct StringDescriptor {
    std::uint64_t text;
    std::uint32_t capacity;
};
constexpr std::size_t kDescriptorSize = 12; // without the structure's padding
static_assert(offsetof(StringDescriptor, capacity) == 8);

bool HasRoomForDescriptor(std::uint64_t offset) noexcept {
    return offset <= kRemoteDataSize - kDescriptorSize;
}

// Control and registered messages alone travel this way.
bool MayBeSent(UINT message) noexcept {
    return message >= WM_USER && message != AwaitedSendRemotelyMessage();
}

LRESULT SendRequest(Request& request) noexcept {
    return SendMessageA(request.target, request.message, request.wParam,
                        reinterpret_cast<LPARAM>(request.block));
}

// Puts the descriptor of the text into the block, sends, and fetches the text that the host has put in place
// of it.
LRESULT SendRequestWithString(Request& request) noexcept {
    request.text[kRemoteStringSize - 1] = '\0';
    const StringDescriptor descriptor = {FromHandle(request.text), kRemoteStringSize};
    std::memcpy(request.block + request.stringOffset, &descriptor, kDescriptorSize);
    const LRESULT result = SendRequest(request);
    StringDescriptor answered = {};
    std::memcpy(&answered, request.block + request.stringOffset, kDescriptorSize);
    if (answered.text != descriptor.text) {
        CopyHostText(answered.text, request.text);
    }
    request.text[kRemoteStringSize - 1] = '\0';
    return result;
}

// The host gets a copy of the block, not the shared one: what another process writes meanwhile would lead it
// astray. What it left there is published.
void SendPublished(Request& request) noexcept {
    shared.remoteResult = SendRequest(request);
    std::memcpy(shared.remoteData, request.block, sizeof request.block);
}

void SendPublishedWithString(Request& request) noexcept {
    shared.remoteResult = SendRequestWithString(request);
    std::memcpy(shared.remoteData, request.block, sizeof request.block);
    std::memcpy(shared.remoteString, request.text, sizeof request.text);
}

// The hook goes before the request is sent, not after: the messages that the request sets off then pass
// no hook, which spares the host several system calls for each of them. A call that is not for the target is
// left alone, with the hook: a signal that its sender has given up can still come by.
LRESULT OnCall(int code, WPARAM wParam, LPARAM lParam, bool hasText, void (*send)(Request&)) noexcept {
    const CWPSTRUCT* call = AwaitedCall(code, lParam, AwaitedSendRemotelyMessage());
    if (call != nullptr && IsSameWindow(call->hwnd, ToWindow(shared.remoteTarget))) {
        Request request(hasText);
        if (RemoveFiredHook(shared.remoteHook) && MayBeSent(request.message) &&
            HasRoomForDescriptor(request.stringOffset) && IsSealed(request)) {
            send(request);
            BreakSeal();
        }
    }
    // In any case: the hook of another module can wait for the same message.
    return CallNext(shared.remoteHook, code, wParam, lParam);
}

LRESULT CALLBACK RemoteSendProcedure(int code, WPARAM wParam, LPARAM lParam) noexcept {
    return OnCall(code, wParam, lParam, false, SendPublished);
}

LRESULT CALLBACK RemoteSendWithStringProcedure(int code, WPARAM wParam, LPARAM lParam) noexcept {
    return OnCall(code, wParam, lParam, true, SendPublishedWithString);
}

// Publishes the request. Everything is cleared first, so that a failure never shows the data of the
// exchange before.
void PublishRequest(HWND window, UINT message, WPARAM wParam, std::span<const std::byte> block) noexcept {
    shared.remoteResult = 0;
    shared.remoteTarget = FromHandle(window);
    shared.remoteMsg = message;
    shared.remoteWParam = wParam;
    if (!block.empty()) {
        std::memcpy(shared.remoteData, block.data(), block.size());
    }
    std::memset(shared.remoteData + block.size(), 0, kRemoteDataSize - block.size());
}

// Seals what is published and lets the hook in the host's thread do its work. The message's result; none if
// it was not sent.
std::optional<LRESULT> Exchange(const HostWindow& target, HOOKPROC procedure, bool hasText) noexcept {
    const UINT message = SendRemotelyMessage();
    SealRequest(hasText);
    const ScopedHook hook(shared.remoteHook, WH_CALLWNDPROC, procedure, target.threadId);
    if (hook.Installed()) {
        SendMessageA(target.window, message, 0, 0);
    }
    return IsSealBroken() ? std::optional(static_cast<LRESULT>(shared.remoteResult)) : std::nullopt;
}

void CopyBack(const char (&left)[kRemoteDataSize], std::span<std::byte> block) noexcept {
    if (!block.empty()) {
        std::memcpy(block.data(), left, block.size());
    }
}

// In the window's own thread there is nothing to carry.
std::optional<LRESULT> SendHere(HWND window, UINT message, WPARAM wParam,
                                std::span<std::byte> block) noexcept {
    if (!MayBeSent(message) || IsWindow(window) == FALSE) {
        return std::nullopt;
    }
    Request request(window, message, wParam, block);
    const LRESULT result = SendRequest(request);
    CopyBack(request.block, block);
    return result;
}

LRESULT SendHereWithString(HWND window, UINT message, WPARAM wParam, std::span<std::byte> block,
                           std::size_t stringOffset, std::string& text) {
    if (!MayBeSent(message) || IsWindow(window) == FALSE) {
        text.clear();
        return 0;
    }
    Request request(window, message, wParam, block);
    request.stringOffset = stringOffset;
    std::memcpy(request.text, text.data(), CutLength(text, kRemoteStringSize - 1));
    const LRESULT result = SendRequestWithString(request);
    CopyBack(request.block, block);
    text = request.text;
    return result;
}

} // namespace

std::optional<LRESULT> TryRemoteSend(const HostWindow& target, UINT message, WPARAM wParam,
                                     std::span<std::byte> block) {
    if (block.size() > kRemoteDataSize) {
        return std::nullopt;
    }
    if (IsOfThisThread(target)) {
        return SendHere(target.window, message, wParam, block);
    }
    if (SendsThroughModule()) {
        return ModuleRemoteSend(target, message, wParam, block);
    }
    PublishRequest(target.window, message, wParam, block);
    const auto result = Exchange(target, RemoteSendProcedure, false);
    if (result) {
        CopyBack(shared.remoteData, block);
    }
    return result;
}

LRESULT RemoteSend(const HostWindow& target, UINT message, WPARAM wParam, std::span<std::byte> block) {
    return TryRemoteSend(target, message, wParam, block).value_or(0);
}

LRESULT RemoteSendWithString(const HostWindow& target, UINT message, WPARAM wParam,
                             std::span<std::byte> block, std::size_t stringOffset, std::string& text) {
    if (block.size() > kRemoteDataSize || !HasRoomForDescriptor(stringOffset)) {
        text.clear();
        return 0;
    }
    if (IsOfThisThread(target)) {
        return SendHereWithString(target.window, message, wParam, block, stringOffset, text);
    }
    if (SendsThroughModule()) {
        return ModuleRemoteSendWithString(target, message, wParam, block, stringOffset, text);
    }
    PublishRequest(target.window, message, wParam, block);
    shared.remoteStringOffset = stringOffset;
    const std::size_t length = CutLength(text, kRemoteStringSize - 1);
    std::memcpy(shared.remoteString, text.data(), length);
    std::memset(shared.remoteString + length, 0, kRemoteStringSize - length);
    text.clear();
    const auto result = Exchange(target, RemoteSendWithStringProcedure, true);
    if (result) {
        CopyBack(shared.remoteData, block);
        text.assign(shared.remoteString, strnlen(shared.remoteString, kRemoteStringSize - 1));
    }
    return result.value_or(0);
}

} // namespace hostlink
