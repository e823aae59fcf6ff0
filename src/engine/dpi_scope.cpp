#include "engine/dpi_scope.h"

namespace engine {

namespace {

// Looked up at run time, so that the module loads on systems without them.
class SystemFunctions {
public:
    static const SystemFunctions& Get() noexcept {
        static const SystemFunctions functions;
        return functions;
    }

    DPI_AWARENESS_CONTEXT(WINAPI* ofWindow)(HWND) = nullptr;
    DPI_AWARENESS_CONTEXT(WINAPI* setOfThread)(DPI_AWARENESS_CONTEXT) = nullptr;

private:
    SystemFunctions() noexcept {
        const HMODULE user = GetModuleHandleA("user32.dll");
        ofWindow = reinterpret_cast<decltype(ofWindow)>(GetProcAddress(user, "GetWindowDpiAwarenessContext"));
        setOfThread =
            reinterpret_cast<decltype(setOfThread)>(GetProcAddress(user, "SetThreadDpiAwarenessContext"));
    }
};

DPI_AWARENESS_CONTEXT SetOfThread(DPI_AWARENESS_CONTEXT awareness) noexcept {
    const SystemFunctions& functions = SystemFunctions::Get();
    return awareness != nullptr && functions.setOfThread != nullptr ? functions.setOfThread(awareness)
                                                                    : nullptr;
}

} // namespace

DPI_AWARENESS_CONTEXT DpiAwarenessOf(HWND window) noexcept {
    const SystemFunctions& functions = SystemFunctions::Get();
    return window != nullptr && functions.ofWindow != nullptr ? functions.ofWindow(window) : nullptr;
}

DpiScope::DpiScope(DPI_AWARENESS_CONTEXT awareness) noexcept : m_previous(SetOfThread(awareness)) {}

DpiScope::~DpiScope() {
    SetOfThread(m_previous);
}

} // namespace engine
