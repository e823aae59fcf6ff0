#include "fault/script_lines.h"

#include <cctype>
#include <cstdlib>

namespace fault_tests {

namespace {

using support::Argument;
using support::Variant;

class Reader {
public:
    explicit Reader(std::string_view text) : m_text(text) {}

    bool AtEnd() {
        while (!m_text.empty() && m_text.front() == ' ')
            m_text.remove_prefix(1);
        return m_text.empty();
    }
    bool Take(char character) {
        if (AtEnd() || m_text.front() != character)
            return false;
        m_text.remove_prefix(1);
        return true;
    }
    std::string Word() {
        AtEnd();
        std::size_t length = 0;
        while (length < m_text.size() && (std::isalnum(static_cast<unsigned char>(m_text[length])) ||
                                          m_text[length] == '_' || m_text[length] == '-'))
            ++length;
        return Cut(length);
    }
    Argument Literal() {
        if (Take('\'')) {
            const std::string text = Cut(m_text.find('\''));
            Take('\'');
            return {Variant(std::wstring(text.begin(), text.end()).c_str())};
        }
        const std::string word = Word();
        if (word == "True" || word == "False")
            return {Variant(word == "True")};
        return {Variant(static_cast<LONG>(std::strtol(word.c_str(), nullptr, 0)))};
    }
    std::vector<Argument> Arguments() {
        std::vector<Argument> arguments;
        if (!Take('('))
            return arguments;
        while (!AtEnd() && !Take(')')) {
            arguments.push_back(Literal());
            Take(',');
        }
        return arguments;
    }

private:
    std::string Cut(std::size_t length) {
        const std::string part(m_text.substr(0, length));
        m_text.remove_prefix(part.size());
        return part;
    }

    std::string_view m_text;
};

std::string TextOf(Variant& value) {
    switch (value.Type()) {
    case VT_EMPTY:
        return "";
    case VT_BOOL:
        return value.Bool() ? "True" : "False";
    case VT_DISPATCH:
        return value.Object() != nullptr ? "object" : "Nothing";
    case VT_BSTR: {
        std::string text;
        for (const wchar_t character : value.Text())
            text += character < 0x80 ? static_cast<char>(character) : '?';
        return text;
    }
    default:
        return std::to_string(value.Long());
    }
}

support::ComPointer<IDispatch> Share(IDispatch* object) {
    if (object != nullptr)
        object->AddRef();
    return support::ComPointer<IDispatch>(object);
}

} // namespace

void ScriptLines::Define(const std::string& name, support::ComPointer<IDispatch> object) {
    m_variables[name] = std::move(object);
}

Variant ScriptLines::Call(IDispatch& object, const std::string& member, std::vector<Argument> arguments,
                          WORD flags) {
    Variant result;
    m_watch(member);
    const HRESULT code = support::CallByName(object, std::wstring(member.begin(), member.end()),
                                             std::move(arguments), result, flags);
    m_watch("");
    if (FAILED(code)) {
        char text[16];
        wsprintfA(text, "%08X", static_cast<unsigned>(code));
        throw Stop{member + ": " + text};
    }
    return result;
}

void ScriptLines::RunLine(std::string_view line) {
    Reader reader(line);
    const std::string first = reader.Word();
    std::string target;
    std::string name = first;
    if (reader.Take('=')) {
        target = first;
        name = reader.Word();
    }
    const auto found = m_variables.find(name);
    auto object = Share(found != m_variables.end() ? found->second.Get() : nullptr);
    while (reader.Take('.')) {
        if (!object)
            throw Stop{"Nothing"};
        const std::string member = reader.Word();
        auto arguments = reader.Arguments();
        const bool puts = arguments.empty() && target.empty() && reader.Take('=');
        if (puts)
            arguments.push_back(reader.Literal());
        Variant result = Call(*object, member, std::move(arguments),
                              puts ? DISPATCH_PROPERTYPUT : DISPATCH_METHOD | DISPATCH_PROPERTYGET);
        m_result = TextOf(result);
        object = Share(result.Type() == VT_DISPATCH ? result.Object() : nullptr);
    }
    if (!target.empty())
        m_variables[target] = std::move(object);
}

std::string ScriptLines::Run(std::string_view lines) {
    m_result.clear();
    try {
        while (!lines.empty()) {
            const std::size_t length = lines.find(';');
            RunLine(lines.substr(0, length));
            lines.remove_prefix(length == lines.npos ? lines.size() : length + 1);
        }
    } catch (const Stop& stop) {
        return stop.reason;
    }
    return m_result;
}

} // namespace fault_tests
