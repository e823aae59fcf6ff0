#include "self_report.h"

#include <atomic>
#include <initializer_list>

namespace sample_host {
namespace {

std::atomic<LRESULT> violations{0};
std::atomic<LRESULT> lastViolation{0}; // an address

LONG CALLBACK OnException(EXCEPTION_POINTERS* exception) {
    if (exception->ExceptionRecord->ExceptionCode == EXCEPTION_ACCESS_VIOLATION) {
        lastViolation = reinterpret_cast<LRESULT>(exception->ExceptionRecord->ExceptionAddress);
        ++violations;
    }
    return EXCEPTION_CONTINUE_SEARCH;
}

LRESULT HeldKeys() {
    LRESULT held = 0;
    LRESULT bit = 1;
    for (const int key : {VK_SHIFT, VK_CONTROL, VK_MENU, VK_LBUTTON, VK_RBUTTON, VK_MBUTTON}) {
        held |= GetKeyState(key) < 0 ? bit : 0;
        bit <<= 1;
    }
    return held;
}

} // namespace

void CountAccessViolations() {
    AddVectoredExceptionHandler(TRUE, OnException);
}

LRESULT Answer(Question question) {
    switch (question) {
    case Question::HeldKeys:
        return HeldKeys();
    case Question::AccessViolations:
        return violations;
    case Question::LastViolation:
        return lastViolation;
    }
    return 0;
}

} // namespace sample_host
