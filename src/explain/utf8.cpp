#include "explain/utf8.h"

#include <windows.h>

namespace explain {

namespace {

std::wstring Decode(std::string_view text, UINT codePage) {
    const int length = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(codePage, 0, text.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(codePage, 0, text.data(), length, wide.data(), size);
    return wide;
}

} // namespace

std::string ToUtf8(std::wstring_view text) {
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, narrow.data(), size, nullptr, nullptr);
    return narrow;
}

std::wstring ToUtf16(std::string_view text) {
    return Decode(text, CP_UTF8);
}

std::string AnsiToUtf8(std::string_view text) {
    return ToUtf8(Decode(text, CP_ACP));
}

} // namespace explain
