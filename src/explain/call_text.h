// A call chain in the languages that testers write.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "explain/call.h"

namespace explain {

enum class Language { VBScript, JScript, PowerShell, Python, CSharp };

inline constexpr Language kLanguages[] = {Language::VBScript, Language::JScript, Language::PowerShell,
                                          Language::Python, Language::CSharp};

// As users write it: "VBScript", "JScript", "PowerShell", "Python", "C#".
std::string_view LanguageName(Language language) noexcept;
// Ignores case; "csharp" counts as C#. None for anything else.
std::optional<Language> LanguageOf(std::string_view name) noexcept;

// The chain as one expression of the language, which begins with `entry`, the variable that holds the entry
// object, in the language's way of naming a variable. Quotes, control characters and characters outside
// ASCII are written so that the script's own text is exactly the argument.
std::string CallText(const Call& call, Language language, std::string_view entry = "gh");
// The same for one argument.
std::string ArgumentText(const Argument& argument, Language language);

} // namespace explain
