// Parameters and results of window messages, as scripts see them.
#pragma once

#include <windows.h>

namespace automation {

inline UINT ToMessage(LONG message) noexcept {
    return static_cast<UINT>(message);
}
// Sign-extended: -1 means all ones.
inline WPARAM ToWParam(LONG value) noexcept {
    return static_cast<WPARAM>(static_cast<LONG_PTR>(value));
}
inline int LowHalf(LRESULT result) noexcept {
    return static_cast<int>(result);
}

} // namespace automation
