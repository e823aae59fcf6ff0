// Questions about what is selected, for the worker's thread.
#pragma once

#include <optional>
#include <string>

#include "explain/item_at_point.h"
#include "explain/window_call.h"
#include "ghinspect/window_rows.h"

namespace inspector {

struct LookedUp {
    std::wstring kind;
    explain::Call call;
    std::wstring verdict; // the kind and the time, or why there is no call
};

// `program`: null where nothing is known of it.
LookedUp LookUpWindow(HWND window, const std::optional<explain::ItemAtPoint>& item,
                      const explain::ProgramFacts* program);
LookedUp LookUpProgram(const explain::ProgramFacts& program);

// What lies at a point of the screen; windows of this program count for nothing.
struct Picked {
    Target target;
    std::optional<explain::ItemAtPoint> item;
    RECT frame = {};
};
std::optional<Picked> PickAt(POINT screenPoint);

// Where a call leads.
struct Followed {
    std::optional<Target> target; // as far as it finds something
    std::wstring message;
};
Followed FollowCall(const explain::Call& call);

} // namespace inspector
