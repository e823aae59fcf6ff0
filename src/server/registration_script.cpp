#include "server/registration_script.h"

#include <cstddef>
#include <limits>
#include <utility>

#include "server/script_tokens.h"

namespace server {
namespace {

// The registry has no deeper keys, and the parser calls itself for each level.
constexpr int kDeepestLevel = 512;

// Nothing unless every character is a digit and the number fits.
std::optional<std::uint32_t> Number(std::wstring_view digits, unsigned base) {
    std::uint64_t number = 0;
    if (digits.empty())
        return std::nullopt;
    for (const wchar_t character : digits) {
        unsigned digit = base;
        if (character >= L'0' && character <= L'9')
            digit = static_cast<unsigned>(character - L'0');
        else if (character >= L'a' && character <= L'f')
            digit = static_cast<unsigned>(character - L'a' + 10);
        else if (character >= L'A' && character <= L'F')
            digit = static_cast<unsigned>(character - L'A' + 10);
        if (digit >= base)
            return std::nullopt;
        number = number * base + digit;
        if (number > std::numeric_limits<std::uint32_t>::max())
            return std::nullopt;
    }
    return static_cast<std::uint32_t>(number);
}

std::optional<std::uint32_t> DecimalOrHexadecimal(std::wstring_view text) {
    if (text.starts_with(L"0x") || text.starts_with(L"0X"))
        return Number(text.substr(2), 16);
    return Number(text, 10);
}

std::optional<std::vector<std::uint8_t>> Bytes(std::wstring_view digits) {
    std::vector<std::uint8_t> bytes;
    for (; digits.size() >= 2; digits.remove_prefix(2)) {
        const std::optional<std::uint32_t> byte = Number(digits.substr(0, 2), 16);
        if (!byte)
            return std::nullopt;
        bytes.push_back(static_cast<std::uint8_t>(*byte));
    }
    if (!digits.empty())
        return std::nullopt;
    return bytes;
}

class Parser {
public:
    Parser(std::wstring_view script, const Replacements& replacements)
        : m_tokens(script, replacements), m_next(m_tokens.Next()) {}

    std::vector<ScriptRoot> Script() {
        std::vector<ScriptRoot> roots;
        do {
            ScriptRoot root;
            root.root = Root();
            Block(root.values, root.keys, 1);
            roots.push_back(std::move(root));
        } while (m_next);
        return roots;
    }

private:
    [[noreturn]] void Fail(const std::string& text) const {
        throw ScriptError(m_next ? m_next->line : m_tokens.Line(), text);
    }

    // For what is wrong with the word that was read last.
    [[noreturn]] void FailWord(const std::string& text) const { throw ScriptError(m_wordLine, text); }

    bool At(std::wstring_view symbol) const { return m_next && m_next->Is(symbol); }

    // Consumes the symbol if it comes next.
    bool Accept(std::wstring_view symbol) {
        if (!At(symbol))
            return false;
        m_next = m_tokens.Next();
        return true;
    }

    void Expect(std::wstring_view symbol, const char* text) {
        if (!Accept(symbol))
            Fail(text);
    }

    // A token that is no symbol.
    std::wstring Word(const char* missing) {
        if (!m_next || At(L"{") || At(L"}") || At(L"="))
            Fail(missing);
        m_wordLine = m_next->line;
        std::wstring text = std::move(m_next->text);
        m_next = m_tokens.Next();
        return text;
    }

    RootKey Root() {
        static constexpr std::pair<std::wstring_view, RootKey> kRoots[] = {
            {L"HKCR", RootKey::ClassesRoot},   {L"HKEY_CLASSES_ROOT", RootKey::ClassesRoot},
            {L"HKCU", RootKey::CurrentUser},   {L"HKEY_CURRENT_USER", RootKey::CurrentUser},
            {L"HKLM", RootKey::LocalMachine},  {L"HKEY_LOCAL_MACHINE", RootKey::LocalMachine},
            {L"HKU", RootKey::Users},          {L"HKEY_USERS", RootKey::Users},
            {L"HKCC", RootKey::CurrentConfig}, {L"HKEY_CURRENT_CONFIG", RootKey::CurrentConfig},
        };
        for (const auto& [name, root] : kRoots)
            if (Accept(name))
                return root;
        Fail("a root key is expected, such as HKCR");
    }

    void Block(std::vector<NamedValue>& values, std::vector<ScriptKey>& keys, int level) {
        if (level > kDeepestLevel)
            Fail("the keys are nested too deeply");
        Expect(L"{", "an opening brace is expected");
        while (!Accept(L"}")) {
            if (Accept(L"val"))
                values.push_back(Named());
            else
                keys.push_back(Key(level));
        }
    }

    NamedValue Named() {
        NamedValue named;
        named.name = Word("the name of a value is expected");
        Expect(L"=", "an equals sign is expected behind the name of a value");
        named.value = Value();
        return named;
    }

    ScriptKey Key(int level) {
        ScriptKey key;
        key.rule = Rule();
        key.name = KeyName();
        if (key.rule == KeyRule::Delete)
            return key;
        if (Accept(L"="))
            key.defaultValue = Value();
        if (At(L"{"))
            Block(key.values, key.keys, level + 1);
        return key;
    }

    KeyRule Rule() {
        if (Accept(L"NoRemove"))
            return KeyRule::NoRemove;
        if (Accept(L"ForceRemove"))
            return KeyRule::ForceRemove;
        if (Accept(L"Delete"))
            return KeyRule::Delete;
        return KeyRule::Plain;
    }

    // An empty name would mean the key above, and removing it would remove everything in there.
    std::wstring KeyName() {
        std::wstring name = Word("the name of a key or a closing brace is expected");
        if (name.empty())
            FailWord("a key has no name");
        if (name.find(L'\\') != std::wstring::npos)
            FailWord("the name of a key contains a backslash");
        return name;
    }

    ScriptValue Value() {
        const std::wstring kind = Word("the kind of a value is expected: s, e, d or b");
        std::wstring text = Word("a value is expected");
        if (kind == L"s")
            return text;
        if (kind == L"e")
            return ExpandableText{std::move(text)};
        if (kind == L"d") {
            if (const auto number = DecimalOrHexadecimal(text))
                return *number;
            FailWord("a number is not a decimal or hexadecimal one of 32 bits");
        }
        if (kind == L"b") {
            if (auto bytes = Bytes(text))
                return std::move(*bytes);
            FailWord("bytes are not written as pairs of hexadecimal digits");
        }
        FailWord("a value is of an unknown kind, neither s, e, d nor b");
    }

    ScriptTokens m_tokens;
    std::optional<ScriptToken> m_next;
    int m_wordLine = 1;
};

} // namespace

ScriptError::ScriptError(int line, const std::string& text)
    : std::runtime_error("line " + std::to_string(line) + ": " + text) {}

std::vector<ScriptRoot> ParseScript(std::wstring_view script, const Replacements& replacements) {
    return Parser(script, replacements).Script();
}

} // namespace server
