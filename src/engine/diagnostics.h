// The one place where the engine tells what happens: to a debugger as text, to a listener as events. What is
// told here never takes part in a decision.
#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include <windows.h>

namespace engine {

struct WindowCriteria;

} // namespace engine

namespace engine::diagnostics {

// Takes one text at a time, on the thread that reports it.
using Sink = void (*)(std::string_view text);

// Null restores the default sink, which writes to the debugger and listens only while one is attached or
// a monitor of debug output runs.
void SetSink(Sink sink) noexcept;

// Whether the sink would take a text; ask before going to the length of describing something.
bool SinkListens() noexcept;

// For the sink alone, without effect if that does not listen.
void Describe(std::string_view text);

// For the sink and the listener.
void Report(std::string_view text);

// printf's formatting into a string.
#if defined(__MINGW_PRINTF_FORMAT)
__attribute__((format(__MINGW_PRINTF_FORMAT, 1, 2)))
#endif
std::string
Format(const char* format, ...);

// A value that a script passes or gets; empty if there is none.
using Value = std::variant<std::monostate, bool, std::int64_t, std::wstring>;

// A call of a member of an automation object begins.
struct Call {
    const void* object;    // tells the object from others that live
    const char* className; // the C++ class, as its compiler decorates it
    const GUID* interfaceId;
    const char* member; // its name in C++: a property's begins with "get_" or "put_"
    HWND window;        // of the object; null if it has none
    std::vector<Value> arguments;
};

// It ends.
struct CallResult {
    HRESULT result;
    Value value;
    bool givesObject;   // whether the member has an object as its result
    const void* object; // the one that it gave; null for none
};

// A part of a call in which it waits.
enum class StepKind { Wait, Synchronise, Pause };
struct Step {
    StepKind kind;
    std::string_view text; // what is waited for, in the system code page
    int limitMilliseconds; // 0: none
};

enum class StepOutcome { Done, CameTrue, TimedOut, WindowGone, InStep, GaveUp };
struct StepResult {
    StepOutcome outcome;
    int rounds = 0; // how often the question was asked
    // Of a synchronisation:
    const char* marker = nullptr; // "taken", "not taken", "refused"
    const char* idle = nullptr;   // "idle", "busy", "unknown"
    HWND popup = nullptr;
};

// Hears everything, on the thread where it happens, while it happens. Steps and calls that a step lets in are
// nested; each end belongs to the last beginning on its thread. A listener asks and waits for nothing that
// could lead back into a call.
class Listener {
public:
    virtual void CallBegins(const Call& call) noexcept = 0;
    virtual void CallEnds(const CallResult& result) noexcept = 0;
    virtual void StepBegins(const Step& step) noexcept = 0;
    virtual void StepEnds(const StepResult& result) noexcept = 0;
    // A search over windows has ended: `criteria` with its result, and how many windows it looked at.
    virtual void Searched(const WindowCriteria& criteria, int windows) noexcept = 0;
    // `text` is in the system code page.
    virtual void Reported(std::string_view text) noexcept = 0;

protected:
    ~Listener() = default;
};

// The listener of this process; it must outlive every call. Null for none.
void SetListener(Listener* listener) noexcept;

namespace detail {
extern std::atomic<Listener*> listener;
}

// Null while nobody listens, which costs the caller one test.
inline Listener* CurrentListener() noexcept {
    return detail::listener.load(std::memory_order_acquire);
}

// Tells of a step from its beginning to its end.
class StepReport {
public:
    StepReport(StepKind kind, std::string_view text, int limitMilliseconds = 0) noexcept
        : m_listener(CurrentListener()) {
        if (m_listener != nullptr) {
            m_listener->StepBegins({kind, text, limitMilliseconds});
        }
    }
    ~StepReport() {
        if (m_listener != nullptr) {
            m_listener->StepEnds(m_result);
        }
    }
    StepReport(const StepReport&) = delete;
    StepReport& operator=(const StepReport&) = delete;

    void Ends(const StepResult& result) noexcept { m_result = result; }

private:
    Listener* m_listener;
    StepResult m_result = {StepOutcome::Done};
};

} // namespace engine::diagnostics
