#include "server/script_tokens.h"

namespace server {
namespace {

bool IsWhiteSpace(wchar_t character) {
    return character == L' ' || character == L'\t' || character == L'\r' || character == L'\n';
}

} // namespace

std::optional<ScriptToken> ScriptTokens::Next() {
    SkipWhiteSpace();
    if (m_rest.empty())
        return std::nullopt;
    ScriptToken token;
    token.line = m_line;
    const bool quoted = m_rest.front() == L'\'';
    const std::wstring text = quoted ? QuotedText() : PlainText();
    token.literal = quoted || text.find(L'%') != std::wstring::npos;
    token.text = Replaced(text);
    return token;
}

void ScriptTokens::SkipWhiteSpace() {
    while (!m_rest.empty() && IsWhiteSpace(m_rest.front())) {
        if (m_rest.front() == L'\n')
            ++m_line;
        m_rest.remove_prefix(1);
    }
}

std::wstring ScriptTokens::PlainText() {
    std::size_t length = 0;
    while (length < m_rest.size() && !IsWhiteSpace(m_rest[length]))
        ++length;
    std::wstring text(m_rest.substr(0, length));
    // A forgotten blank would make one word, and then a key, of two.
    if (text.find(L'\'') != std::wstring::npos || (text.starts_with(L'=') && length > 1))
        throw ScriptError(m_line, "a blank is missing");
    m_rest.remove_prefix(length);
    return text;
}

std::wstring ScriptTokens::QuotedText() {
    m_rest.remove_prefix(1);
    std::wstring text;
    while (!m_rest.empty() && m_rest.front() != L'\n') {
        const wchar_t character = m_rest.front();
        m_rest.remove_prefix(1);
        if (character == L'\'') {
            if (m_rest.empty() || m_rest.front() != L'\'')
                return text;
            m_rest.remove_prefix(1);
        }
        text += character;
    }
    throw ScriptError(m_line, "a text has no closing apostrophe");
}

std::wstring ScriptTokens::Replaced(std::wstring_view text) const {
    std::wstring replaced;
    for (;;) {
        const std::size_t begin = text.find(L'%');
        replaced += text.substr(0, begin);
        if (begin == std::wstring_view::npos)
            break;
        const std::size_t end = text.find(L'%', begin + 1);
        if (end == std::wstring_view::npos)
            throw ScriptError(m_line, "a replacement has no closing percent sign");
        replaced += Replacement(text.substr(begin + 1, end - begin - 1));
        text.remove_prefix(end + 1);
    }
    // The registry's functions take texts that end at the first zero.
    if (replaced.find(L'\0') != std::wstring::npos)
        throw ScriptError(m_line, "a text contains a zero character");
    return replaced;
}

std::wstring_view ScriptTokens::Replacement(std::wstring_view name) const {
    if (name.empty())
        return L"%";
    const auto found = m_replacements.find(name);
    if (found == m_replacements.end())
        throw ScriptError(m_line, "a replacement is unknown");
    return found->second;
}

} // namespace server
