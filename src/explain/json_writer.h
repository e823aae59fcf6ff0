// Writes JSON, one value after the other, into a text in UTF-8.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace explain {

// Commas come by themselves. The caller opens and closes in pairs and gives each member of an object a key
// before its value.
class JsonWriter {
public:
    JsonWriter& BeginObject();
    JsonWriter& EndObject();
    JsonWriter& BeginArray();
    JsonWriter& EndArray();
    JsonWriter& Key(std::string_view name);
    // Bytes that are not UTF-8 become U+FFFD.
    JsonWriter& Text(std::string_view text);
    JsonWriter& Number(std::int64_t number);
    // With up to three digits behind the point; a value that JSON cannot express becomes null.
    JsonWriter& Number(double number);
    JsonWriter& Bool(bool value);
    JsonWriter& Null();

    const std::string& Result() const noexcept { return m_result; }

private:
    void Separate();

    std::string m_result;
    bool m_needsComma = false;
};

} // namespace explain
