// The words of a registration script.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "server/registration_script.h"

namespace server {

struct ScriptToken {
    std::wstring text;
    bool literal = false; // in apostrophes or with a replacement: no key word, brace or equals sign
    int line = 1;

    bool Is(std::wstring_view word) const { return !literal && text == word; }
};

// Splits a script into tokens. Replacements are made inside of tokens, so that no replaced text, such as
// a path with blanks or apostrophes, changes the structure of the script.
class ScriptTokens {
public:
    // Both must outlive this object.
    ScriptTokens(std::wstring_view script, const Replacements& replacements)
        : m_rest(script), m_replacements(replacements) {}

    // Nothing at the end of the script.
    std::optional<ScriptToken> Next();
    int Line() const { return m_line; }

private:
    void SkipWhiteSpace();
    std::wstring PlainText();
    std::wstring QuotedText();
    std::wstring Replaced(std::wstring_view text) const;
    std::wstring_view Replacement(std::wstring_view name) const;

    std::wstring_view m_rest;
    const Replacements& m_replacements;
    int m_line = 1;
};

} // namespace server
