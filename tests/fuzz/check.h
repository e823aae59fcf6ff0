// How a fuzz target says that a property does not hold.
#pragma once

#include <cstdio>
#include <cstdlib>

// The fuzzer keeps the input that leads here and prints the stack.
inline void Check(bool holds, const char* property) {
    if (!holds) {
        std::fprintf(stderr, "Does not hold: %s\n", property);
        std::abort();
    }
}
