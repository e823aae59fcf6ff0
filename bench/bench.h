// The frame of the benchmarks: what a benchmark file uses to measure and to report.
//
//     void Measure(bench::Report& report) {
//         support::SampleHost host;
//         report.Compare({"remote send", [&] { ... }}, {"plain message", [&] { ... }}, {.aim = 2.0});
//     }
//     const bench::Registration kRemoteSend("remote send", Measure);
//
// Only ratios of what was measured in the same run mean anything: machines differ and are shared.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace bench {

// One way of doing something.
struct Contender {
    std::string name;
    std::function<void()> run;
};

struct Settings {
    std::optional<double> aim = {}; // the ratio should be at most this
    int rounds = 101;               // in each round both contenders have their turn
    int repetitions = 1; // of each contender in its turn, for what takes less than some microseconds
};

// Prints one line of the table at a time.
class Report {
public:
    // Measures the two contenders in turn and reports the ratio of their medians. Each runs once before,
    // unmeasured.
    void Compare(const Contender& subject, const Contender& baseline, const Settings& settings = {});
    // A ratio of other things than time.
    void Ratio(std::string_view name, double subject, double baseline, std::string_view unit,
               std::optional<double> aim = {});
    // Something that is no ratio.
    void Fact(std::string_view name, std::string_view value);
};

using Benchmark = void (*)(Report& report);

// Makes a benchmark known under a name, by which it can be run alone; a constant of the file that has it.
// A benchmark that throws a std::exception is reported as failed, the others run on.
class Registration {
public:
    Registration(const char* name, Benchmark benchmark);
};

} // namespace bench
