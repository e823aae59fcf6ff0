// The class name of a window.
#pragma once

#include <string_view>

#include <windows.h>

namespace hostlink {

// Reads at most 259 bytes; empty for a window that is gone. Allocates nothing, so that hook procedures
// can use it.
class WindowClass {
public:
    explicit WindowClass(HWND window) noexcept : m_length(GetClassNameA(window, m_name, sizeof m_name)) {}

    std::string_view Name() const noexcept { return {m_name, static_cast<std::size_t>(m_length)}; }
    bool StartsWith(std::string_view prefix) const noexcept { return Name().starts_with(prefix); }

private:
    char m_name[260];
    int m_length;
};

} // namespace hostlink
