#include "controlbars/toolbar_messages.h"

#include <algorithm>
#include <vector>

#include "hostlink/host_classes.h"
#include "hostlink/remote_send.h"
#include "hostlink/shared_section.h"

namespace controlbars {

namespace {

static_assert(sizeof(RECT) == 16);

template <class Record>
std::optional<Record> ReadRecord(const hostlink::HostWindow& toolbar, UINT message, int index) {
    Record record = {};
    const auto block = hostlink::AsBlock(record);
    return hostlink::RemoteSend(toolbar, message, static_cast<WPARAM>(index), block) != 0
               ? std::optional(record)
               : std::nullopt;
}

// The host may have changed the text since it told the length: what it left is read up to its terminator, and
// no further than the block. What it answers does not matter.
std::optional<std::string> FetchText(const hostlink::HostWindow& toolbar, UINT message, WPARAM wParam,
                                     std::size_t blockSize) {
    if (blockSize > hostlink::kRemoteDataSize) {
        return std::nullopt; // before room is made for whatever length the host answers
    }
    std::vector<std::byte> block(blockSize);
    if (!hostlink::TryRemoteSend(toolbar, message, wParam, block)) {
        return std::nullopt;
    }
    const auto end = std::find(block.begin(), block.end(), std::byte{0});
    return std::string(reinterpret_cast<const char*>(block.data()),
                       static_cast<std::size_t>(end - block.begin()));
}

std::size_t BlockSizeOf(int length) noexcept {
    return static_cast<std::size_t>(length) + 2;
}

// The platform's toolbars take the size of the buffer in the low word and the index in the high word, the
// host's bars the plain index.
WPARAM StringParameter(HWND toolbar, std::uint64_t index, std::size_t blockSize) noexcept {
    return IsHostBar(toolbar) ? index : MAKEWPARAM(blockSize, index);
}

std::optional<std::string> ReadString(const hostlink::HostWindow& toolbar, std::uint64_t index) {
    if (index == 0 || index >= 0x10000) {
        return std::nullopt;
    }
    const WPARAM query = StringParameter(toolbar.window, index, 0);
    const int length = static_cast<int>(SendMessageA(toolbar.window, TB_GETSTRINGA, query, 0));
    if (length < 1) {
        return std::nullopt;
    }
    const std::size_t blockSize = BlockSizeOf(length);
    return FetchText(toolbar, TB_GETSTRINGA, StringParameter(toolbar.window, index, blockSize), blockSize);
}

} // namespace

bool IsHostBar(HWND toolbar) noexcept {
    return hostlink::IsHostBarClass(hostlink::WindowClass(toolbar));
}

std::optional<ButtonRecord> ReadButton(const hostlink::HostWindow& toolbar, int index) {
    return ReadRecord<ButtonRecord>(toolbar, TB_GETBUTTON, index);
}

std::optional<RECT> ReadButtonRectangle(const hostlink::HostWindow& toolbar, int index) {
    return ReadRecord<RECT>(toolbar, TB_GETITEMRECT, index);
}

std::optional<std::string> ReadButtonText(const hostlink::HostWindow& toolbar, const ButtonRecord& button) {
    if (button.command == 0 || button.command == -1) {
        return ReadString(toolbar, button.string);
    }
    const auto command = static_cast<WPARAM>(button.command);
    const int length = static_cast<int>(SendMessageA(toolbar.window, TB_GETBUTTONTEXTA, command, 0));
    if (length < 0) {
        return std::nullopt;
    }
    return length > 0 ? FetchText(toolbar, TB_GETBUTTONTEXTA, command, BlockSizeOf(length))
                      : ReadString(toolbar, button.string);
}

} // namespace controlbars
