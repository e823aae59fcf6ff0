#include "engine/wait_loop.h"

#include <limits>

#include "engine/diagnostics.h"
#include "inhouse/syncutil.h"

namespace engine {

namespace {

int SaturatedMilliseconds(int seconds) noexcept {
    constexpr int kMost = std::numeric_limits<int>::max();
    if (seconds <= 0) {
        return 0;
    }
    return seconds > kMost / 1000 ? kMost : seconds * 1000;
}

} // namespace

void PumpOneStep() noexcept {
    PumpFor(kStepMilliseconds);
}

void PumpFor(int milliseconds) noexcept {
    if (milliseconds > 0) {
        SafeWaitWithMessageLoop(0, nullptr, static_cast<DWORD>(milliseconds), TRUE, nullptr);
    }
}

bool Wait(int timeoutSeconds, std::function<bool()> predicate, const std::string& message, HWND needed) {
    int remaining = SaturatedMilliseconds(timeoutSeconds);
    while (!predicate()) {
        if (remaining < 1 || (needed != nullptr && !IsWindow(needed))) {
            diagnostics::Report(message);
            return false;
        }
        PumpOneStep();
        remaining -= kStepMilliseconds;
    }
    return remaining > 0;
}

} // namespace engine
