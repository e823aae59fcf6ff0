// Active Accessibility's view of a window.
#pragma once

#include <windows.h>

#include <oaidl.h>

namespace automation {

// What AccessibleObjectFromWindow answers, unchanged. Its library is loaded on first use: every driven
// program maps this module and few need it.
HRESULT AccessibleObject(HWND window, IDispatch** object) noexcept;

} // namespace automation
