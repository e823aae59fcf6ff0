#include "automation/conversions.h"

#include <new>

#include "hostlink/host_text.h"

namespace automation {

std::string ToAnsi(BSTR text) {
    return text == nullptr ? std::string() : hostlink::ToAnsi(text); // up to the first NUL
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
