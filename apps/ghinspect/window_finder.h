// Looks for windows by what is written on them.
#pragma once

#include <optional>
#include <string>

#include "ghinspect/window_rows.h"

namespace inspector {

struct Found {
    std::optional<Target> target;
    int ordinal = 0; // of the matches, from 1
    int count = 0;   // 0: there is none
};

// The next match behind `from` in the order of the tree, or the one before it; at the end it begins anew. A
// window matches by its class, its caption (in any case) or its id, a program by its name.
Found FindNext(const std::wstring& text, const Target& from, bool backwards, bool withHidden);

} // namespace inspector
