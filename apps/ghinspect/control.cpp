#include "ghinspect/control.h"

namespace inspector {

HWND CreateControl(HWND parent, const wchar_t* className, const wchar_t* text, DWORD style, int id,
                   DWORD extendedStyle) {
    return CreateWindowExW(extendedStyle, className, text, WS_CHILD | WS_VISIBLE | style, 0, 0, 0, 0, parent,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), GetModuleHandleW(nullptr),
                           nullptr);
}

std::wstring TextOf(HWND control) {
    std::wstring text(static_cast<std::size_t>(GetWindowTextLengthW(control)) + 1, L'\0');
    const int length = GetWindowTextW(control, text.data(), static_cast<int>(text.size()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

void SetText(HWND control, const std::wstring& text) {
    if (TextOf(control) != text) {
        SetWindowTextW(control, text.c_str());
    }
}

} // namespace inspector
