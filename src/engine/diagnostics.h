// The one place where the engine tells what it waited for in vain and which windows it looked at.
#pragma once

#include <string>
#include <string_view>

namespace engine::diagnostics {

// Takes one text at a time, on the thread that reports it.
using Sink = void (*)(std::string_view text);

// Null restores the default sink, which writes to the debugger and listens only while one is attached or
// a monitor of debug output runs.
void SetSink(Sink sink) noexcept;

// Whether a text would be taken; ask before going to the length of describing something.
bool Listening() noexcept;

// Without effect if nobody listens.
void Report(std::string_view text);

// printf's formatting into a string.
#if defined(__GNUC__)
__attribute__((format(gnu_printf, 1, 2)))
#endif
std::string
Format(const char* format, ...);

} // namespace engine::diagnostics
