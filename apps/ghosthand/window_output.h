// Windows and calls as the verbs write them: a line for the eye, members of an object for other tools.
#pragma once

#include <string>
#include <string_view>

#include "explain/call_text.h"
#include "explain/json_writer.h"
#include "explain/window_call.h"
#include "explain/window_facts.h"

namespace apps {

// Control characters would break the lines and the terminal.
std::string OnOneLine(const std::string& text);
std::string WindowLine(const explain::WindowFacts& facts, std::string_view kind);
// The call with the time that it took, or what keeps scripts from the window.
std::string CallLine(const explain::WindowCall& found, explain::Language language);

void WriteRectangle(explain::JsonWriter& json, const RECT& rectangle);
// The members of the window's object.
void WriteFacts(explain::JsonWriter& json, const explain::WindowFacts& facts, std::string_view kind);
// The member "call", null with an "obstacle" where there is no way.
void WriteCall(explain::JsonWriter& json, const explain::WindowCall& found, explain::Language language);

} // namespace apps
