// Tells a listener of each call of a member, with its arguments and its result.
#pragma once

#include <concepts>
#include <initializer_list>
#include <type_traits>
#include <typeinfo>

#include "automation/interfaces.h"
#include "engine/diagnostics.h"

namespace automation {

// One argument of a call, or the place for its result. Refers to the caller's texts and places; made for
// every call, so it costs no more than two words.
class Argument {
public:
    Argument() noexcept : m_kind(Kind::None), m_number(0) {}
    template <std::integral Number>
    Argument(Number number) noexcept : m_kind(Kind::Number), m_number(number) {}
    template <class Enumeration>
    requires std::is_enum_v<Enumeration> Argument(Enumeration value)
    noexcept : Argument(static_cast<int>(value)) {}
    Argument(VARIANT_BOOL value) noexcept : m_kind(Kind::Bool), m_number(value) {}
    Argument(BSTR text) noexcept : m_kind(Kind::Text), m_address(text) {}

    Argument(VARIANT_BOOL* result) noexcept : m_kind(Kind::BoolResult), m_address(result) {}
    Argument(LONG* result) noexcept : m_kind(Kind::NumberResult), m_address(result) {}
    Argument(int* result) noexcept : m_kind(Kind::NumberResult), m_address(result) {}
    Argument(ghCheckBoxState* result) noexcept : m_kind(Kind::NumberResult), m_address(result) {}
    Argument(BSTR* result) noexcept : m_kind(Kind::TextResult), m_address(result) {}
    template <std::derived_from<IUnknown> Interface>
    Argument(Interface** result) noexcept : m_kind(Kind::ObjectResult), m_address(result) {}

    bool IsResult() const noexcept { return m_kind >= Kind::BoolResult; }
    engine::diagnostics::Value Value() const;
    // Of a result, after the call.
    void Read(engine::diagnostics::CallResult& result) const;

private:
    enum class Kind { None, Number, Bool, Text, BoolResult, NumberResult, TextResult, ObjectResult };

    Kind m_kind;
    union {
        std::int64_t m_number;
        const void* m_address;
    };
};

using Arguments = std::initializer_list<Argument>;

// The object and the member of a call.
struct CallTarget {
    const void* object;
    const std::type_info& objectClass;
    const GUID& interfaceId;
    const char* member;
};

// A call from its beginning to its end. Its arguments must outlive it; the place for the result is one of
// them or stands apart.
class CallReport {
public:
    CallReport(const CallTarget& target, HWND window, Arguments arguments, Argument result = {}) noexcept
        : m_listener(engine::diagnostics::CurrentListener()), m_arguments(arguments), m_result(result) {
        if (m_listener != nullptr) {
            Begin(target, window);
        }
    }
    CallReport(const CallReport&) = delete;
    CallReport& operator=(const CallReport&) = delete;

    // Hands the call's result through.
    HRESULT Ended(HRESULT result) noexcept {
        if (m_listener != nullptr) {
            End(result);
        }
        return result;
    }

private:
    void Begin(const CallTarget& target, HWND window) noexcept;
    void End(HRESULT result) noexcept;
    engine::diagnostics::CallResult Read(HRESULT result) const;

    engine::diagnostics::Listener* m_listener;
    Arguments m_arguments;
    Argument m_result;
};

} // namespace automation
