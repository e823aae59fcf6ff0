// The ways in which a member's arguments can tell a window, and the steps that they make.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "explain/call.h"
#include "explain/seen_windows.h"

namespace explain {

inline constexpr std::size_t kLargestOccurrence = 0xFFFF;

// The part of a class name that stays the same from one run of the program to the next.
std::string_view StablePart(std::string_view className) noexcept;
// The window's caption as a script can write it, in the system code page; empty if it has none, or one that
// the code page cannot express or a search does not read to its end.
std::string WritableCaption(const SeenWindow& window);
bool IsMdiChild(HWND window) noexcept;

// Arguments at the end that have their default value are left out, but `required` ones stay.
Step MakeStep(std::string_view member, std::vector<Argument> arguments, std::size_t required);
// An occurrence of 0 is left out.
Step StepFor(const Wanted& wanted, std::size_t occurrence);

// The most stable first: nothing but the kind where that needs no argument at all, then the id, the caption,
// the class.
std::vector<Wanted> WaysToWant(const FindingMember& member, const SeenWindow& window, bool anyDescendant,
                               bool includeHidden);

} // namespace explain
