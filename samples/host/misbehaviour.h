// Acts out what host_misbehaviour.h lists.
#pragma once

#include "host_misbehaviour.h"

#include <optional>
#include <string_view>
#include <windows.h>

namespace sample_host {

struct MisbehaviourOrder {
    Misbehaviour what = Misbehaviour::Busy;
    int number = 0;    // ms, a message number or AtMessage()
    int controlId = 0; // 0: the frame
};

// Reads NAME[=NUMBER][@CONTROL ID], for instance "busy=2000" or "disable=3000@1001".
std::optional<MisbehaviourOrder> ParseMisbehaviour(std::string_view text);

// Takes the order for that window; false for an unknown one.
bool Misbehave(HWND window, Misbehaviour what, LPARAM number);

// To be called with every message that a window of the host gets, before the window acts on it. May
// destroy windows, this one too, or end the process.
void MisbehaveBefore(const MSG& message);

// To be called with every message that the log has recorded. May hold the thread, destroy windows or raise an
// exception.
void MisbehaveInMessage(const MSG& message);

// To be called with a message that was sent, before it is answered.
void PumpBeforeAnswer(const MSG& message);

// To be called when a window is gone.
void ForgetMisbehaviour(HWND window);

} // namespace sample_host
