// The texts by which windows are searched for: captions, class names, names of programs.
#pragma once

#include <cstddef>
#include <string_view>

#include "hostlink/text_cut.h"

namespace engine {

inline constexpr std::size_t kSearchTextSize = 260; // bytes, terminator included

// Fills a text field; a longer text is cut between two characters. A NUL inside ends the text.
void SetSearchText(char (&field)[kSearchTextSize], std::string_view text,
                   const hostlink::CodePage& codePage) noexcept;

// Whether a window's text is the wanted one, or contains it. Case-sensitive; an empty one is in every text.
bool HasWantedText(const char* text, const char* wanted, bool contains) noexcept;

} // namespace engine
