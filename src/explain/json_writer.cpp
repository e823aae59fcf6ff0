#include "explain/json_writer.h"

#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>

namespace explain {

namespace {

// The length of the character in UTF-8 that `text` begins with, 0 if it begins with none.
std::size_t CharacterLength(std::string_view text) noexcept {
    const auto byte = [&](std::size_t index) { return static_cast<unsigned char>(text[index]); };
    const unsigned char first = byte(0);
    if (first < 0x80) {
        return 1;
    }
    const std::size_t length = first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if (first < 0xC2 || first > 0xF4 || text.size() < length) {
        return 0;
    }
    for (std::size_t index = 1; index < length; ++index) {
        if ((byte(index) & 0xC0) != 0x80) {
            return 0;
        }
    }
    const unsigned char second = byte(1);
    const bool isOverlong = (first == 0xE0 && second < 0xA0) || (first == 0xF0 && second < 0x90);
    const bool isSurrogate = first == 0xED && second > 0x9F;
    const bool isTooLarge = first == 0xF4 && second > 0x8F;
    return isOverlong || isSurrogate || isTooLarge ? 0 : length;
}

void AppendEscaped(std::string& result, unsigned char character) {
    switch (character) {
    case '"':
        result += "\\\"";
        return;
    case '\\':
        result += "\\\\";
        return;
    case '\n':
        result += "\\n";
        return;
    case '\r':
        result += "\\r";
        return;
    case '\t':
        result += "\\t";
        return;
    default:
        if (character < 0x20 || character == 0x7F) {
            constexpr std::string_view kDigits = "0123456789abcdef";
            result += "\\u00";
            result += kDigits[character >> 4];
            result += kDigits[character & 0xF];
        } else {
            result += static_cast<char>(character);
        }
    }
}

} // namespace

void JsonWriter::Separate() {
    if (m_needsComma) {
        m_result += ',';
    }
    m_needsComma = true;
}

JsonWriter& JsonWriter::BeginObject() {
    Separate();
    m_result += '{';
    m_needsComma = false;
    return *this;
}

JsonWriter& JsonWriter::EndObject() {
    m_result += '}';
    m_needsComma = true;
    return *this;
}

JsonWriter& JsonWriter::BeginArray() {
    Separate();
    m_result += '[';
    m_needsComma = false;
    return *this;
}

JsonWriter& JsonWriter::EndArray() {
    m_result += ']';
    m_needsComma = true;
    return *this;
}

JsonWriter& JsonWriter::Key(std::string_view name) {
    Text(name);
    m_result += ':';
    m_needsComma = false;
    return *this;
}

JsonWriter& JsonWriter::Text(std::string_view text) {
    Separate();
    m_result += '"';
    while (!text.empty()) {
        const std::size_t length = CharacterLength(text);
        if (length == 0) {
            m_result += "\xEF\xBF\xBD";
            text.remove_prefix(1);
        } else if (length == 1) {
            AppendEscaped(m_result, static_cast<unsigned char>(text.front()));
            text.remove_prefix(1);
        } else {
            m_result += text.substr(0, length);
            text.remove_prefix(length);
        }
    }
    m_result += '"';
    return *this;
}

JsonWriter& JsonWriter::Number(std::int64_t number) {
    Separate();
    m_result += std::to_string(number);
    return *this;
}

JsonWriter& JsonWriter::Number(double number) {
    if (!std::isfinite(number)) {
        return Null();
    }
    const double rounded = std::round(number * 1000) / 1000;
    std::array<char, 400> digits = {};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), rounded);
    Separate();
    m_result.append(digits.data(), end.ptr);
    return *this;
}

JsonWriter& JsonWriter::Bool(bool value) {
    Separate();
    m_result += value ? "true" : "false";
    return *this;
}

JsonWriter& JsonWriter::Null() {
    Separate();
    m_result += "null";
    return *this;
}

} // namespace explain
