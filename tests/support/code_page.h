// The system's ANSI code page, as far as tests depend on it.
#pragma once

#include <gtest/gtest.h>

#include <windows.h>

namespace support {

// Bytes above 0x7F in the texts of a test are characters, of whatever alphabet, only where each byte is one.
inline bool HasCharacterPerByte() {
    CPINFO info{};
    return GetCPInfo(CP_ACP, &info) && info.MaxCharSize == 1;
}

inline constexpr char kNoCharacterPerByte[] =
    "the system's code page has characters of several bytes, which the bytes of these texts are not";

} // namespace support
