// Which messages are worth a line of the log, and how they are called.
#pragma once

#include <string>
#include <windows.h>

namespace sample_host {

// The name of a message, "message" when it has none here.
std::string MessageName(UINT message);

// Whether it is a request that controls of the system take.
bool IsControlRequest(UINT message);

bool IsLoggedWhenSent(UINT message);
bool IsLoggedWhenPosted(UINT message);

// The identifiers of the messages that the sample host itself acts on.
struct OwnMessages {
    UINT sync;
    UINT getWindowByName;
    UINT clearLog;
    UINT misbehave;
    UINT ask;
};
const OwnMessages& Messages();

} // namespace sample_host
