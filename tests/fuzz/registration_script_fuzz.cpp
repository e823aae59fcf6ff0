// Input: the script, a character in each byte.
#include "server/registration_script.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <string>

#include "fuzz/check.h"

namespace {

using namespace server;

const Replacements kReplacements{{L"MODULE", L"C:\\It's { here } = 100%\\server.dll"},
                                 {L"BRACE", L"}"},
                                 {L"NONE", L""},
                                 {L"ZERO", std::wstring(1, L'\0')}};

void CheckText(const std::wstring& text) {
    Check(text.find(L'\0') == std::wstring::npos, "no text contains a zero character");
}

std::wstring Quoted(const std::wstring& text) {
    CheckText(text);
    std::wstring quoted = L" '";
    for (const wchar_t character : text) {
        quoted += character;
        if (character == L'\'' || character == L'%')
            quoted += character;
    }
    return quoted + L"' ";
}

std::wstring Written(const ScriptValue& value) {
    if (const auto* text = std::get_if<std::wstring>(&value))
        return L" = s" + Quoted(*text);
    if (const auto* expandable = std::get_if<ExpandableText>(&value))
        return L" = e" + Quoted(expandable->text);
    if (const auto* number = std::get_if<std::uint32_t>(&value))
        return L" = d " + std::to_wstring(*number);
    std::wstring digits;
    for (const std::uint8_t byte : std::get<std::vector<std::uint8_t>>(value)) {
        digits += L"0123456789abcdef"[byte >> 4];
        digits += L"0123456789abcdef"[byte & 0xF];
    }
    return L" = b" + Quoted(digits);
}

std::wstring Written(const std::vector<NamedValue>& values, const std::vector<ScriptKey>& keys) {
    std::wstring text = L"\n{";
    for (const NamedValue& value : values)
        text += L"\nval" + Quoted(value.name) + Written(value.value);
    for (const ScriptKey& key : keys) {
        Check(!key.name.empty(), "every key has a name");
        Check(key.name.find(L'\\') == std::wstring::npos, "a key's name is one level");
        Check(key.rule != KeyRule::Delete || (!key.defaultValue && key.values.empty() && key.keys.empty()),
              "a key to be deleted has no contents");
        constexpr const wchar_t* kRules[] = {L"\n", L"\nNoRemove", L"\nForceRemove", L"\nDelete"};
        text += kRules[static_cast<int>(key.rule)] + Quoted(key.name);
        if (key.defaultValue)
            text += Written(*key.defaultValue);
        if (!key.values.empty() || !key.keys.empty())
            text += Written(key.values, key.keys);
    }
    return text + L"\n}\n";
}

std::wstring Written(const std::vector<ScriptRoot>& roots) {
    constexpr const wchar_t* kRoots[] = {L"HKCR", L"HKEY_CURRENT_USER", L"HKLM", L"HKEY_USERS", L"HKCC"};
    std::wstring text;
    for (const ScriptRoot& root : roots)
        text += kRoots[static_cast<int>(root.root)] + Written(root.values, root.keys);
    return text;
}

// What a script means, written in one way, or why it is refused.
struct Outcome {
    std::wstring script;
    std::string error;
    bool operator==(const Outcome&) const = default;
};

Outcome Read(std::wstring_view script) {
    try {
        return {Written(ParseScript(script, kReplacements)), {}};
    } catch (const ScriptError& error) {
        return {{}, error.what()};
    }
}

void CheckError(const std::string& error, std::wstring_view script) {
    constexpr std::string_view kBegin = "line ";
    Check(error.starts_with(kBegin), "an error begins with its line");
    char* end = nullptr;
    const long line = std::strtol(error.c_str() + kBegin.size(), &end, 10);
    Check(line >= 1 && line <= 1 + std::count(script.begin(), script.end(), L'\n'),
          "an error's line is one of the script");
    const std::string text = end;
    Check(text.starts_with(": ") && text.size() > 10, "an error says what is wrong");
    Check(std::all_of(text.begin(), text.end(),
                      [](unsigned char character) { return std::isprint(character); }),
          "an error is readable");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::wstring script(data, data + size);
    const Outcome outcome = Read(script);
    if (!outcome.error.empty())
        CheckError(outcome.error, script);
    else
        Check(Read(outcome.script) == outcome, "what was read, written again, means the same");

    if (script.find(L'\n') == std::wstring::npos)
        return 0;
    std::wstring otherLineEnds;
    for (const wchar_t character : script)
        otherLineEnds += character == L'\n' ? L"\r\n" : std::wstring(1, character);
    Check(Read(otherLineEnds) == outcome, "line ends of either kind mean the same");
    return 0;
}
