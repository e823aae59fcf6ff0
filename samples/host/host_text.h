// The text buffer of a request of the contract, from the host's side.
#pragma once

#include <ghosthand/host_contract.h>

#include <algorithm>
#include <cstring>
#include <string>

namespace sample_host {

// The text that the script's side has put into the buffer. Bounded by the capacity: what comes from
// another program need not have an end.
inline std::string TextOf(const ghosthand::host_contract::TextBuffer& buffer) {
    const auto* text = reinterpret_cast<const char*>(buffer.text);
    return {text, strnlen(text, buffer.capacity)};
}

// Answers with a text: writes it into the buffer, cut to its capacity. A host that has the text lying
// around in memory may set buffer.text to it instead.
inline void AnswerText(ghosthand::host_contract::TextBuffer& buffer, const std::string& text) {
    if (buffer.capacity == 0)
        return;
    auto* answer = reinterpret_cast<char*>(buffer.text);
    const std::size_t length = std::min<std::size_t>(text.size(), buffer.capacity - 1);
    std::memcpy(answer, text.data(), length);
    answer[length] = '\0';
}

} // namespace sample_host
