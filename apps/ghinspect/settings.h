// What the inspector remembers from one run to the next, for the present user.
#pragma once

#include "explain/call_text.h"

namespace inspector {

struct Settings {
    explain::Language language = explain::Language::VBScript;
    bool showHidden = false;
};

Settings LoadSettings();
// Without effect where the registry cannot be written.
void SaveSettings(const Settings& settings);

} // namespace inspector
