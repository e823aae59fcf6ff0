// An empty place of the registry that stands in for HKEY_CLASSES_ROOT.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace support {

// Redirects HKEY_CLASSES_ROOT in this process for its lifetime. Throws std::system_error.
class RegistrationSandbox {
public:
    RegistrationSandbox();
    ~RegistrationSandbox();
    RegistrationSandbox(const RegistrationSandbox&) = delete;
    RegistrationSandbox& operator=(const RegistrationSandbox&) = delete;

    // Each makes what is missing of the path. A volatile key takes no other keys than volatile ones, so
    // that the registration, which makes lasting ones, fails there.
    void MakeKey(const std::wstring& path, bool isVolatile = false);
    void SetText(const std::wstring& path, const std::wstring& name, const std::wstring& text);

    bool HasKey(const std::wstring& path) const;
    // The keys, a line each, and their values below them, sorted: "CLSID\\{...}" and
    // "CLSID\\{...} AppID = REG_SZ {...}"; the default value is named "@".
    std::vector<std::wstring> Contents() const;

private:
    HKEY m_root = nullptr;
    std::wstring m_path;
};

} // namespace support
