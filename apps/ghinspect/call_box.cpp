#include "ghinspect/call_box.h"

#include <cstring>
#include <iterator>

#include <windows.h>

#include <commctrl.h>

#include "explain/utf8.h"
#include "ghinspect/control.h"
#include "ghinspect/control_ids.h"

namespace inspector {

namespace {

bool PutOnClipboard(HWND owner, const std::wstring& text) {
    if (!OpenClipboard(owner)) {
        return false;
    }
    EmptyClipboard();
    const std::size_t size = (text.size() + 1) * sizeof(wchar_t);
    const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, size);
    bool isPut = false;
    if (memory != nullptr) {
        std::memcpy(GlobalLock(memory), text.c_str(), size);
        GlobalUnlock(memory);
        isPut = SetClipboardData(CF_UNICODETEXT, memory) != nullptr;
        if (!isPut) {
            GlobalFree(memory);
        }
    }
    CloseClipboard();
    return isPut;
}

} // namespace

void CallBox::Create(HWND parent, explain::Language language) {
    m_language = language;
    m_name = CreateControl(parent, WC_STATICW, L"", SS_NOPREFIX | SS_ENDELLIPSIS, ids::kName);
    m_verdict = CreateControl(parent, WC_STATICW, L"", SS_NOPREFIX, ids::kVerdict);
    CreateControl(parent, WC_STATICW, L"Call &in", SS_LEFT, ids::kLanguageLabel);
    m_languages =
        CreateControl(parent, WC_COMBOBOXW, L"", WS_TABSTOP | WS_VSCROLL | CBS_DROPDOWNLIST, ids::kLanguage);
    for (const explain::Language each : explain::kLanguages) {
        const std::wstring name = explain::ToUtf16(explain::LanguageName(each));
        SendMessageW(m_languages, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
        if (each == language) {
            SendMessageW(m_languages, CB_SETCURSEL,
                         static_cast<WPARAM>(SendMessageW(m_languages, CB_GETCOUNT, 0, 0) - 1), 0);
        }
    }
    CreateControl(parent, WC_BUTTONW, L"&Copy (Ctrl+C)", WS_TABSTOP | BS_PUSHBUTTON, ids::kCopy);
    m_text = CreateControl(parent, WC_EDITW, L"", WS_TABSTOP | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL,
                           ids::kCall, WS_EX_CLIENTEDGE);
}

void CallBox::SetName(const std::wstring& name) {
    SetText(m_name, name);
}

void CallBox::Show(const explain::Call& call, const std::wstring& verdict) {
    m_call = call;
    SetText(m_verdict, verdict);
    Write();
}

void CallBox::Write() {
    SetText(m_text, m_call.empty() ? L"" : explain::ToUtf16(explain::CallText(m_call, m_language)));
    EnableWindow(GetDlgItem(GetParent(m_text), ids::kCopy), !m_call.empty());
}

void CallBox::ReadLanguage() {
    const auto chosen = static_cast<std::size_t>(SendMessageW(m_languages, CB_GETCURSEL, 0, 0));
    if (chosen < std::size(explain::kLanguages)) {
        m_language = explain::kLanguages[chosen];
        Write();
    }
}

bool CallBox::Copy() const {
    return !m_call.empty() && PutOnClipboard(GetParent(m_text), TextOf(m_text));
}

} // namespace inspector
