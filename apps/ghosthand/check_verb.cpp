#include "ghosthand/verbs.h"

#include <algorithm>

#include "explain/utf8.h"
#include "ghosthand/check_facts.h"
#include "shared/console.h"

namespace apps {

namespace {

// What was registered halfway is registered anew, in the same place of the registry and of the disk.
int Mend(const CheckFacts& facts) {
    for (const RegisteredCopy& copy : facts.registrations) {
        if (!copy.path.empty() && copy.faults.empty()) {
            continue;
        }
        std::vector<std::string> arguments;
        if (copy.isForCurrentUser) {
            arguments.emplace_back("--user");
        }
        if (!copy.path.empty()) {
            arguments.push_back(copy.path);
        }
        if (const int code = Register(arguments); code != kDone) {
            return code;
        }
    }
    return kDone;
}

} // namespace

int Check(Arguments arguments) {
    const bool mends = !arguments.empty() && arguments[0] == "--mend";
    arguments = arguments.subspan(mends ? 1 : 0);
    if (arguments.size() > 1 ||
        (!arguments.empty() && (arguments[0].empty() || arguments[0].starts_with("-")))) {
        return kWrongUsage;
    }
    if (mends) {
        if (const int code = Mend(FindCheckFacts(std::nullopt)); code != kDone) {
            return code;
        }
    }
    const std::vector<CheckLine> lines =
        CheckReport(FindCheckFacts(arguments.empty() ? std::nullopt : std::optional(arguments[0])));
    Print(TextOf(lines));
    return std::ranges::find(lines, Verdict::Problem, &CheckLine::verdict) != lines.end() ? kFailed : kDone;
}

} // namespace apps
