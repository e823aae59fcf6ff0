// What the controls of the window have in common.
#pragma once

#include <string>

#include <windows.h>

namespace inspector {

// Without a place: Arrange gives it one. `style`: beside WS_CHILD and WS_VISIBLE.
HWND CreateControl(HWND parent, const wchar_t* className, const wchar_t* text, DWORD style, int id,
                   DWORD extendedStyle = 0);
std::wstring TextOf(HWND control);
// Leaves a control alone that has the text already: it would flicker and lose its selection.
void SetText(HWND control, const std::wstring& text);

} // namespace inspector
