// The module that this code is in: a library of host tests installs its hooks from itself.
#pragma once

#include <windows.h>

namespace support {

inline HINSTANCE ThisModule() {
    static const int anchor = 0;
    HMODULE module = nullptr;
    GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                       reinterpret_cast<LPCSTR>(&anchor), &module);
    return module;
}

} // namespace support
