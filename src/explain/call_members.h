// The members of a script's objects that lead to windows, and the searches that they run.
#pragma once

#include <span>
#include <string_view>

#include <windows.h>

#include "explain/call.h"

namespace explain {

// A test of a window class, as the search makes it.
struct ClassTest {
    std::string_view name;
    bool contains = false;
};

// Which arguments a member takes, in their order; those without a default value are always written.
enum class Shape { None, IdFlags, CaptionIdFlags, RequiredCaptionIdFlags, CaptionClassIdFlags };

// A member that finds a control by its kind below a window.
struct FindingMember {
    std::string_view name;
    std::string_view kind; // of the object that it answers with
    Shape shape;
    std::span<const ClassTest> classes; // tried one after the other; empty: any class
    bool asks = false;                  // each window that the other tests leave, whether it is of the kind
};

// The members that answer with objects of the kind, null if none does.
const FindingMember* MemberForKind(std::string_view kind) noexcept;
// By its name; null for a member that finds no control.
const FindingMember* MemberByName(std::string_view name) noexcept;
// The kind of the object that any member of a call answers with.
std::string_view KindOfMember(std::string_view name) noexcept;

// What the member finds from a window, at once; `from` means nothing to MainWindow. Null for a member that
// leads to no window.
HWND FollowStep(HWND from, const Step& step);

} // namespace explain
