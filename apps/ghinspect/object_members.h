// The object that a script gets by a call: what its members answer. For a thread that has entered COM; the
// driven program is asked, and may take its time.
#pragma once

#include <string>
#include <vector>

#include "explain/call.h"

namespace inspector {

struct Member {
    // Finder: leads to another object.
    enum class Kind { Value, Action, Put, Finder };

    std::wstring name;
    Kind kind = Kind::Action;
    std::wstring parameters; // their names, with a comma in between
    std::wstring arguments;  // to begin with: the defaults, and something of the right type for the others
    std::wstring help;
    std::wstring value; // of a value: what it answers now
};

struct ObjectReport {
    std::wstring interfaceName;
    std::vector<Member> members; // values, then what does something, then finders
    std::wstring obstacle;       // why there are none
    std::wstring answer;         // where the call ends in a text or number: this
};

// Values are read. Where the call ends in something that is no object, the members are those of the object
// before it.
ObjectReport ReadObject(const explain::Call& call);

// What the member answered, in words.
std::wstring Perform(const explain::Call& call, const Member& member,
                     const std::vector<explain::Argument>& arguments);

// The call up to the first step that does something, as one that selects an item or opens a menu.
explain::Call LookingPart(const explain::Call& call);

// Runs the whole call once. The time that it took, below 0 when it finds nothing.
double Time(const explain::Call& call);

} // namespace inspector
