// Owned references and strings of COM.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <stdexcept>
#include <string>
#include <utility>

namespace support {

// A reference that is released at the end.
template <class Interface>
class ComPointer {
public:
    ComPointer() = default;
    explicit ComPointer(Interface* owned) noexcept : m_pointer(owned) {}
    ComPointer(ComPointer&& other) noexcept : m_pointer(std::exchange(other.m_pointer, nullptr)) {}
    ComPointer& operator=(ComPointer&& other) noexcept {
        std::swap(m_pointer, other.m_pointer);
        return *this;
    }
    ~ComPointer() { Reset(); }

    void Reset() noexcept {
        if (m_pointer != nullptr)
            std::exchange(m_pointer, nullptr)->Release();
    }
    // Where a function writes a new reference.
    Interface** Receive() noexcept {
        Reset();
        return &m_pointer;
    }
    void** ReceiveVoid() noexcept { return reinterpret_cast<void**>(Receive()); }

    Interface* Get() const noexcept { return m_pointer; }
    Interface* operator->() const noexcept { return m_pointer; }
    Interface& operator*() const noexcept { return *m_pointer; }
    explicit operator bool() const noexcept { return m_pointer != nullptr; }

private:
    Interface* m_pointer = nullptr;
};

// Throws std::runtime_error for a failure.
inline void Require(HRESULT result, const char* what) {
    if (FAILED(result)) {
        char code[16];
        wsprintfA(code, "0x%08X", static_cast<unsigned>(result));
        throw std::runtime_error(std::string(what) + " failed: " + code);
    }
}

// The text of a BSTR, which is freed. ASCII only.
inline std::string TakeText(BSTR text) {
    std::string result(text, text + SysStringLen(text));
    SysFreeString(text);
    return result;
}

} // namespace support
