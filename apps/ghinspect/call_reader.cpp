#include "ghinspect/call_reader.h"

#include <algorithm>
#include <charconv>
#include <cstddef>
#include <cstdint>
#include <string>

namespace inspector {

namespace {

using explain::Argument;
using explain::Language;

constexpr std::string_view kFirstMember = "MainWindow";

bool IsWordCharacter(char character) noexcept {
    return (character >= 'a' && character <= 'z') || (character >= 'A' && character <= 'Z') ||
           (character >= '0' && character <= '9') || character == '_';
}

char Lower(char character) noexcept {
    return character >= 'A' && character <= 'Z' ? static_cast<char>(character - 'A' + 'a') : character;
}

bool BeginsWith(std::string_view text, std::string_view beginning) noexcept {
    return std::ranges::equal(text.substr(0, beginning.size()), beginning, {}, Lower, Lower);
}

std::size_t FindFirstMember(std::string_view text) noexcept {
    const auto found = std::ranges::search(text, kFirstMember, {}, Lower, Lower);
    return found.empty() ? std::string_view::npos : static_cast<std::size_t>(found.begin() - text.begin());
}

// A text of UTF-16 units, in which escapes are written, on its way to UTF-8.
class Characters {
public:
    void Append(char byte) {
        EndPair();
        m_text += byte;
    }
    void AppendUnit(std::uint32_t unit) {
        if (unit >= 0xDC00 && unit < 0xE000 && m_high != 0) {
            AppendCharacter(0x10000 + ((m_high - 0xD800) << 10) + (unit - 0xDC00));
            m_high = 0;
            return;
        }
        EndPair();
        if (unit >= 0xD800 && unit < 0xDC00) {
            m_high = unit;
        } else {
            AppendCharacter(unit);
        }
    }
    std::string Take() {
        EndPair();
        return std::move(m_text);
    }

private:
    void EndPair() {
        if (m_high != 0) {
            m_high = 0;
            AppendCharacter(0xFFFD);
        }
    }
    void AppendCharacter(std::uint32_t character) {
        const auto byte = [this](std::uint32_t value) { m_text += static_cast<char>(value); };
        if (character < 0x80) {
            byte(character);
            return;
        }
        if (character < 0x800) {
            byte(0xC0 | character >> 6);
        } else if (character < 0x10000) {
            byte(0xE0 | character >> 12);
            byte(0x80 | (character >> 6 & 0x3F));
        } else {
            byte(0xF0 | (character >> 18 & 7));
            byte(0x80 | (character >> 12 & 0x3F));
            byte(0x80 | (character >> 6 & 0x3F));
        }
        byte(0x80 | (character & 0x3F));
    }

    std::string m_text;
    std::uint32_t m_high = 0; // the first half of a pair
};

// Reads forward through a text. Where something is not understood the position is undefined.
class Reader {
public:
    Reader(std::string_view text, Language language) noexcept : m_rest(text), m_language(language) {}

    bool AtEnd() noexcept {
        SkipSpace();
        return m_rest.empty();
    }

    bool Take(std::string_view wanted) noexcept {
        SkipSpace();
        if (!BeginsWith(m_rest, wanted)) {
            return false;
        }
        m_rest.remove_prefix(wanted.size());
        return true;
    }

    std::string_view Word() noexcept {
        SkipSpace();
        const std::string_view word(m_rest.begin(), std::ranges::find_if_not(m_rest, IsWordCharacter));
        m_rest.remove_prefix(word.size());
        return word;
    }

    // Up to the closing parenthesis or the end.
    bool AppendArguments(std::vector<Argument>& arguments) {
        do {
            std::optional<Argument> argument = IsAtText() ? ReadText() : ReadNumber();
            if (!argument) {
                return false;
            }
            arguments.push_back(std::move(*argument));
        } while (Take(","));
        return true;
    }

private:
    void SkipSpace() noexcept {
        const std::size_t end = m_rest.find_first_not_of(" \t\r\n");
        m_rest.remove_prefix(std::min(end, m_rest.size()));
    }

    bool IsAtText() noexcept {
        SkipSpace();
        return !m_rest.empty() &&
               (m_rest.front() == '"' || m_rest.front() == '\'' || BeginsWith(m_rest, "chr"));
    }

    std::optional<std::uint32_t> Digits(std::size_t most, int base) noexcept {
        std::uint32_t value = 0;
        const std::string_view digits = m_rest.substr(0, most);
        const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
        if (error != std::errc()) {
            return std::nullopt;
        }
        m_rest.remove_prefix(static_cast<std::size_t>(end - digits.data()));
        return value;
    }

    // "a" & ChrW(8364) & "b"
    std::optional<Argument> ReadText() {
        Characters characters;
        do {
            SkipSpace();
            const bool isUnderstood =
                BeginsWith(m_rest, "chr") ? AppendCharacterCall(characters) : AppendLiteral(characters);
            if (!isUnderstood) {
                return std::nullopt;
            }
        } while (Take("&"));
        return characters.Take();
    }

    bool AppendCharacterCall(Characters& characters) {
        if ((!Take("ChrW") && !Take("Chr")) || !Take("(")) {
            return false;
        }
        const auto unit = Digits(10, 10);
        if (!unit || !Take(")")) {
            return false;
        }
        characters.AppendUnit(*unit);
        return true;
    }

    bool AppendLiteral(Characters& characters) {
        if (m_rest.empty()) {
            return false;
        }
        const char quote = m_rest.front();
        m_rest.remove_prefix(1);
        const bool doubles = m_language == Language::VBScript || m_language == Language::PowerShell;
        const bool expands = m_language == Language::PowerShell && quote == '"';
        while (!m_rest.empty()) {
            const char character = m_rest.front();
            m_rest.remove_prefix(1);
            if (character == quote) {
                if (!doubles || m_rest.empty() || m_rest.front() != quote) {
                    return true;
                }
                m_rest.remove_prefix(1);
                characters.Append(quote);
            } else if (character == '\\' && !doubles) {
                if (!AppendEscape(characters)) {
                    return false;
                }
            } else if (expands && character == '`' && !m_rest.empty()) {
                characters.Append(m_rest.front());
                m_rest.remove_prefix(1);
            } else if (expands && character == '$' && BeginsWith(m_rest, "([char]0x")) {
                m_rest.remove_prefix(std::string_view("([char]0x").size());
                const auto unit = Digits(4, 16);
                if (!unit || !Take(")")) {
                    return false;
                }
                characters.AppendUnit(*unit);
            } else {
                characters.Append(character);
            }
        }
        return false;
    }

    bool AppendEscape(Characters& characters) {
        if (m_rest.empty()) {
            return false;
        }
        const char kind = m_rest.front();
        m_rest.remove_prefix(1);
        constexpr std::string_view kNames = "nrt0";
        constexpr std::string_view kMeanings("\n\r\t\0", 4);
        if (const std::size_t index = kNames.find(kind); index != std::string_view::npos) {
            characters.Append(kMeanings[index]);
            return true;
        }
        const std::size_t length = kind == 'u' ? 4 : kind == 'x' ? 2 : kind == 'U' ? 8 : 0;
        if (length == 0) {
            characters.Append(kind);
            return true;
        }
        const auto value = Digits(length, 16);
        if (!value) {
            return false;
        }
        if (*value > 0xFFFF) {
            characters.AppendUnit(0xD800 + ((*value - 0x10000) >> 10));
            characters.AppendUnit(0xDC00 + (*value & 0x3FF));
        } else {
            characters.AppendUnit(*value);
        }
        return true;
    }

    // A sum; what has a hexadecimal number in it is flags.
    std::optional<Argument> ReadNumber() {
        bool isHexadecimal = false;
        const auto value = Sum(isHexadecimal);
        if (!value) {
            return std::nullopt;
        }
        return isHexadecimal ? Argument(explain::Flags{static_cast<std::uint32_t>(*value)})
                             : Argument(*value);
    }

    std::optional<std::int64_t> Sum(bool& isHexadecimal) {
        auto sum = Product(isHexadecimal);
        while (sum) {
            const bool isMinus = Take("-");
            const bool isOr = !isMinus && (Take("|") || Take("Or"));
            if (!isMinus && !isOr && !Take("+")) {
                break;
            }
            const auto next = Product(isHexadecimal);
            if (!next) {
                return std::nullopt;
            }
            sum = isMinus ? *sum - *next : isOr ? (*sum | *next) : *sum + *next;
        }
        return sum;
    }

    std::optional<std::int64_t> Product(bool& isHexadecimal) {
        auto product = Factor(isHexadecimal);
        while (product && Take("*")) {
            const auto next = Factor(isHexadecimal);
            if (!next) {
                return std::nullopt;
            }
            product = static_cast<std::int64_t>(static_cast<std::uint64_t>(*product) *
                                                static_cast<std::uint64_t>(*next));
        }
        return product;
    }

    std::optional<std::int64_t> Factor(bool& isHexadecimal) {
        // Each level takes a character, and the text has few.
        if (Take("unchecked") || Take("(int)")) {
            return Factor(isHexadecimal);
        }
        if (Take("(")) {
            const auto inner = Sum(isHexadecimal);
            return Take(")") ? inner : std::nullopt;
        }
        if (Take("-")) {
            const auto inner = Factor(isHexadecimal);
            return inner ? std::optional(-*inner) : std::nullopt;
        }
        if (Take("true")) {
            return -1;
        }
        if (Take("false")) {
            return 0;
        }
        const int base = Take("&H") || Take("0x") ? 16 : 10;
        std::int64_t value = 0;
        SkipSpace();
        const auto [end, error] = std::from_chars(m_rest.data(), m_rest.data() + m_rest.size(), value, base);
        if (error != std::errc() || value < 0 || value > kGreatestNumber) {
            return std::nullopt;
        }
        m_rest.remove_prefix(static_cast<std::size_t>(end - m_rest.data()));
        if (base == 16) {
            isHexadecimal = true;
            Take("&");
        }
        return value;
    }

    // What is above 32 bits stands there to be subtracted.
    static constexpr std::int64_t kGreatestNumber = 0x100000000;

    std::string_view m_rest;
    Language m_language;
};

constexpr std::size_t kLongestText = 4000;

} // namespace

bool LooksLikeCall(std::string_view text) {
    const std::size_t first = FindFirstMember(text);
    return first != std::string_view::npos && text.find('(', first) != std::string_view::npos;
}

std::optional<explain::Call> ReadCall(std::string_view text, Language language) {
    const std::size_t first = FindFirstMember(text);
    if (first == std::string_view::npos || text.size() > kLongestText) {
        return std::nullopt;
    }
    Reader reader(text.substr(first), language);
    explain::Call call;
    do {
        explain::Step step{std::string(reader.Word()), {}};
        if (step.member.empty()) {
            return std::nullopt;
        }
        if (reader.Take("(") && !reader.Take(")") &&
            !(reader.AppendArguments(step.arguments) && reader.Take(")"))) {
            return std::nullopt;
        }
        call.push_back(std::move(step));
    } while (reader.Take("."));
    reader.Take(";");
    return reader.AtEnd() ? std::optional(std::move(call)) : std::nullopt;
}

std::optional<std::vector<Argument>> ReadArguments(std::string_view text, Language language) {
    Reader reader(text.substr(0, kLongestText), language);
    std::vector<Argument> arguments;
    if (!reader.AtEnd() && !(reader.AppendArguments(arguments) && reader.AtEnd())) {
        return std::nullopt;
    }
    return arguments;
}

} // namespace inspector
