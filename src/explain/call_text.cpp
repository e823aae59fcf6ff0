#include "explain/call_text.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace explain {

namespace {

constexpr std::string_view kNames[] = {"VBScript", "JScript", "PowerShell", "Python", "C#"};

// What is a property wherever it stands without arguments; everything else is a method.
constexpr std::string_view kProperties[] = {"AccessibleObject",
                                            "AllowMouseBlocks",
                                            "CameraPosition",
                                            "Checked",
                                            "CheckedState",
                                            "Child",
                                            "Color",
                                            "ColumnsCount",
                                            "ControlID",
                                            "Enabled",
                                            "EnabledTimeout",
                                            "Expanded",
                                            "HeadingText",
                                            "Height",
                                            "IsCheckbox",
                                            "IsReadOnly",
                                            "ItemsCount",
                                            "Label",
                                            "Left",
                                            "Max",
                                            "Min",
                                            "Path",
                                            "Pos",
                                            "Root",
                                            "RowsCount",
                                            "Selected",
                                            "SelectedItem",
                                            "Sibling",
                                            "Starred",
                                            "StateImage",
                                            "Synchronization",
                                            "Text",
                                            "ThreeState",
                                            "Top",
                                            "Visible",
                                            "Width"};

constexpr char32_t kReplacement = 0xFFFD;

struct Decoded {
    char32_t character;
    std::size_t length;
};

// The character that `text`, which is not empty, begins with; a byte that begins none counts as U+FFFD.
Decoded DecodeFirst(std::string_view text) noexcept {
    const auto first = static_cast<unsigned char>(text.front());
    if (first < 0x80) {
        return {first, 1};
    }
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || text.size() < length) {
        return {kReplacement, 1};
    }
    char32_t character = first & (0x7Fu >> length);
    for (const char next : text.substr(1, length - 1)) {
        const auto byte = static_cast<unsigned char>(next);
        if ((byte & 0xC0) != 0x80) {
            return {kReplacement, 1};
        }
        character = character << 6 | (byte & 0x3Fu);
    }
    constexpr char32_t kSmallest[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool isSurrogate = character >= 0xD800 && character <= 0xDFFF;
    return character < kSmallest[length] || isSurrogate || character > 0x10FFFF ? Decoded{kReplacement, 1}
                                                                                : Decoded{character, length};
}

// Hexadecimal, filled up with zeros to that many digits.
std::string Hex(std::string_view prefix, std::uint32_t number, std::size_t digits = 1) {
    std::string text;
    for (; number != 0 || text.size() < digits; number >>= 4) {
        text.insert(text.begin(), "0123456789ABCDEF"[number & 0xF]);
    }
    return text.insert(0, prefix);
}

bool IsPrintableAscii(char32_t character) noexcept {
    return character >= 0x20 && character < 0x7F;
}

// Calls `visit` for each unit of UTF-16.
template <class Visit>
void ForEachUnit(char32_t character, Visit&& visit) {
    if (character < 0x10000) {
        visit(static_cast<unsigned>(character));
        return;
    }
    const auto offset = static_cast<unsigned>(character) - 0x10000;
    visit(0xD800 + (offset >> 10));
    visit(0xDC00 + (offset & 0x3FF));
}

// Literals and ChrW, joined: what a file holds beyond ASCII depends on the code page of who reads it.
std::string VBScriptText(std::string_view text) {
    std::string result;
    bool isOpen = false; // a literal
    const auto append = [&](std::string_view piece, bool isLiteral) {
        if (isLiteral != isOpen) {
            result += isOpen ? "\"" : "";
            isOpen = isLiteral;
            result += result.empty() ? "" : " & ";
            result += isLiteral ? "\"" : "";
        } else if (!isLiteral) {
            result += result.empty() ? "" : " & ";
        }
        result += piece;
    };
    while (!text.empty()) {
        const auto [character, length] = DecodeFirst(text);
        if (IsPrintableAscii(character)) {
            append(character == '"' ? "\"\"" : text.substr(0, 1), true);
        } else {
            ForEachUnit(character,
                        [&](unsigned unit) { append("ChrW(" + std::to_string(unit) + ")", false); });
        }
        text.remove_prefix(length);
    }
    if (result.empty()) {
        return "\"\"";
    }
    return result + (isOpen ? "\"" : "");
}

// A literal with backslashes before quotes and for what is not ASCII.
std::string BackslashText(std::string_view text, char quote, bool hasLongEscapes) {
    std::string result(1, quote);
    while (!text.empty()) {
        const auto [character, length] = DecodeFirst(text);
        if (IsPrintableAscii(character)) {
            if (text.front() == quote || text.front() == '\\') {
                result += '\\';
            }
            result += text.front();
        } else if (hasLongEscapes && character >= 0x10000) {
            result += Hex("\\U", character, 8);
        } else {
            ForEachUnit(character, [&](unsigned unit) { result += Hex("\\u", unit, 4); });
        }
        text.remove_prefix(length);
    }
    return result + quote;
}

// Expands nothing in single quotes; in double quotes each unit beyond ASCII is an expression.
std::string PowerShellText(std::string_view text) {
    if (std::ranges::all_of(text,
                            [](char byte) { return IsPrintableAscii(static_cast<unsigned char>(byte)); })) {
        std::string result = "'";
        for (const char character : text) {
            result += character == '\'' ? "''" : std::string(1, character);
        }
        return result + "'";
    }
    std::string result = "\"";
    while (!text.empty()) {
        const auto [character, length] = DecodeFirst(text);
        if (IsPrintableAscii(character)) {
            if (std::string_view("\"`$").find(text.front()) != std::string_view::npos) {
                result += '`';
            }
            result += text.front();
        } else {
            ForEachUnit(character, [&](unsigned unit) { result += Hex("$([char]0x", unit) + ")"; });
        }
        text.remove_prefix(length);
    }
    return result + "\"";
}

std::string TextOf(const std::string& text, Language language) {
    switch (language) {
    case Language::VBScript:
        return VBScriptText(text);
    case Language::PowerShell:
        return PowerShellText(text);
    case Language::Python:
        return BackslashText(text, '\'', true);
    default:
        return BackslashText(text, '"', false);
    }
}

// Members take 32 bits with a sign. A literal of which the highest bit is set would be too large for that in
// most languages.
std::string TextOf(Flags flags, Language language) {
    if (language == Language::VBScript) {
        // Without the & at its end, &H8000 to &HFFFF is a negative number of 16 bits.
        return Hex("&H", flags.value) + (flags.value > 0x7FFF ? "&" : "");
    }
    std::string number = Hex("0x", flags.value);
    if (flags.value <= 0x7FFFFFFF) {
        return number;
    }
    switch (language) {
    case Language::JScript:
        return "(" + number + " | 0)";
    case Language::Python:
        return number + " - 0x100000000";
    case Language::CSharp:
        return "unchecked((int)" + number + ")";
    default:
        return number; // a hexadecimal literal of PowerShell has the sign of its 32 bits
    }
}

std::string TextOf(std::int64_t number, Language) {
    return std::to_string(number);
}

bool IsProperty(const Step& step) noexcept {
    return step.arguments.empty() && std::ranges::binary_search(kProperties, std::string_view(step.member));
}

} // namespace

std::string_view LanguageName(Language language) noexcept {
    return kNames[static_cast<std::size_t>(language)];
}

std::optional<Language> LanguageOf(std::string_view name) noexcept {
    const auto lower = [](char character) {
        return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
    };
    const auto isName = [&](std::string_view wanted) {
        return std::ranges::equal(name, wanted, {}, lower, lower);
    };
    for (const Language language : kLanguages) {
        if (isName(LanguageName(language)) || (language == Language::CSharp && isName("csharp"))) {
            return language;
        }
    }
    return std::nullopt;
}

std::string ArgumentText(const Argument& argument, Language language) {
    return std::visit([&](const auto& value) { return TextOf(value, language); }, argument);
}

std::string CallText(const Call& call, Language language, std::string_view entry) {
    std::string result(language == Language::PowerShell ? "$" : "");
    result += entry;
    for (const Step& step : call) {
        result += '.' + step.member;
        if (step.arguments.empty() && (language == Language::VBScript || IsProperty(step))) {
            continue;
        }
        std::string_view separator = "(";
        for (const Argument& argument : step.arguments) {
            result += separator;
            result += ArgumentText(argument, language);
            separator = ", ";
        }
        result += step.arguments.empty() ? "()" : ")";
    }
    return result;
}

} // namespace explain
