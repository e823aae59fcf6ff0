#include "ghosthand/window_output.h"

#include <cstdint>
#include <cstdio>

namespace apps {

using explain::JsonWriter;

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

std::string WindowLine(const explain::WindowFacts& facts, std::string_view kind) {
    std::string line = OnOneLine(facts.className) + " '" + OnOneLine(facts.caption) + "'";
    if (facts.controlId != 0) {
        line += " id " + std::to_string(facts.controlId);
    }
    if (kind != "BaseWindow") {
        line += "  " + std::string(kind);
    }
    line += facts.isVisible ? "" : "  hidden";
    line += facts.isEnabled ? "" : "  disabled";
    line += facts.owner == nullptr ? "" : "  owned";
    return line;
}

std::string CallLine(const explain::WindowCall& found, explain::Language language) {
    if (found.call.empty()) {
        return "no call: " + found.obstacle;
    }
    char time[32] = "  (not run)";
    if (found.isVerified) {
        std::snprintf(time, sizeof time, "  (%.1f ms)", found.milliseconds);
    }
    return explain::CallText(found.call, language) + time;
}

namespace {

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

} // namespace

void WriteRectangle(JsonWriter& json, const RECT& rectangle) {
    json.Key("rectangle").BeginObject();
    json.Key("left").Number(std::int64_t{rectangle.left});
    json.Key("top").Number(std::int64_t{rectangle.top});
    json.Key("right").Number(std::int64_t{rectangle.right});
    json.Key("bottom").Number(std::int64_t{rectangle.bottom}).EndObject();
}

void WriteFacts(JsonWriter& json, const explain::WindowFacts& facts, std::string_view kind) {
    json.Key("handle").Number(HandleNumber(facts.window));
    json.Key("class").Text(facts.className);
    json.Key("caption").Text(facts.caption);
    json.Key("id").Number(std::int64_t{facts.controlId});
    json.Key("kind").Text(kind);
    json.Key("visible").Bool(facts.isVisible);
    json.Key("enabled").Bool(facts.isEnabled);
    WriteRectangle(json, facts.rectangle);
    json.Key("styles").BeginArray();
    for (const std::string& style : explain::StyleNames(facts)) {
        json.Text(style);
    }
    json.EndArray();
    json.Key("owner");
    facts.owner == nullptr ? json.Null() : json.Number(HandleNumber(facts.owner));
    json.Key("thread").Number(std::int64_t{facts.threadId});
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

} // namespace apps
