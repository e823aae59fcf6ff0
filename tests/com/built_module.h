// The built module, loaded as COM loads it.
#pragma once

#include <windows.h>

#include <string>

namespace support {

class BuiltModule {
public:
    // Throws std::system_error.
    explicit BuiltModule(const std::wstring& path);
    ~BuiltModule();
    BuiltModule(const BuiltModule&) = delete;
    BuiltModule& operator=(const BuiltModule&) = delete;

    static std::wstring DefaultPath();
    const std::wstring& Path() const { return m_path; }

    // The module's entry points.
    HRESULT GetClassObject(const CLSID& classId, REFIID iid, void** object) const;
    HRESULT CanUnloadNow() const;
    HRESULT RegisterServer() const;
    HRESULT UnregisterServer() const;

private:
    template <class Function>
    Function Find(const char* name) const;

    std::wstring m_path;
    HMODULE m_module;
};

} // namespace support
