#include "ghinspect/settings.h"

#include <string>

#include <windows.h>

#include "explain/utf8.h"

namespace inspector {

namespace {

constexpr wchar_t kKey[] = L"Software\\Ghosthand\\Inspector";
constexpr wchar_t kLanguage[] = L"Language";
constexpr wchar_t kHiddenWindows[] = L"HiddenWindows";

void Write(const wchar_t* name, DWORD type, const void* data, DWORD size) {
    RegSetKeyValueW(HKEY_CURRENT_USER, kKey, name, type, data, size);
}

} // namespace

Settings LoadSettings() {
    Settings settings;
    wchar_t language[32] = L"";
    DWORD size = sizeof language;
    if (RegGetValueW(HKEY_CURRENT_USER, kKey, kLanguage, RRF_RT_REG_SZ, nullptr, language, &size) ==
        ERROR_SUCCESS) {
        settings.language = explain::LanguageOf(explain::ToUtf8(language)).value_or(settings.language);
    }
    DWORD hidden = 0;
    size = sizeof hidden;
    if (RegGetValueW(HKEY_CURRENT_USER, kKey, kHiddenWindows, RRF_RT_REG_DWORD, nullptr, &hidden, &size) ==
        ERROR_SUCCESS) {
        settings.showHidden = hidden != 0;
    }
    return settings;
}

void SaveSettings(const Settings& settings) {
    const std::wstring language = explain::ToUtf16(explain::LanguageName(settings.language));
    Write(kLanguage, REG_SZ, language.c_str(), static_cast<DWORD>((language.size() + 1) * sizeof(wchar_t)));
    const DWORD hidden = settings.showHidden ? 1 : 0;
    Write(kHiddenWindows, REG_DWORD, &hidden, sizeof hidden);
}

} // namespace inspector
