// Waiting for something to come true, with the calling thread's messages flowing.
#pragma once

#include <functional>
#include <memory>
#include <string>

namespace engine {

inline constexpr int kStepMilliseconds = 100;

// Dispatches the calling thread's messages for one step.
void PumpOneStep() noexcept;

// Asks `predicate` at once and then after every 100 ms, until it answers true or the time is spent; a
// timeout of 0 or less asks once. The result is whether time was left, deliberately: it is false when the
// predicate came true on its very last try. Callers look at what the predicate found instead. `message`
// goes to the diagnostic sink if the predicate never came true. An empty predicate raises
// std::bad_function_call.
bool Wait(int timeoutSeconds, std::function<bool()> predicate, const std::string& message);

// Searches as Wait() does. What the search found, null when nothing was found in time.
template <class Target>
std::unique_ptr<Target> WaitFor(int timeoutSeconds, const std::function<std::unique_ptr<Target>()>& search,
                                const std::string& message) {
    std::unique_ptr<Target> found;
    Wait(
        timeoutSeconds,
        [&] {
            found = search();
            return found != nullptr;
        },
        message);
    return found;
}

} // namespace engine
