// Going through the windows of the desktop.
#pragma once

#include <exception>
#include <type_traits>

#include <windows.h>

namespace engine {

// Calls `visit` for each descendant of `parent`, or for each top-level window if that is null, until it
// answers false. What it throws leaves here, not the system's enumeration, which no exception may cross.
template <class Visit>
void EnumerateWindows(HWND parent, Visit&& visit) {
    struct Walk {
        std::remove_reference_t<Visit>& visit;
        std::exception_ptr failure;
    };
    const WNDENUMPROC procedure = [](HWND window, LPARAM parameter) noexcept -> BOOL {
        auto& walk = *reinterpret_cast<Walk*>(parameter);
        try {
            return walk.visit(window) ? TRUE : FALSE;
        } catch (...) {
            walk.failure = std::current_exception();
            return FALSE;
        }
    };
    Walk walk = {visit, nullptr};
    if (parent == nullptr) {
        EnumWindows(procedure, reinterpret_cast<LPARAM>(&walk));
    } else {
        EnumChildWindows(parent, procedure, reinterpret_cast<LPARAM>(&walk));
    }
    if (walk.failure != nullptr) {
        std::rethrow_exception(walk.failure);
    }
}

} // namespace engine
