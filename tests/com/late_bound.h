// Calls by name, as a script makes them.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>
#include <utility>
#include <vector>

#include "com/com_pointer.h"

namespace support {

// A VARIANT that is cleared at the end.
class Variant {
public:
    Variant() noexcept { VariantInit(&m_value); }
    explicit Variant(const wchar_t* text) : Variant() {
        V_VT(&m_value) = VT_BSTR;
        V_BSTR(&m_value) = SysAllocString(text);
    }
    explicit Variant(LONG number) : Variant() {
        V_VT(&m_value) = VT_I4;
        V_I4(&m_value) = number;
    }
    explicit Variant(bool value) : Variant() {
        V_VT(&m_value) = VT_BOOL;
        V_BOOL(&m_value) = value ? VARIANT_TRUE : VARIANT_FALSE;
    }
    Variant(Variant&& other) noexcept : m_value(other.m_value) { VariantInit(&other.m_value); }
    Variant& operator=(Variant&&) = delete;
    ~Variant() { VariantClear(&m_value); }

    VARIANT& Value() noexcept { return m_value; }
    VARTYPE Type() const noexcept { return V_VT(&m_value); }
    LONG Long() const noexcept { return V_I4(&m_value); }
    bool Bool() const noexcept { return V_BOOL(&m_value) == VARIANT_TRUE; }
    std::wstring Text() const { return {V_BSTR(&m_value), SysStringLen(V_BSTR(&m_value))}; }
    // Borrowed; null for Nothing.
    IDispatch* Object() const noexcept { return V_DISPATCH(&m_value); }

private:
    VARIANT m_value;
};

struct Argument {
    Variant value;
    const wchar_t* name = nullptr; // null: by position
};

// The arguments as a script writes them: those by name come last.
template <class... Values>
std::vector<Argument> Arguments(Values&&... values) {
    std::vector<Argument> arguments;
    (arguments.push_back({Variant(std::forward<Values>(values))}), ...);
    return arguments;
}

// A member by name. DISPATCH_METHOD | DISPATCH_PROPERTYGET is how scripts ask.
inline HRESULT CallByName(IDispatch& object, std::wstring name, std::vector<Argument> arguments,
                          Variant& result, WORD flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET) {
    std::vector<LPOLESTR> names = {name.data()};
    std::vector<std::wstring> storage;
    storage.reserve(arguments.size());
    for (const Argument& argument : arguments) {
        if (argument.name != nullptr) {
            names.push_back(storage.emplace_back(argument.name).data());
        }
    }
    std::vector<DISPID> ids(names.size());
    if (const HRESULT found =
            object.GetIDsOfNames(IID_NULL, names.data(), static_cast<UINT>(names.size()), 0, ids.data());
        FAILED(found)) {
        return found;
    }
    // Both lists run backwards; those by name come first.
    std::vector<VARIANT> values;
    for (auto argument = arguments.rbegin(); argument != arguments.rend(); ++argument) {
        values.push_back(argument->value.Value());
    }
    std::vector<DISPID> named(ids.rbegin(), ids.rend() - 1);
    if (flags == DISPATCH_PROPERTYPUT) {
        named = {DISPID_PROPERTYPUT};
    }
    DISPPARAMS parameters = {values.data(), named.data(), static_cast<UINT>(values.size()),
                             static_cast<UINT>(named.size())};
    return object.Invoke(ids[0], IID_NULL, 0, flags, &parameters,
                         flags == DISPATCH_PROPERTYPUT ? nullptr : &result.Value(), nullptr, nullptr);
}

// The result of a member that must succeed.
template <class... Values>
Variant Ask(IDispatch& object, const wchar_t* name, Values&&... values) {
    Variant result;
    Require(CallByName(object, name, Arguments(std::forward<Values>(values)...), result), "call by name");
    return result;
}

template <class Value>
void PutByName(IDispatch& object, const wchar_t* name, Value value) {
    Variant unused;
    Require(CallByName(object, name, Arguments(value), unused, DISPATCH_PROPERTYPUT), "put by name");
}

} // namespace support
