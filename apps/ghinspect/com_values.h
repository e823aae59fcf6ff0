// Values of COM that are released at their end.
#pragma once

#include <memory>
#include <string>
#include <utility>

#include <windows.h>

#include <oleauto.h>

namespace inspector {

struct ComReleaser {
    void operator()(IUnknown* object) const noexcept { object->Release(); }
};
template <class Interface>
using ComPointer = std::unique_ptr<Interface, ComReleaser>;

class Variant {
public:
    Variant() noexcept { VariantInit(&m_value); }
    explicit Variant(const std::wstring& text) : Variant() {
        m_value.vt = VT_BSTR;
        m_value.bstrVal = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    }
    explicit Variant(LONG number) noexcept : Variant() {
        m_value.vt = VT_I4;
        m_value.lVal = number;
    }
    explicit Variant(double number) noexcept : Variant() {
        m_value.vt = VT_R8;
        m_value.dblVal = number;
    }
    Variant(Variant&& other) noexcept : m_value(other.m_value) { VariantInit(&other.m_value); }
    Variant& operator=(Variant&& other) noexcept {
        std::swap(m_value, other.m_value);
        return *this;
    }
    ~Variant() { VariantClear(&m_value); }

    VARIANT* operator&() noexcept { return &m_value; }
    const VARIANT& Get() const noexcept { return m_value; }
    bool IsObject() const noexcept { return m_value.vt == VT_DISPATCH; }
    // Null for Nothing.
    IDispatch* Object() const noexcept { return IsObject() ? m_value.pdispVal : nullptr; }

private:
    VARIANT m_value;
};

// The text, which is freed.
inline std::wstring TakeText(BSTR text) {
    const std::wstring copy = text == nullptr ? std::wstring() : std::wstring(text, SysStringLen(text));
    SysFreeString(text);
    return copy;
}

} // namespace inspector
