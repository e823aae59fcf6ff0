#include "automation/conversions.h"

#include <new>

namespace automation {

std::string ToAnsi(BSTR text) {
    if (text == nullptr) {
        return {};
    }
    const std::wstring_view wide(text); // up to the first NUL
    const int length = static_cast<int>(wide.size());
    const int size = WideCharToMultiByte(CP_ACP, 0, wide.data(), length, nullptr, 0, nullptr, nullptr);
    std::string ansi(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, wide.data(), length, ansi.data(), size, nullptr, nullptr);
    return ansi;
}

std::wstring ToWide(std::string_view text) {
    const int length = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(CP_ACP, 0, text.data(), length, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_ACP, 0, text.data(), length, wide.data(), size);
    return wide;
}

void Assign(BSTR* result, std::string_view text) {
    const std::wstring wide = ToWide(text.substr(0, text.find('\0')));
    *result = SysAllocStringLen(wide.data(), static_cast<UINT>(wide.size()));
    if (*result == nullptr) {
        throw std::bad_alloc();
    }
}

} // namespace automation
