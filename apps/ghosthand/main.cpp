// ghosthand VERB [ARGUMENT...]
#include <algorithm>
#include <exception>
#include <string>
#include <string_view>

#include "ghosthand/verbs.h"
#include "shared/console.h"

namespace {

struct Verb {
    std::string_view name;
    std::string_view usage; // its arguments, then what it does, a line each
    int (*run)(apps::Arguments);
};

int Help(apps::Arguments);

constexpr Verb kVerbs[] = {
    {"help", "[VERB]\n  Says what there is to type.", Help},
    {"at",
     "X Y [--json] [--language NAME]\nghosthand at --watch [--json] [--language NAME]\n"
     "  Says what lies at a point of the screen: the control, the item in it, and the calls that reach "
     "them.\n"
     "  --watch     follows the mouse until Ctrl+C\n"
     "  --language  of the calls: VBScript, JScript, PowerShell, Python or C#\n"
     "  --json      for other tools (docs/command-line.md)",
     apps::At},
    {"windows",
     "[PROGRAM] [--json] [--calls] [--language NAME] [--watch]\n"
     "  Lists the windows of the programs whose file names begin with PROGRAM, or of all.\n"
     "  --calls     with the shortest call of a script that reaches each, run once to be sure\n"
     "  --language  of the calls: VBScript, JScript, PowerShell, Python or C#\n"
     "  --json      for other tools (docs/command-line.md)\n"
     "  --watch     goes on until Ctrl+C and shows what comes and goes",
     apps::Windows},
};

const Verb* FindVerb(std::string_view name) {
    const auto verb = std::ranges::find(kVerbs, name, &Verb::name);
    return verb == std::end(kVerbs) ? nullptr : verb;
}

std::string UsageOf(const Verb& verb) {
    return "ghosthand " + std::string(verb.name) + " " + std::string(verb.usage) + "\n";
}

int Help(apps::Arguments arguments) {
    if (arguments.size() > 1) {
        return apps::kWrongUsage;
    }
    if (!arguments.empty()) {
        const Verb* const verb = FindVerb(arguments[0]);
        if (verb == nullptr) {
            apps::PrintError("There is no verb '" + arguments[0] + "'.\n");
            return apps::kFailed;
        }
        apps::Print(UsageOf(*verb));
        return apps::kDone;
    }
    for (const Verb& verb : kVerbs) {
        apps::Print(UsageOf(verb));
    }
    return apps::kDone;
}

int Run(const Verb& verb, apps::Arguments arguments) {
    const int code = verb.run(arguments);
    if (code == apps::kWrongUsage) {
        apps::PrintError("Usage: " + UsageOf(verb));
    }
    return code;
}

} // namespace

int main() {
    try {
        const auto arguments = apps::CommandLineArguments();
        const Verb* const verb = FindVerb(arguments.empty() ? "help" : arguments[0]);
        if (verb == nullptr) {
            apps::PrintError("There is no verb '" + arguments[0] + "'. What there is: ghosthand help\n");
            return apps::kWrongUsage;
        }
        return Run(*verb, apps::Arguments(arguments).subspan(arguments.empty() ? 0 : 1));
    } catch (const std::exception& error) {
        apps::PrintError(std::string("Failed: ") + error.what() + "\n");
        return apps::kFailed;
    }
}
