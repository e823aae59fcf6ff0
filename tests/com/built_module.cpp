#include "com/built_module.h"

#include <stdexcept>
#include <system_error>

#include "support/environment.h"

namespace support {

BuiltModule::BuiltModule(const std::wstring& path) : m_path(path), m_module(LoadLibraryW(path.c_str())) {
    if (m_module == nullptr)
        throw std::system_error(static_cast<int>(GetLastError()), std::system_category(), "LoadLibraryW");
}

BuiltModule::~BuiltModule() {
    FreeLibrary(m_module);
}

std::wstring BuiltModule::DefaultPath() {
    const std::string path = PathFromEnvironment("GHOSTHAND_DLL");
    return std::wstring(path.begin(), path.end());
}

template <class Function>
Function BuiltModule::Find(const char* name) const {
    const FARPROC found = GetProcAddress(m_module, name);
    if (found == nullptr)
        throw std::runtime_error(std::string("the module does not export ") + name);
    return reinterpret_cast<Function>(found);
}

HRESULT BuiltModule::GetClassObject(const CLSID& classId, REFIID iid, void** object) const {
    return Find<HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**)>("DllGetClassObject")(classId, iid,
                                                                                         object);
}

HRESULT BuiltModule::CanUnloadNow() const {
    return Find<HRESULT(STDAPICALLTYPE*)()>("DllCanUnloadNow")();
}

HRESULT BuiltModule::RegisterServer() const {
    return Find<HRESULT(STDAPICALLTYPE*)()>("DllRegisterServer")();
}

HRESULT BuiltModule::UnregisterServer() const {
    return Find<HRESULT(STDAPICALLTYPE*)()>("DllUnregisterServer")();
}

} // namespace support
