// ghosthand at: the window and the item below a point of the screen, and the calls that reach them.
#include <algorithm>
#include <charconv>
#include <cstdint>
#include <exception>
#include <optional>
#include <string>

#include <windows.h>

#include "engine/dpi_scope.h"
#include "explain/item_at_point.h"
#include "explain/window_call.h"
#include "explain/window_facts.h"
#include "ghosthand/verbs.h"
#include "ghosthand/window_output.h"
#include "shared/console.h"
#include "shared/ghosthand_module.h"

namespace apps {

namespace {

// The cursor's place is looked at so often; what lies below a cursor that rests, less often: it may be
// scrolled away, but its program has other work.
constexpr DWORD kWatchMilliseconds = 200;
constexpr ULONGLONG kRestMilliseconds = 1000;

struct Options {
    std::optional<POINT> point; // none: the cursor's
    bool asJson = false;
    explain::Language language = explain::Language::VBScript;
};

std::optional<LONG> NumberOf(const std::string& text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    return error == std::errc() && end == text.data() + text.size() ? std::optional<LONG>(number)
                                                                    : std::nullopt;
}

std::optional<Options> Parse(Arguments arguments) {
    Options options;
    bool watches = false;
    std::vector<LONG> numbers;
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        const std::string& argument = arguments[index];
        if (argument == "--json") {
            options.asJson = true;
        } else if (argument == "--watch") {
            watches = true;
        } else if (argument == "--language" && index + 1 < arguments.size()) {
            const auto language = explain::LanguageOf(arguments[++index]);
            if (!language) {
                return std::nullopt;
            }
            options.language = *language;
        } else if (const auto number = NumberOf(argument)) {
            numbers.push_back(*number);
        } else {
            return std::nullopt;
        }
    }
    if (numbers.size() != (watches ? 0u : 2u)) {
        return std::nullopt;
    }
    if (!watches) {
        options.point = POINT{numbers[0], numbers[1]};
    }
    return options;
}

// What lies below a point.
struct Seen {
    HWND window = nullptr;
    std::optional<explain::ItemAtPoint> item;
};

Seen LookAt(POINT point) {
    Seen seen;
    seen.window = explain::WindowAtPoint(point);
    seen.item = explain::ItemOf(seen.window, point);
    return seen;
}

bool IsSame(const Seen& one, const Seen& other) {
    const bool hasItem = one.item.has_value();
    return one.window == other.window && hasItem == other.item.has_value() &&
           (!hasItem || (one.item->text == other.item->text && one.item->steps == other.item->steps &&
                         EqualRect(&one.item->rectangle, &other.item->rectangle)));
}

// The steps put behind the call that they start from.
explain::WindowCall CallToItem(const explain::ItemAtPoint& item, explain::CallFinder& finder) {
    explain::WindowCall found = finder.CallTo(item.window);
    if (item.steps.empty()) {
        found.call.clear();
        found.obstacle = "Scripts have no way to it.";
    } else if (!found.call.empty()) {
        found.call.insert(found.call.end(), item.steps.begin(), item.steps.end());
        found.kind = item.kind;
    }
    return found;
}

explain::ProgramFacts ProgramOf(DWORD processId) {
    const auto programs = explain::Programs();
    const auto program = std::ranges::find(programs, processId, &explain::ProgramFacts::processId);
    return program == programs.end() ? explain::ProgramFacts{} : *program;
}

std::string Numbers(const RECT& rectangle) {
    return std::to_string(rectangle.left) + ", " + std::to_string(rectangle.top) + " to " +
           std::to_string(rectangle.right) + ", " + std::to_string(rectangle.bottom);
}

std::string TextOf(const Seen& seen, const Options& options) {
    explain::CallFinder finder;
    const explain::WindowFacts facts = explain::FactsOf(seen.window);
    const explain::ProgramFacts program = ProgramOf(facts.processId);
    std::string text = WindowLine(facts, finder.Kind(seen.window)) + "\n";
    text += "  " + OnOneLine(program.name) + ", process " + std::to_string(facts.processId) + "; " +
            Numbers(facts.rectangle) + "\n";
    for (const std::string& remark : explain::Remarks(program)) {
        text += "  ! " + remark + "\n";
    }
    text += "  " + CallLine(finder.CallTo(seen.window), options.language) + "\n";
    if (seen.item) {
        text += seen.item->kind + " '" + OnOneLine(seen.item->text) + "'\n";
        text += "  " + Numbers(seen.item->rectangle) + "\n";
        text += "  " + CallLine(CallToItem(*seen.item, finder), options.language) + "\n";
    }
    return text;
}

std::string JsonOf(const Seen& seen, POINT point, const Options& options) {
    explain::CallFinder finder;
    const explain::WindowFacts facts = explain::FactsOf(seen.window);
    const explain::ProgramFacts program = ProgramOf(facts.processId);
    explain::JsonWriter json;
    json.BeginObject();
    json.Key("format").Text("ghosthand-at").Key("version").Number(std::int64_t{1});
    json.Key("x").Number(std::int64_t{point.x}).Key("y").Number(std::int64_t{point.y});
    json.Key("program").BeginObject();
    json.Key("process").Number(std::int64_t{facts.processId}).Key("name").Text(program.name);
    json.Key("remarks").BeginArray();
    for (const std::string& remark : explain::Remarks(program)) {
        json.Text(remark);
    }
    json.EndArray().EndObject();
    json.Key("window").BeginObject();
    WriteFacts(json, facts, finder.Kind(seen.window));
    WriteCall(json, finder.CallTo(seen.window), options.language);
    json.EndObject();
    json.Key("item");
    if (seen.item) {
        json.BeginObject();
        json.Key("kind").Text(seen.item->kind).Key("text").Text(seen.item->text);
        WriteRectangle(json, seen.item->rectangle);
        WriteCall(json, CallToItem(*seen.item, finder), options.language);
        json.EndObject();
    } else {
        json.Null();
    }
    json.EndObject();
    return json.Result() + "\n";
}

void PrintSeen(const Seen& seen, POINT point, const Options& options) {
    Print(options.asJson ? JsonOf(seen, point, options) : TextOf(seen, options));
}

[[noreturn]] void Watch(const Options& options) {
    std::optional<Seen> last;
    POINT lastPoint = {};
    ULONGLONG lastLook = 0;
    for (;; Sleep(kWatchMilliseconds)) {
        POINT point = {};
        if (!GetCursorPos(&point)) {
            continue; // the desktop is locked
        }
        const bool hasMoved = !last || point.x != lastPoint.x || point.y != lastPoint.y;
        if (!hasMoved && GetTickCount64() - lastLook < kRestMilliseconds) {
            continue;
        }
        Seen seen = LookAt(point);
        if (seen.window != nullptr && (!last || !IsSame(seen, *last))) {
            PrintSeen(seen, point, options);
        }
        last = std::move(seen);
        lastPoint = point;
        lastLook = GetTickCount64();
    }
}

// Without the module the window can still be told.
void LoadModule() {
    try {
        GhosthandModule();
    } catch (const std::exception& error) {
        PrintError(std::string("Items of controls will be missing. ") + error.what() + "\n");
    }
}

} // namespace

int At(Arguments arguments) {
    const auto options = Parse(arguments);
    if (!options) {
        return kWrongUsage;
    }
    LoadModule();
    // Points are the display's own pixels, whatever the programs below them take them for.
    const engine::DpiScope scope(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE_V2);
    if (!options->point) {
        Watch(*options);
    }
    const Seen seen = LookAt(*options->point);
    if (seen.window == nullptr) {
        PrintError("There is no window at that point.\n");
        return kFailed;
    }
    PrintSeen(seen, *options->point, *options);
    return kDone;
}

} // namespace apps
