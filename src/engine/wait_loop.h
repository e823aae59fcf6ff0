// Waiting for something to come true, with the calling thread's messages flowing.
#pragma once

#include <functional>
#include <memory>
#include <string>

#include <windows.h>

namespace engine {

inline constexpr int kStepMilliseconds = 100;

// Dispatches the calling thread's messages for one step, or for a time in milliseconds; not at all for 0 or
// less. Every pause of the engine is one of these: a thread that sleeps would not serve the hook that blocks
// the mouse, and the system drops such a hook. The second one is reported as a pause; the first belongs to a
// wait that is reported itself.
void PumpOneStep() noexcept;
void PumpFor(int milliseconds) noexcept;

// Asks `predicate` at once and then after every 100 ms, until it answers true or the time is spent; a
// timeout of 0 or less asks once. The result is whether time was left, deliberately: it is false when the
// predicate came true on its very last try. Callers look at what the predicate found instead. `message`
// is reported if the predicate never came true. Where `needed` is not null, the wait ends as
// soon as that window is gone: the predicate cannot come true without it. An empty predicate raises
// std::bad_function_call.
bool Wait(int timeoutSeconds, const std::function<bool()>& predicate, const std::string& message,
          HWND needed = nullptr);

// Searches as Wait() does. What the search found, null when nothing was found in time.
template <class Target>
std::unique_ptr<Target> WaitFor(int timeoutSeconds, const std::function<std::unique_ptr<Target>()>& search,
                                const std::string& message, HWND needed = nullptr) {
    std::unique_ptr<Target> found;
    Wait(
        timeoutSeconds,
        [&] {
            found = search();
            return found != nullptr;
        },
        message, needed);
    return found;
}

} // namespace engine
