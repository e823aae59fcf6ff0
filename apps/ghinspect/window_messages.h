// The window's own messages and timers.
#pragma once

#include <windows.h>

namespace inspector {

inline constexpr UINT kReplyMessage = WM_APP; // lParam: for RunReply

enum Timer : UINT_PTR {
    kTickTimer = 1,
    kRefreshTimer,
    kFrameTimer,
    kCountdownTimer,
};

inline constexpr UINT kTickMilliseconds = 1000;

} // namespace inspector
