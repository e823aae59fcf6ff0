#include "engine/diagnostics.h"

#include <cstdarg>
#include <cstdio>

#include <windows.h>

namespace engine::diagnostics {

namespace detail {
constinit std::atomic<Listener*> listener = nullptr;
}

namespace {

Sink customSink = nullptr;

// A monitor of debug output announces itself by this event of the system.
bool DebugMonitorRuns() noexcept {
    const HANDLE event = OpenEventA(SYNCHRONIZE, FALSE, "DBWIN_BUFFER_READY");
    if (event == nullptr) {
        return false;
    }
    CloseHandle(event);
    return true;
}

} // namespace

void SetSink(Sink sink) noexcept {
    customSink = sink;
}

bool SinkListens() noexcept {
    return customSink != nullptr || IsDebuggerPresent() || DebugMonitorRuns();
}

void Describe(std::string_view text) {
    if (customSink != nullptr) {
        customSink(text);
    } else if (SinkListens()) {
        OutputDebugStringA((std::string(text) + "\n").c_str());
    }
}

void Report(std::string_view text) {
    Describe(text);
    if (Listener* const listener = CurrentListener()) {
        listener->Reported(text);
    }
}

void SetListener(Listener* listener) noexcept {
    detail::listener.store(listener, std::memory_order_release);
}

std::string Format(const char* format, ...) {
    va_list arguments;
    va_start(arguments, format);
    va_list measured;
    va_copy(measured, arguments);
    const int length = std::vsnprintf(nullptr, 0, format, measured);
    va_end(measured);
    std::string text(length > 0 ? static_cast<std::size_t>(length) : 0, '\0');
    if (length > 0) {
        std::vsnprintf(text.data(), text.size() + 1, format, arguments);
    }
    va_end(arguments);
    return text;
}

} // namespace engine::diagnostics
