#include "automation/accessible_object.h"

#include <oleacc.h>

namespace automation {

HRESULT AccessibleObject(HWND window, IDispatch** object) noexcept {
    static const HMODULE library = LoadLibraryExA("oleacc.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    const auto fromWindow = reinterpret_cast<decltype(&AccessibleObjectFromWindow)>(reinterpret_cast<void*>(
        library == nullptr ? nullptr : GetProcAddress(library, "AccessibleObjectFromWindow")));
    if (fromWindow == nullptr) {
        return HRESULT_FROM_WIN32(ERROR_PROC_NOT_FOUND);
    }
    return fromWindow(window, static_cast<DWORD>(OBJID_WINDOW), IID_IDispatch,
                      reinterpret_cast<void**>(object));
}

} // namespace automation
