// Automation types and engine types, into one another. Texts use the system code page, whatever locale
// the thread has adopted from the host.
#pragma once

#include <string>
#include <string_view>

#include "automation/interfaces.h"

namespace automation {

// A null text is the empty one; an embedded NUL ends the text. Characters that the code page lacks become
// its default character.
std::string ToAnsi(BSTR text);
std::wstring ToWide(std::string_view text);

inline bool ToBool(VARIANT_BOOL value) noexcept {
    return value != VARIANT_FALSE;
}

// Results for the caller, who owns a BSTR. A text is never null; std::bad_alloc if there is no memory.
void Assign(BSTR* result, std::string_view text);
inline void Assign(VARIANT_BOOL* result, bool value) noexcept {
    *result = value ? VARIANT_TRUE : VARIANT_FALSE;
}
inline void Assign(LONG* result, int value) noexcept {
    *result = value;
}
inline void Assign(LONG* result, LONG value) noexcept {
    *result = value;
}
inline void Assign(int* result, int value) noexcept {
    *result = value;
}
inline void Assign(ghCheckBoxState* result, ghCheckBoxState value) noexcept {
    *result = value;
}

} // namespace automation
