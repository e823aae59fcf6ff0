#include "fault/modes.h"

#include "fault/bench.h"

#include <algorithm>
#include <array>
#include <random>

namespace fault_tests {

namespace {

constexpr unsigned kShortActions = 200;

struct Quantity {
    const char* name;
    std::size_t Resources::*value;
    // What may come on top from the end of the warm-up to the end: what the system keeps for itself.
    std::size_t scriptTolerance;
    std::size_t programTolerance;
};
constexpr Quantity kQuantities[] = {
    {"kernel handles", &Resources::handles, 8, 8},       {"GDI objects", &Resources::gdi, 10, 20},
    {"USER objects", &Resources::user, 10, 20},          {"windows", &Resources::windows, 1, 2},
    {"private KiB", &Resources::privateKiB, 4096, 8192},
};

struct Sample {
    Resources script;
    Resources program;
    std::size_t atoms = 0;
    std::size_t hooks = 0;
};

class ActionSoak {
public:
    ActionSoak(const Options& options, Report& report)
        : m_options(options), m_report(report), m_random(options.seed) {}

    void Run() {
        const auto actions = m_options.isShort ? kShortActions : static_cast<unsigned>(m_options.actions);
        Drive("sample_host", actions);
        for (const char* program : {"notepad", "wordpad", "regedit"})
            if (!m_options.isShort)
                Drive(program, actions / 15);
        m_report.Progress("Letting go of every object");
        if (const std::string result = m_bench.Script().Run("release", 30000); result != "0")
            m_report.Fail("the module is kept loaded when every object has gone: DllCanUnloadNow gives " +
                          result);
    }

private:
    void Drive(const std::string& program, unsigned actions) {
        std::vector<const Step*> steps;
        std::vector<double> weights;
        for (const Step& step : Steps()) {
            if (program != step.program || step.weight == 0 ||
                std::string(step.name).find(m_options.only) == std::string::npos)
                continue;
            steps.push_back(&step);
            weights.push_back(step.weight);
        }
        if (steps.empty())
            return;
        std::discrete_distribution<std::size_t> choice(weights.begin(), weights.end());
        // At the start, after the warm-up (every kind at least once), in the middle, at the end.
        std::array<Sample, 4> samples;
        if (!Do(*steps.front()))
            return;
        samples[0] = Take();
        for (const Step* step : steps)
            Do(*step);
        const std::uint32_t first = Calls();
        const auto goOnTo = [&](unsigned calls) {
            for (unsigned shown = Calls() - first; Calls() - first < calls;) {
                if (!Do(*steps[choice(m_random)]) && ++m_wrong > 50)
                    return;
                if (const unsigned done = Calls() - first; done - shown >= 1000) {
                    m_report.Progress(program + ": " + std::to_string(done) + " actions");
                    shown = done;
                }
            }
        };
        goOnTo(actions / 10);
        samples[1] = Take();
        const auto atoms = LastingAtoms();
        goOnTo(actions / 2);
        samples[2] = Take();
        goOnTo(actions);
        samples[3] = Take();
        for (const std::string& atom : TakeNewAtoms(atoms))
            m_report.Fail(program + ": the atom \"" + atom + "\" is left");
        Compare(program, Calls() - first, samples);
    }

    std::uint32_t Calls() { return m_bench.Script().Channel().calls; }

    bool Do(const Step& step) {
        const std::string error = m_bench.TryStep(step, 60000);
        if (error.empty())
            return true;
        m_report.Fail(std::string(step.name) + ": " + error);
        if (error.find("hangs") != error.npos)
            throw std::runtime_error("The script hangs: " + std::string(step.name));
        Settle(m_bench.Program());
        return false;
    }

    Sample Take() {
        m_bench.Program().Answers(); // nothing of the last action is under way
        return {ResourcesOf(m_bench.Script().Process()), ResourcesOf(m_bench.Program().Process()),
                GlobalAtoms().size(), m_bench.Section().HooksRecorded().size()};
    }

    void Compare(const std::string& program, unsigned actions, const std::array<Sample, 4>& samples) {
        std::vector<std::vector<std::string>> rows = {
            {"", "of", "start", "after warm-up", "middle", "end", "tolerance"}};
        const auto row = [&](const char* name, const std::string& whose, std::size_t tolerance, auto value) {
            if (std::ranges::all_of(samples, [&](const Sample& sample) { return value(sample) == 0; }))
                return; // nothing of the kind, or the system does not tell
            rows.push_back({name, whose});
            for (const Sample& sample : samples)
                rows.back().push_back(std::to_string(value(sample)));
            rows.back().push_back(std::to_string(tolerance));
            if (value(samples[3]) > value(samples[1]) + tolerance)
                m_report.Fail(program + ": " + name + " of the " + whose + " grow from " +
                              std::to_string(value(samples[1])) + " to " + std::to_string(value(samples[3])));
        };
        for (const Quantity& quantity : kQuantities) {
            row(quantity.name, "script", quantity.scriptTolerance,
                [&](const Sample& sample) { return sample.script.*quantity.value; });
            row(quantity.name, "program", quantity.programTolerance,
                [&](const Sample& sample) { return sample.program.*quantity.value; });
        }
        row("global atoms", "desktop", 0, [](const Sample& sample) { return sample.atoms; });
        row("hooks", "section", 0, [](const Sample& sample) { return sample.hooks; });
        m_report.Table(std::to_string(actions) + " actions on " + program, rows);
    }

    const Options& m_options;
    Report& m_report;
    std::mt19937 m_random;
    Bench m_bench;
    int m_wrong = 0;
};

} // namespace

void RunActions(const Options& options, Report& report) {
    ActionSoak(options, report).Run();
}

} // namespace fault_tests
