// Answering a request of the contract with a text.
#pragma once

#include <ghosthand/host_contract.h>

#include <string>
#include <windows.h>

namespace sample_host {

// Writes the text into the buffer, cut to its capacity. A host that has the text lying around in memory may
// set buffer.text to it instead.
inline void AnswerText(const ghosthand::host_contract::TextBuffer& buffer, const std::string& text) {
    ghosthand::host_contract::WriteText(buffer, text, GetACP(), IsDBCSLeadByte);
}

} // namespace sample_host
