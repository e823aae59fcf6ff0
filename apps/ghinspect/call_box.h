// The call that reaches what is selected, in the language that the user writes.
#pragma once

#include <string>

#include <windows.h>

#include "explain/call_text.h"

namespace inspector {

class CallBox {
public:
    void Create(HWND parent, explain::Language language);

    void SetName(const std::wstring& name);
    // An empty call takes away the text. `verdict`: what is to be said of it.
    void Show(const explain::Call& call, const std::wstring& verdict);
    const explain::Call& Call() const noexcept { return m_call; }
    explain::Language Language() const noexcept { return m_language; }
    // Takes over what is chosen in the combo box.
    void ReadLanguage();
    // To the clipboard. False where there is no call or the clipboard is not to be had.
    bool Copy() const;

private:
    void Write();

    HWND m_name = nullptr;
    HWND m_verdict = nullptr;
    HWND m_languages = nullptr;
    HWND m_text = nullptr;
    explain::Call m_call;
    explain::Language m_language = explain::Language::VBScript;
};

} // namespace inspector
