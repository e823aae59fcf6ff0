// What a posted click adds to the waits that it cannot do without.

#include "bench.h"

#include "engine/activation.h"
#include "engine/wait_loop.h"
#include "input/mouse.h"
#include "support/sample_host.h"

namespace {

constexpr int kWaits = 2; // after the press and after the release

void MeasureClick(bench::Report& report) {
    const support::SampleHost host;
    const ghBaseWindow frame(host.Frame());
    engine::Activate(frame);
    report.Compare({"posted click", [&] { input::Click(frame, input::kLeftButton, 1, 1, 0); }},
                   {"its two waits of 100 ms",
                    [] {
                        for (int wait = 0; wait < kWaits; ++wait) {
                            engine::PumpOneStep();
                        }
                    }},
                   {.rounds = 21});
}

const bench::Registration kClick("posted click", MeasureClick);

} // namespace
