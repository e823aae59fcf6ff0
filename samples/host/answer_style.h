// How a window answers the requests of the contract: well, in the other way that the contract allows, or
// in one of the ways that a program gets wrong. The controls themselves know nothing of it.
#pragma once

#include "host_misbehaviour.h"

#include <functional>
#include <windows.h>

namespace sample_host {

// False for what is no way of answering.
bool SetAnswerStyle(HWND window, Misbehaviour style);
void ForgetAnswerStyle(HWND window);

// The answer to a message in the window's style; `proper` has the window itself answer.
LRESULT AnswerInStyle(const MSG& message, const std::function<LRESULT()>& proper);

} // namespace sample_host
