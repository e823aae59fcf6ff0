#include "command_line.h"

#include "host_ids.h"
#include "page_table.h"

#include <algorithm>
#include <cstdlib>

namespace sample_host {
namespace {

DPI_AWARENESS_CONTEXT ParseDpiAwareness(const std::string& name) {
    if (name == "unaware")
        return DPI_AWARENESS_CONTEXT_UNAWARE;
    if (name == "system")
        return DPI_AWARENESS_CONTEXT_SYSTEM_AWARE;
    return name == "per-monitor" ? DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE : nullptr;
}

} // namespace

std::optional<Options> ParseCommandLine(int count, char** arguments, std::string& error) {
    Options options;
    options.frameClass = ids::kFrameClass;
    for (int index = 1; index < count; ++index) {
        const std::string option = arguments[index];
        if (option == "--maximized") {
            options.maximized = true;
            continue;
        }
        if (option == "--keep-open") {
            options.script.keepOpen = true;
            continue;
        }
        if (index + 1 == count) {
            error = option + ": unknown, or its value is missing";
            return std::nullopt;
        }
        const std::string value = arguments[++index];
        if (option == "--page") {
            if (std::ranges::find(Pages(), value, &Page::name) == Pages().end()) {
                error = "--page " + value + ": no such page";
                return std::nullopt;
            }
            options.pages.push_back(value);
        } else if (option == "--log") {
            options.logFile = value;
        } else if (option == "--journal") {
            options.journalFile = value;
        } else if (option == "--script") {
            options.script.file = value;
        } else if (option == "--output") {
            options.script.outputFile = value;
        } else if (option == "--frame-class") {
            options.frameClass = value;
        } else if (option == "--many-children") {
            options.manyChildren = std::atoi(value.c_str());
        } else if (option == "--dpi") {
            options.dpiAwareness = ParseDpiAwareness(value);
            if (!options.dpiAwareness) {
                error = "--dpi " + value + ": no such awareness";
                return std::nullopt;
            }
        } else if (option == "--misbehave") {
            const auto order = ParseMisbehaviour(value);
            if (!order) {
                error = "--misbehave " + value + ": no such misbehaviour";
                return std::nullopt;
            }
            options.misbehaviours.push_back(*order);
        } else {
            error = option + ": unknown option";
            return std::nullopt;
        }
    }
    return options;
}

} // namespace sample_host
