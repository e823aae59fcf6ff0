#include "hostlink/remote_send.h"

#include <cstring>
#include <optional>

#include "hostlink/hook.h"
#include "hostlink/host_text.h"
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

// Sends the request that stands in the shared section, which any process can write: a target that is
// not the window of the exchange is ignored.
void SendRequest(HWND window) noexcept {
    if (ToWindow(shared.remoteTarget) != window) {
        return;
    }
    shared.remoteResult = SendMessageA(window, shared.remoteMsg, static_cast<WPARAM>(shared.remoteWParam),
                                       reinterpret_cast<LPARAM>(shared.remoteData));
}

// The hook goes before the request is sent, not after: the messages that the request sets off then pass
// no hook, which spares the host several system calls for each of them.
LRESULT CALLBACK RemoteSendProcedure(int code, WPARAM wParam, LPARAM lParam) noexcept {
    const CWPSTRUCT* call = AwaitedCall(code, lParam, shared.sendRemotelyMsg);
    if (call == nullptr) {
        return CallNext(shared.remoteHook, code, wParam, lParam);
    }
    RemoveFiredHook(shared.remoteHook);
    SendRequest(call->hwnd);
    return 0;
}

LRESULT CALLBACK RemoteSendWithStringProcedure(int code, WPARAM wParam, LPARAM lParam) noexcept {
    const CWPSTRUCT* call = AwaitedCall(code, lParam, shared.sendRemotelyMsg);
    if (call == nullptr) {
        return CallNext(shared.remoteHook, code, wParam, lParam);
    }
    RemoveFiredHook(shared.remoteHook);
    const std::uint64_t offset = shared.remoteStringOffset;
    if (!HasRoomForDescriptor(offset)) {
        shared.remoteString[0] = '\0';
        return 0;
    }
    shared.remoteString[kRemoteStringSize - 1] = '\0';
    const StringDescriptor descriptor = {FromHandle(shared.remoteString), kRemoteStringSize};
    std::memcpy(shared.remoteData + offset, &descriptor, kDescriptorSize);
    SendRequest(call->hwnd);
    StringDescriptor answered = {};
    std::memcpy(&answered, shared.remoteData + offset, kDescriptorSize);
    if (answered.text != descriptor.text) {
        CopyHostText(answered.text, shared.remoteString);
    }
    shared.remoteString[kRemoteStringSize - 1] = '\0';
    return 0;
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

// Lets the hook in the host's thread do its work. False if it could not be installed or did not fire.
bool Exchange(const HostWindow& target, HOOKPROC procedure) noexcept {
    const UINT message = SendRemotelyMessage();
    const OneShotHook hook(shared.remoteHook, WH_CALLWNDPROC, procedure, target.threadId);
    if (!hook.Installed()) {
        return false;
    }
    SendMessageA(target.window, message, 0, 0);
    return shared.remoteHook == 0;
}

void CopyBack(std::span<std::byte> block) noexcept {
    if (!block.empty()) {
        std::memcpy(block.data(), shared.remoteData, block.size());
    }
}

} // namespace

LRESULT RemoteSend(const HostWindow& target, UINT message, WPARAM wParam, std::span<std::byte> block) {
    if (block.size() > kRemoteDataSize) {
        return 0;
    }
    PublishRequest(target.window, message, wParam, block);
    if (!Exchange(target, RemoteSendProcedure)) {
        return 0;
    }
    CopyBack(block);
    return static_cast<LRESULT>(shared.remoteResult);
}

LRESULT RemoteSendWithString(const HostWindow& target, UINT message, WPARAM wParam,
                             std::span<std::byte> block, std::size_t stringOffset, std::string& text) {
    if (block.size() > kRemoteDataSize || !HasRoomForDescriptor(stringOffset)) {
        text.clear();
        return 0;
    }
    PublishRequest(target.window, message, wParam, block);
    shared.remoteStringOffset = stringOffset;
    const std::size_t length = CutLength(text, kRemoteStringSize - 1);
    std::memcpy(shared.remoteString, text.data(), length);
    std::memset(shared.remoteString + length, 0, kRemoteStringSize - length);
    text.clear();
    if (!Exchange(target, RemoteSendWithStringProcedure)) {
        return 0;
    }
    CopyBack(block);
    text.assign(shared.remoteString, strnlen(shared.remoteString, kRemoteStringSize - 1));
    return static_cast<LRESULT>(shared.remoteResult);
}

} // namespace hostlink
