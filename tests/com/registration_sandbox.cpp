#include "com/registration_sandbox.h"

#include <algorithm>
#include <system_error>

namespace support {
namespace {

void Check(LSTATUS status, const char* what) {
    if (status != ERROR_SUCCESS)
        throw std::system_error(status, std::system_category(), what);
}

std::wstring ValueText(DWORD type, const std::vector<BYTE>& bytes) {
    std::wstring text;
    switch (type) {
    case REG_SZ:
    case REG_EXPAND_SZ: {
        text.assign(reinterpret_cast<const wchar_t*>(bytes.data()), bytes.size() / sizeof(wchar_t));
        const bool terminated = text.ends_with(L'\0');
        while (text.ends_with(L'\0'))
            text.pop_back();
        return (type == REG_SZ ? L"REG_SZ " : L"REG_EXPAND_SZ ") + text +
               (terminated ? L"" : L" (unterminated)");
    }
    case REG_DWORD:
        return L"REG_DWORD " + std::to_wstring(*reinterpret_cast<const DWORD*>(bytes.data()));
    default:
        text = L"type " + std::to_wstring(type) + L":";
        for (const BYTE byte : bytes)
            text += L" " + std::to_wstring(byte);
        return text;
    }
}

void AppendValues(HKEY key, const std::wstring& path, std::vector<std::wstring>& lines) {
    for (DWORD index = 0;; ++index) {
        wchar_t name[1024];
        std::vector<BYTE> bytes(4096);
        DWORD nameLength = 1024;
        DWORD size = static_cast<DWORD>(bytes.size());
        DWORD type = 0;
        const LSTATUS status =
            RegEnumValueW(key, index, name, &nameLength, nullptr, &type, bytes.data(), &size);
        if (status == ERROR_NO_MORE_ITEMS)
            return;
        Check(status, "RegEnumValueW");
        bytes.resize(size);
        lines.push_back(path + L" " + (nameLength == 0 ? L"@" : name) + L" = " + ValueText(type, bytes));
    }
}

void AppendContents(HKEY key, const std::wstring& path, std::vector<std::wstring>& lines) {
    AppendValues(key, path, lines);
    for (DWORD index = 0;; ++index) {
        wchar_t name[256];
        DWORD length = 256;
        const LSTATUS status = RegEnumKeyExW(key, index, name, &length, nullptr, nullptr, nullptr, nullptr);
        if (status == ERROR_NO_MORE_ITEMS)
            return;
        Check(status, "RegEnumKeyExW");
        HKEY child = nullptr;
        Check(RegOpenKeyExW(key, name, 0, KEY_READ, &child), "RegOpenKeyExW");
        const std::wstring childPath = path.empty() ? name : path + L"\\" + name;
        lines.push_back(childPath);
        AppendContents(child, childPath, lines);
        RegCloseKey(child);
    }
}

} // namespace

RegistrationSandbox::RegistrationSandbox()
    : m_path(L"Software\\Ghosthand tests\\" + std::to_wstring(GetCurrentProcessId())) {
    RegDeleteTreeW(HKEY_CURRENT_USER, m_path.c_str());
    Check(RegCreateKeyExW(HKEY_CURRENT_USER, m_path.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                          KEY_ALL_ACCESS, nullptr, &m_root, nullptr),
          "making the sandbox");
    Check(RegOverridePredefKey(HKEY_CLASSES_ROOT, m_root), "RegOverridePredefKey");
}

RegistrationSandbox::~RegistrationSandbox() {
    RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr);
    RegCloseKey(m_root);
    RegDeleteTreeW(HKEY_CURRENT_USER, m_path.c_str());
    RegDeleteKeyW(HKEY_CURRENT_USER, L"Software\\Ghosthand tests");
}

void RegistrationSandbox::MakeKey(const std::wstring& path, bool isVolatile) {
    HKEY key = nullptr;
    Check(RegCreateKeyExW(m_root, path.c_str(), 0, nullptr,
                          isVolatile ? REG_OPTION_VOLATILE : REG_OPTION_NON_VOLATILE, KEY_WRITE, nullptr,
                          &key, nullptr),
          "making a key");
    RegCloseKey(key);
}

void RegistrationSandbox::SetText(const std::wstring& path, const std::wstring& name,
                                  const std::wstring& text) {
    MakeKey(path);
    Check(RegSetKeyValueW(m_root, path.c_str(), name.c_str(), REG_SZ, text.c_str(),
                          static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))),
          "setting a value");
}

bool RegistrationSandbox::HasKey(const std::wstring& path) const {
    HKEY key = nullptr;
    if (RegOpenKeyExW(m_root, path.c_str(), 0, KEY_READ, &key) != ERROR_SUCCESS)
        return false;
    RegCloseKey(key);
    return true;
}

std::vector<std::wstring> RegistrationSandbox::Contents() const {
    std::vector<std::wstring> lines;
    AppendContents(m_root, L"", lines);
    std::sort(lines.begin(), lines.end());
    return lines;
}

} // namespace support
