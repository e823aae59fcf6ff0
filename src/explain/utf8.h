// UTF-8 and the system's UTF-16, into one another. What is not well formed becomes U+FFFD.
#pragma once

#include <string>
#include <string_view>

namespace explain {

std::string ToUtf8(std::wstring_view text);
std::wstring ToUtf16(std::string_view text);
// From the system code page, in which the engine keeps its texts.
std::string AnsiToUtf8(std::string_view text);

} // namespace explain
