// A call chain of a script as a value: how an object is reached from the entry object. Texts are UTF-8.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace explain {

// Search flags with the occurrence number in the high half; written in hexadecimal.
struct Flags {
    std::uint32_t value;
    bool operator==(const Flags&) const = default;
};

using Argument = std::variant<std::string, std::int64_t, Flags>;

// One member with its arguments in the order of its parameters. What stands behind the last one is left to
// its default.
struct Step {
    std::string member;
    std::vector<Argument> arguments;
    bool operator==(const Step&) const = default;
};

// Begins with MainWindow; empty if there is no way to the object.
using Call = std::vector<Step>;

} // namespace explain
