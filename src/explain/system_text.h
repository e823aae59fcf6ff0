// What the system says in words, in UTF-8.
#pragma once

#include <string>

#include <windows.h>

namespace explain {

// The system's sentence for an error, without its end of line; empty where it has none.
std::string SystemText(DWORD error);

// The local time with its distance to UTC, as ISO 8601 writes it: "2026-11-25T20:14:02.123+01:00".
std::string LocalTimeText();

} // namespace explain
