// Registration scripts: the text that says which registry keys and values belong to the server.
//
//   HKCR
//   {
//       NoRemove CLSID
//       {
//           ForceRemove {guid} = s 'Default value'
//           {
//               val ThreadingModel = s 'Apartment'
//           }
//       }
//   }
//
// Tokens are separated by white space; a token in apostrophes may hold anything, two apostrophes stand
// for one. %NAME% is replaced, %% stands for one percent sign. Values: s text, e expandable text,
// d unsigned 32-bit number (decimal or 0x...), b bytes as pairs of hexadecimal digits.
#pragma once

#include <cstdint>
#include <map>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace server {

struct ExpandableText {
    std::wstring text;
};
using ScriptValue = std::variant<std::wstring, ExpandableText, std::uint32_t, std::vector<std::uint8_t>>;

struct NamedValue {
    std::wstring name;
    ScriptValue value;
};

enum class KeyRule {
    Plain,       // made by registering, removed by unregistering
    NoRemove,    // made if missing, never removed
    ForceRemove, // removed with all its contents before it is made, and by unregistering
    Delete,      // removed by registering, never made
};

struct ScriptKey {
    std::wstring name; // never empty, one level: without a backslash
    KeyRule rule = KeyRule::Plain;
    std::optional<ScriptValue> defaultValue;
    std::vector<NamedValue> values;
    std::vector<ScriptKey> keys;
};

enum class RootKey { ClassesRoot, CurrentUser, LocalMachine, Users, CurrentConfig };

struct ScriptRoot {
    RootKey root = RootKey::ClassesRoot;
    std::vector<NamedValue> values;
    std::vector<ScriptKey> keys;
};

// Its text says what is wrong with a script, and in which line (1-based).
class ScriptError : public std::runtime_error {
public:
    ScriptError(int line, const std::string& text);
};

using Replacements = std::map<std::wstring, std::wstring, std::less<>>;

// The keys of a script in the order of its text. Throws ScriptError for a damaged script.
std::vector<ScriptRoot> ParseScript(std::wstring_view script, const Replacements& replacements);

} // namespace server
