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

void Pump(int milliseconds) noexcept {
    SafeWaitWithMessageLoop(0, nullptr, static_cast<DWORD>(milliseconds), TRUE, nullptr);
}

} // namespace

void PumpOneStep() noexcept {
    Pump(kStepMilliseconds);
}

void PumpFor(int milliseconds) noexcept {
    if (milliseconds > 0) {
        const diagnostics::StepReport report(diagnostics::StepKind::Pause, {}, milliseconds);
        Pump(milliseconds);
    }
}

bool Wait(int timeoutSeconds, const std::function<bool()>& predicate, const std::string& message,
          HWND needed) {
    using diagnostics::StepOutcome;
    int remaining = SaturatedMilliseconds(timeoutSeconds);
    diagnostics::StepReport report(diagnostics::StepKind::Wait, message, remaining);
    int tries = 1;
    for (; !predicate(); ++tries) {
        const bool isGone = needed != nullptr && !IsWindow(needed);
        if (remaining < 1 || isGone) {
            report.Ends({isGone ? StepOutcome::WindowGone : StepOutcome::TimedOut, tries});
            diagnostics::Report(message);
            return false;
        }
        PumpOneStep();
        remaining -= kStepMilliseconds;
    }
    report.Ends({StepOutcome::CameTrue, tries});
    return remaining > 0;
}

} // namespace engine
