#include "hostlink/module_instance.h"

#include <system_error>

namespace hostlink {

namespace {
HINSTANCE moduleInstance = nullptr;
}

void SetModuleInstance(HINSTANCE instance) noexcept {
    moduleInstance = instance;
}

HINSTANCE ModuleInstance() noexcept {
    return moduleInstance;
}

bool PinModule() noexcept {
    HMODULE pinned = nullptr;
    return GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_PIN,
                              reinterpret_cast<LPCSTR>(ModuleInstance()), &pinned) != FALSE;
}

std::wstring ModulePath(HINSTANCE module) {
    std::wstring path(MAX_PATH, L'\0');
    for (;;) {
        const DWORD length = GetModuleFileNameW(module, path.data(), static_cast<DWORD>(path.size()));
        if (length == 0) {
            throw std::system_error(static_cast<int>(GetLastError()), std::system_category());
        }
        if (length < path.size()) {
            path.resize(length);
            return path;
        }
        path.resize(path.size() * 2);
    }
}

} // namespace hostlink
