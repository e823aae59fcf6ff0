// What the runner is told on its command line.
#pragma once

#include <string>

namespace fault_tests {

struct Options {
    bool isShort = false; // the part that goes with every test run
    int times = 3;        // how often each fault happens in each step
    double minutes = 10;  // of writing to the section
    int actions = 10000;  // on the sample host; a fifth of it on other programs
    unsigned seed = 1;
    std::string only;   // steps whose name contains it; empty: all
    std::string output; // file for the tables
};

} // namespace fault_tests
