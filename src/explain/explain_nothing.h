// Why a call of a script came to nothing: a search that found no window, an item that is not there, an action
// that was not done.
#pragma once

#include <span>
#include <string>
#include <vector>

#include <windows.h>

#include "engine/window_search.h"
#include "explain/call.h"
#include "explain/nearest_misses.h"

namespace explain {

struct FailedCall {
    std::string member;                               // as the interface definition names it: "ItemByPath"
    std::string kind;                                 // of the object, as WindowCall names it: "TreeControl"
    HWND window = nullptr;                            // of the object; null for the entry object
    std::vector<Argument> arguments;                  // those that were given, in the order of the parameters
    std::span<const engine::WindowCriteria> searches; // that found nothing, one after the other
    Call reached; // how a script reached the object; empty where that is not known, and for the entry object
};

// Texts are UTF-8; each may be empty where there is nothing to say.
struct Explanation {
    std::string
        wanted; // "a window of a class that contains 'Button', with id 8, directly below dialog 'Find'"
    std::string reason;       // what does not lie with a single window or item: "the program does not answer"
    std::vector<Miss> misses; // the nearest first
    std::string line;         // the call in VBScript that would have worked
    RECT rectangle = {};      // what to frame, in screen coordinates, pixels
};

// Takes at most about 1.5 seconds. Only reads: nothing is expanded, selected or brought to the front, and a
// program that does not answer is asked nothing.
Explanation ExplainNothing(const FailedCall& call);

} // namespace explain
