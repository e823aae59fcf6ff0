#include <ghosthand/host_contract.h> // alone, to see that it needs nothing before it

#include "pure/host_contract_cxx11.h"

namespace contract = ghosthand::host_contract;

namespace {

// Of the Japanese code page 932, in which the second byte can be a letter or a backslash.
bool IsLeadByte(unsigned char byte) {
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}

contract::TextBuffer BufferAt(const char* memory, unsigned capacity) {
    return {reinterpret_cast<std::uintptr_t>(memory), capacity, 0xDEADBEEF};
}

} // namespace

namespace cxx11 {

std::string Written(std::string memory, unsigned capacity, const std::string& text, CodePage codePage) {
    contract::WriteText(BufferAt(&memory[0], capacity), text,
                        codePage == CodePage::Utf8 ? contract::kUtf8CodePage : 932, IsLeadByte);
    return memory;
}

std::string Read(const std::string& memory, unsigned capacity) {
    return contract::ReadText(BufferAt(memory.data(), capacity));
}

std::string WrittenAndReadWithoutMemory() {
    const contract::TextBuffer buffer = BufferAt(nullptr, 16);
    contract::WriteText(buffer, "text", 932, IsLeadByte);
    return contract::ReadText(buffer);
}

} // namespace cxx11
