#include "controls/host_text_request.h"

#include "engine/diagnostics.h"
#include "ghosthand/host_contract.h"
#include "hostlink/remote_send.h"

namespace controls {

std::string RequestText(const ghBaseWindow& window, UINT message, WPARAM request, std::span<std::byte> record,
                        std::size_t bufferOffset) {
    std::string text;
    hostlink::RemoteSendWithString(window.Host(), message, request, record, bufferOffset, text);
    return text;
}

bool FitsTextBuffer(std::string_view text) {
    const bool fits = text.size() < ghosthand::host_contract::kTextCapacity;
    if (!fits) {
        engine::diagnostics::Report("A text of 1024 bytes or more was not sent to the host.\n");
    }
    return fits;
}

LRESULT SendText(const ghBaseWindow& window, UINT message, WPARAM request, std::span<std::byte> record,
                 std::size_t bufferOffset, std::string text) {
    return FitsTextBuffer(text)
               ? hostlink::RemoteSendWithString(window.Host(), message, request, record, bufferOffset, text)
               : 0;
}

} // namespace controls
