// ghosthand windows: the windows of the running programs, as text or as JSON.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include <windows.h>

#include "explain/call_text.h"
#include "explain/json_writer.h"
#include "explain/window_call.h"
#include "explain/window_facts.h"
#include "ghosthand/verbs.h"
#include "shared/console.h"

namespace apps {

namespace {

// For all calls together; a program with thousands of windows would take minutes.
constexpr double kSearchSeconds = 20;
constexpr DWORD kWatchMilliseconds = 500;
// The system allows no more levels than this.
constexpr int kMostLevels = 100;

struct Options {
    std::string program;
    bool asJson = false;
    bool withCalls = false;
    bool watches = false;
    explain::Language language = explain::Language::VBScript;
};

std::optional<Options> Parse(Arguments arguments) {
    Options options;
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        const std::string& argument = arguments[index];
        if (argument == "--json") {
            options.asJson = true;
        } else if (argument == "--calls") {
            options.withCalls = true;
        } else if (argument == "--watch") {
            options.watches = true;
        } else if (argument == "--language" && index + 1 < arguments.size()) {
            const auto language = explain::LanguageOf(arguments[++index]);
            if (!language) {
                return std::nullopt;
            }
            options.language = *language;
            options.withCalls = true;
        } else if (!argument.starts_with("--") && !argument.empty() && options.program.empty()) {
            options.program = argument;
        } else {
            return std::nullopt;
        }
    }
    return options;
}

struct Node {
    explain::WindowFacts facts;
    std::string_view kind;
    std::vector<Node> children;
};

struct Program {
    explain::ProgramFacts facts;
    std::vector<Node> windows;
};

Node Read(HWND window, explain::CallFinder& finder, int level = 0) {
    Node node;
    node.facts = explain::FactsOf(window);
    node.kind = finder.Kind(window);
    if (level < kMostLevels) {
        for (const HWND child : explain::ChildrenOf(window)) {
            node.children.push_back(Read(child, finder, level + 1));
        }
    }
    return node;
}

std::vector<Program> ReadPrograms(const std::string& prefix, explain::CallFinder& finder) {
    std::vector<Program> programs;
    for (explain::ProgramFacts& facts : explain::Programs(prefix)) {
        Program program;
        program.facts = std::move(facts);
        for (const HWND window : program.facts.windows) {
            program.windows.push_back(Read(window, finder));
        }
        programs.push_back(std::move(program));
    }
    return programs;
}

// Control characters would break the lines and the terminal.
std::string OnOneLine(const std::string& text) {
    std::string result;
    for (const char character : text) {
        if (static_cast<unsigned char>(character) < 0x20 || character == 0x7F) {
            char escape[8] = "";
            std::snprintf(escape, sizeof escape, "\\x%02X", static_cast<unsigned>(character));
            result += escape;
        } else {
            result += character;
        }
    }
    return result;
}

std::string LineOf(const Program& program) {
    const explain::ProgramFacts& facts = program.facts;
    std::string line =
        (facts.name.empty() ? "(a program whose name cannot be read)" : OnOneLine(facts.name)) +
        "  process " + std::to_string(facts.processId);
    for (const std::string& remark : explain::Remarks(facts)) {
        line += "\n  ! " + remark;
    }
    return line;
}

std::string LineOf(const Node& node) {
    const explain::WindowFacts& facts = node.facts;
    std::string line = OnOneLine(facts.className) + " '" + OnOneLine(facts.caption) + "'";
    if (facts.controlId != 0) {
        line += " id " + std::to_string(facts.controlId);
    }
    if (node.kind != "BaseWindow") {
        line += "  " + std::string(node.kind);
    }
    line += facts.isVisible ? "" : "  hidden";
    line += facts.isEnabled ? "" : "  disabled";
    line += facts.owner == nullptr ? "" : "  owned";
    return line;
}

std::string CallLine(const Node& node, explain::CallFinder& finder, explain::Language language) {
    const explain::WindowCall found = finder.CallTo(node.facts.window);
    if (found.call.empty()) {
        return "no call: " + found.obstacle;
    }
    char time[32] = "  (not run)";
    if (found.isVerified) {
        std::snprintf(time, sizeof time, "  (%.1f ms)", found.milliseconds);
    }
    return explain::CallText(found.call, language) + time;
}

// One line of the text, its window or program told by `key`.
struct Line {
    std::string key;
    int level = 0;
    std::string text;
    const Node* node = nullptr;
};

void AppendLines(std::vector<Line>& lines, const Node& node, int level) {
    lines.push_back(
        {std::to_string(reinterpret_cast<std::uintptr_t>(node.facts.window)), level, LineOf(node), &node});
    for (const Node& child : node.children) {
        AppendLines(lines, child, level + 1);
    }
}

std::vector<Line> LinesOf(const std::vector<Program>& programs) {
    std::vector<Line> lines;
    for (const Program& program : programs) {
        lines.push_back({"process " + std::to_string(program.facts.processId), 0, LineOf(program), nullptr});
        for (const Node& window : program.windows) {
            AppendLines(lines, window, 1);
        }
    }
    return lines;
}

std::string Written(const Line& line, const std::string& mark, explain::CallFinder* finder,
                    const Options& options) {
    const std::string indentation = mark + std::string(static_cast<std::size_t>(line.level) * 2, ' ');
    std::string text = indentation + line.text + "\n";
    if (finder != nullptr && options.withCalls && line.node != nullptr) {
        text += indentation + "    " + CallLine(*line.node, *finder, options.language) + "\n";
    }
    return text;
}

using explain::JsonWriter;

std::int64_t HandleNumber(HWND window) {
    return static_cast<std::int64_t>(reinterpret_cast<std::uintptr_t>(window));
}

void WriteArgument(JsonWriter& json, const explain::Argument& argument) {
    if (const auto* text = std::get_if<std::string>(&argument)) {
        json.Text(*text);
    } else if (const auto* flags = std::get_if<explain::Flags>(&argument)) {
        json.Number(std::int64_t{static_cast<std::int32_t>(flags->value)});
    } else {
        json.Number(std::get<std::int64_t>(argument));
    }
}

void WriteCall(JsonWriter& json, const explain::WindowCall& found, explain::Language language) {
    if (found.call.empty()) {
        json.Key("call").Null().Key("obstacle").Text(found.obstacle);
        return;
    }
    json.Key("call").BeginObject();
    json.Key("language").Text(explain::LanguageName(language));
    json.Key("text").Text(explain::CallText(found.call, language));
    json.Key("steps").BeginArray();
    for (const explain::Step& step : found.call) {
        json.BeginObject().Key("member").Text(step.member).Key("arguments").BeginArray();
        for (const explain::Argument& argument : step.arguments) {
            WriteArgument(json, argument);
        }
        json.EndArray().EndObject();
    }
    json.EndArray();
    json.Key("kind").Text(found.kind).Key("verified").Bool(found.isVerified);
    json.Key("milliseconds");
    found.isVerified ? json.Number(found.milliseconds) : json.Null();
    json.EndObject();
}

void WriteNode(JsonWriter& json, const Node& node, explain::CallFinder& finder, const Options& options) {
    const explain::WindowFacts& facts = node.facts;
    json.BeginObject();
    json.Key("handle").Number(HandleNumber(facts.window));
    json.Key("class").Text(facts.className);
    json.Key("caption").Text(facts.caption);
    json.Key("id").Number(std::int64_t{facts.controlId});
    json.Key("kind").Text(node.kind);
    json.Key("visible").Bool(facts.isVisible);
    json.Key("enabled").Bool(facts.isEnabled);
    json.Key("rectangle").BeginObject();
    json.Key("left").Number(std::int64_t{facts.rectangle.left});
    json.Key("top").Number(std::int64_t{facts.rectangle.top});
    json.Key("right").Number(std::int64_t{facts.rectangle.right});
    json.Key("bottom").Number(std::int64_t{facts.rectangle.bottom}).EndObject();
    json.Key("styles").BeginArray();
    for (const std::string& style : explain::StyleNames(facts)) {
        json.Text(style);
    }
    json.EndArray();
    json.Key("owner");
    facts.owner == nullptr ? json.Null() : json.Number(HandleNumber(facts.owner));
    json.Key("thread").Number(std::int64_t{facts.threadId});
    if (options.withCalls) {
        WriteCall(json, finder.CallTo(facts.window), options.language);
    }
    json.Key("children").BeginArray();
    for (const Node& child : node.children) {
        WriteNode(json, child, finder, options);
    }
    json.EndArray().EndObject();
}

std::string JsonOf(const std::vector<Program>& programs, explain::CallFinder& finder,
                   const Options& options) {
    JsonWriter json;
    json.BeginObject();
    json.Key("format").Text("ghosthand-windows").Key("version").Number(std::int64_t{1});
    json.Key("programs").BeginArray();
    for (const Program& program : programs) {
        const explain::ProgramFacts& facts = program.facts;
        json.BeginObject();
        json.Key("process").Number(std::int64_t{facts.processId});
        json.Key("name").Text(facts.name);
        json.Key("path").Text(facts.path);
        json.Key("is32Bit").Bool(facts.is32Bit);
        json.Key("isElevated").Bool(facts.isElevated);
        json.Key("isHung").Bool(facts.isHung);
        json.Key("remarks").BeginArray();
        for (const std::string& remark : explain::Remarks(facts)) {
            json.Text(remark);
        }
        json.EndArray();
        json.Key("windows").BeginArray();
        for (const Node& window : program.windows) {
            WriteNode(json, window, finder, options);
        }
        json.EndArray().EndObject();
    }
    json.EndArray().EndObject();
    return json.Result() + "\n";
}

// What was there at the last look.
using Known = std::map<std::string, std::string>;

Known KnownOf(const std::vector<Line>& lines) {
    Known known;
    for (const Line& line : lines) {
        known.emplace(line.key, Written(line, "", nullptr, {}));
    }
    return known;
}

void PrintAll(const std::vector<Program>& programs, const std::vector<Line>& lines,
              explain::CallFinder& finder, const Options& options) {
    if (options.asJson) {
        Print(JsonOf(programs, finder, options));
        return;
    }
    for (const Line& line : lines) {
        Print(Written(line, "", &finder, options));
    }
}

void PrintChanges(const std::vector<Line>& lines, const Known& before, explain::CallFinder& finder,
                  const Options& options) {
    const Known now = KnownOf(lines);
    for (const auto& [key, text] : before) {
        const auto known = now.find(key);
        if (known == now.end() || known->second != text) {
            Print("- " + text);
        }
    }
    for (const Line& line : lines) {
        const auto known = before.find(line.key);
        if (known == before.end() || known->second != now.at(line.key)) {
            Print(Written(line, "+ ", &finder, options));
        }
    }
}

} // namespace

int Windows(Arguments arguments) {
    const auto options = Parse(arguments);
    if (!options) {
        return kWrongUsage;
    }
    Known before;
    for (bool isFirst = true; isFirst || options->watches; isFirst = false) {
        explain::CallFinder finder(kSearchSeconds);
        const std::vector<Program> programs = ReadPrograms(options->program, finder);
        if (isFirst && programs.empty()) {
            PrintError(options->program.empty() ? std::string("No program has windows here.\n")
                                                : "No program whose file name begins with '" +
                                                      options->program + "' has windows here.\n");
            return kFailed;
        }
        const std::vector<Line> lines = LinesOf(programs);
        Known now = KnownOf(lines);
        if (isFirst || (options->asJson && now != before)) {
            PrintAll(programs, lines, finder, *options);
        } else if (now != before) {
            PrintChanges(lines, before, finder, *options);
        }
        before = std::move(now);
        if (options->watches) {
            Sleep(kWatchMilliseconds);
        }
    }
    return kDone;
}

} // namespace apps
