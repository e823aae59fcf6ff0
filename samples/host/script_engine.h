// One run of a script in the system's own script engines.
#pragma once

#include <functional>
#include <string>

namespace sample_host {

// Runs the text to its end on the calling thread, which has COM initialised. Returns the exit code.
// `name` is what error lines begin with.
int RunScriptText(const wchar_t* language, const std::string& name, const std::wstring& text,
                  const std::function<void(const std::string&)>& print);

} // namespace sample_host
