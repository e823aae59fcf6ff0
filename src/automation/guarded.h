// The boundary between COM and the engine.
#pragma once

#include <exception>
#include <new>
#include <type_traits>

#include "automation/interfaces.h"

namespace automation {

// Makes `text` the calling thread's error information (Err.Description in a script).
void SetErrorText(const char* text) noexcept;
void ClearErrorText() noexcept;

// For a member that fails by itself: a caller must not read an earlier member's text.
inline HRESULT FailWithoutText(HRESULT result) noexcept {
    ClearErrorText();
    return result;
}

// Runs the body of a member. No exception leaves it: out of memory becomes E_OUTOFMEMORY, anything else
// E_FAIL with its text. A body without a result succeeds with S_OK.
template <class Body>
HRESULT Guarded(Body body) noexcept {
    try {
        HRESULT result = S_OK;
        if constexpr (std::is_void_v<decltype(body())>) {
            body();
        } else {
            result = body();
        }
        return FAILED(result) ? FailWithoutText(result) : result;
    } catch (const std::bad_alloc&) {
        return FailWithoutText(E_OUTOFMEMORY);
    } catch (const std::exception& error) {
        SetErrorText(error.what());
        return E_FAIL;
    } catch (...) {
        return FailWithoutText(E_FAIL);
    }
}

} // namespace automation
