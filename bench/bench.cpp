#include "bench.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <exception>
#include <vector>

#include "hostlink/module_instance.h"
#include "support/this_module.h"

namespace bench {

namespace {

struct Entry {
    const char* name;
    Benchmark benchmark;
};

// A function's own, so that it exists before the first registration of another file.
std::vector<Entry>& Entries() {
    static std::vector<Entry> entries;
    return entries;
}

double Microseconds(const Contender& contender, int repetitions) {
    const auto start = std::chrono::steady_clock::now();
    for (int repetition = 0; repetition < repetitions; ++repetition) {
        contender.run();
    }
    const std::chrono::duration<double, std::micro> taken = std::chrono::steady_clock::now() - start;
    return taken.count() / repetitions;
}

double Median(std::vector<double>& values) {
    const auto middle = values.begin() + static_cast<std::ptrdiff_t>(values.size() / 2);
    std::nth_element(values.begin(), middle, values.end());
    return *middle;
}

void PrintLine(std::string_view name, const std::string& value) {
    std::printf("  %-72.*s %s\n", static_cast<int>(name.size()), name.data(), value.c_str());
    std::fflush(stdout);
}

std::string Formatted(const char* format, double number) {
    char text[64];
    std::snprintf(text, sizeof text, format, number);
    return text;
}

} // namespace

void Report::Compare(const Contender& subject, const Contender& baseline, const Settings& settings) {
    subject.run();
    baseline.run();
    std::vector<double> subjectTimes;
    std::vector<double> baselineTimes;
    for (int round = 0; round < settings.rounds; ++round) {
        subjectTimes.push_back(Microseconds(subject, settings.repetitions));
        baselineTimes.push_back(Microseconds(baseline, settings.repetitions));
    }
    Ratio(subject.name + " / " + baseline.name, Median(subjectTimes), Median(baselineTimes), "us",
          settings.aim);
}

void Report::Ratio(std::string_view name, double subject, double baseline, std::string_view unit,
                   std::optional<double> aim) {
    std::string value = Formatted("%7.2f", subject / baseline);
    value += aim ? Formatted("  (aim: at most %.2f)", *aim) : std::string(22, ' ');
    value += Formatted("  %.2f", subject) + Formatted(" / %.2f ", baseline);
    value += unit;
    PrintLine(name, value);
}

void Report::Fact(std::string_view name, std::string_view value) {
    PrintLine(name, std::string(value));
}

Registration::Registration(const char* name, Benchmark benchmark) {
    Entries().push_back({name, benchmark});
}

} // namespace bench

// Runs the benchmarks whose name contains `filter`. Called by the program that loaded this library.
extern "C" __declspec(dllexport) int RunBenchmarks(const char* filter) {
    hostlink::SetModuleInstance(support::ThisModule());
    int failures = 0;
    for (const bench::Entry& entry : bench::Entries()) {
        if (std::strstr(entry.name, filter) == nullptr) {
            continue;
        }
        std::printf("%s\n", entry.name);
        try {
            bench::Report report;
            entry.benchmark(report);
        } catch (const std::exception& failure) {
            std::printf("  failed: %s\n", failure.what());
            ++failures;
        }
    }
    return failures == 0 ? 0 : 1;
}
