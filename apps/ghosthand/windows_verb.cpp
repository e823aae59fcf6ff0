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
#include "ghosthand/window_output.h"
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

// One line of the text, its window or program told by `key`.
struct Line {
    std::string key;
    int level = 0;
    std::string text;
    const Node* node = nullptr;
};

void AppendLines(std::vector<Line>& lines, const Node& node, int level) {
    lines.push_back({std::to_string(reinterpret_cast<std::uintptr_t>(node.facts.window)), level,
                     WindowLine(node.facts, node.kind), &node});
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
        text +=
            indentation + "    " + CallLine(finder->CallTo(line.node->facts.window), options.language) + "\n";
    }
    return text;
}

using explain::JsonWriter;

void WriteNode(JsonWriter& json, const Node& node, explain::CallFinder& finder, const Options& options) {
    json.BeginObject();
    WriteFacts(json, node.facts, node.kind);
    if (options.withCalls) {
        WriteCall(json, finder.CallTo(node.facts.window), options.language);
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
