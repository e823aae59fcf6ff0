// Looks for windows by what is written on them.
#pragma once

#include <optional>
#include <string>

#include "explain/call_text.h"
#include "ghinspect/window_rows.h"

namespace inspector {

struct Found {
    std::optional<Target> target;
    int ordinal = 0; // of the matches, from 1
    int count = 0;   // 0: there is none
};

struct Search {
    std::wstring text;
    explain::Language language = explain::Language::VBScript; // of calls
    bool isBackwards = false;
    bool withHidden = false;
};

// The next match behind `from` in the order of the tree, or the one before it; at the end it begins anew. A
// window matches by its class, its caption (in any case) or its id, a program by its name; a text with a
// parenthesis is looked for in the calls to the windows, too, which takes longer.
Found FindNext(const Search& search, const Target& from);

} // namespace inspector
