#include "automation/call_report.h"

#include <cstring>
#include <exception>

namespace automation {
namespace {

// Not all compilers leave the class out of a function's name.
const char* WithoutClass(const char* member) noexcept {
    const char* const colon = std::strrchr(member, ':');
    return colon == nullptr ? member : colon + 1;
}

} // namespace

engine::diagnostics::Value Argument::Value() const {
    switch (m_kind) {
    case Kind::Number:
        return m_number;
    case Kind::Bool:
        return m_number != VARIANT_FALSE;
    case Kind::Text: {
        const auto text = static_cast<const wchar_t*>(m_address);
        return text == nullptr ? std::wstring() : std::wstring(text);
    }
    default:
        return {};
    }
}

void Argument::Read(engine::diagnostics::CallResult& result) const {
    if (m_address == nullptr) {
        return;
    }
    switch (m_kind) {
    case Kind::BoolResult:
        result.value = *static_cast<const VARIANT_BOOL*>(m_address) != VARIANT_FALSE;
        break;
    case Kind::NumberResult:
        static_assert(sizeof(LONG) == sizeof(int) && sizeof(ghCheckBoxState) == sizeof(int));
        result.value = std::int64_t{*static_cast<const LONG*>(m_address)};
        break;
    case Kind::TextResult:
        if (const BSTR text = *static_cast<const BSTR*>(m_address)) {
            result.value = std::wstring(text, SysStringLen(text));
        }
        break;
    case Kind::ObjectResult:
        result.givesObject = true;
        result.object = *static_cast<void* const*>(m_address);
        break;
    default:
        break;
    }
}

// Without memory for the description, the call takes place untold.
void CallReport::Begin(const CallTarget& target, HWND window) noexcept {
    try {
        std::vector<engine::diagnostics::Value> values;
        for (const Argument& argument : m_arguments) {
            if (!argument.IsResult()) {
                values.push_back(argument.Value());
            }
        }
        m_listener->CallBegins({target.object, target.objectClass.name(), &target.interfaceId,
                                WithoutClass(target.member), window, std::move(values)});
    } catch (const std::exception&) {
        m_listener = nullptr;
    }
}

engine::diagnostics::CallResult CallReport::Read(HRESULT result) const {
    engine::diagnostics::CallResult ended = {result, {}, false, nullptr};
    if (SUCCEEDED(result)) {
        for (const Argument& argument : m_arguments) {
            argument.Read(ended);
        }
        m_result.Read(ended);
    }
    return ended;
}

void CallReport::End(HRESULT result) noexcept {
    try {
        m_listener->CallEnds(Read(result));
    } catch (const std::exception&) {
        m_listener->CallEnds({result, {}, false, nullptr}); // no memory for the value
    }
}

} // namespace automation
