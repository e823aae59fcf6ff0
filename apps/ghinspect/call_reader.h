// A call that somebody wrote or copied, back into its steps.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "explain/call.h"
#include "explain/call_text.h"

namespace inspector {

// Whether the text is meant as a call and not as words to look for.
bool LooksLikeCall(std::string_view text);

// Understands what explain::CallText writes in the language, and the sums of flags that people write in its
// place; what stands before MainWindow is skipped. None when there is something else in it. UTF-8.
std::optional<explain::Call> ReadCall(std::string_view text, explain::Language language);

// Arguments between commas: texts, numbers, True and False (-1 and 0). None when one is neither.
std::optional<std::vector<explain::Argument>> ReadArguments(std::string_view text,
                                                            explain::Language language);

} // namespace inspector
