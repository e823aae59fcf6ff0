// fault_test fault|hostile|actions [--short] [--times N] [--minutes M] [--actions N] [--seed S]
//              [--only STEP] [--output FILE]
#include "fault/modes.h"
#include "fault/script_process.h"
#include "support/job.h"

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <random>

namespace {

using namespace fault_tests;

struct Mode {
    const char* name;
    void (*run)(const Options& options, Report& report);
};
constexpr Mode kModes[] = {{"fault", RunFaultCases}, {"hostile", RunHostileSection}, {"actions", RunActions}};

bool Parse(int argc, char** argv, Options& options) {
    for (int index = 2; index < argc; ++index) {
        const std::string option = argv[index];
        if (option == "--short") {
            options.isShort = true;
            continue;
        }
        if (index + 1 == argc)
            return false;
        const std::string value = argv[++index];
        if (option == "--times")
            options.times = std::atoi(value.c_str());
        else if (option == "--minutes")
            options.minutes = std::atof(value.c_str());
        else if (option == "--actions")
            options.actions = std::atoi(value.c_str());
        else if (option == "--seed")
            options.seed = static_cast<unsigned>(std::strtoul(value.c_str(), nullptr, 0));
        else if (option == "--only")
            options.only = value;
        else if (option == "--output")
            options.output = value;
        else
            return false;
    }
    return true;
}

int Run(int argc, char** argv) {
    Options options;
    if (argc >= 2 && Parse(argc, argv, options)) {
        for (const Mode& mode : kModes) {
            if (std::string(argv[1]) != mode.name)
                continue;
            support::EndChildrenWithThisProcess();
            Report report(options.output);
            report.Progress("Seed " + std::to_string(options.seed));
            mode.run(options, report);
            return report.Finish("The same again: seed " + std::to_string(options.seed) +
                                 "; one step alone: --only STEP");
        }
    }
    std::fprintf(stderr, "usage: fault_test fault|hostile|actions [--short] [--times N] [--minutes M]\n"
                         "                    [--actions N] [--seed S] [--only STEP] [--output FILE]\n");
    return 2;
}

} // namespace

int main(int argc, char** argv) {
    try {
        if (argc == 3 && std::string(argv[1]) == "script")
            return RunScriptProcess(argv[2]);
        return Run(argc, argv);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "%s\n", error.what());
        return 2;
    }
}
