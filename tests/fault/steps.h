// What scripts do in the tests of this folder: actions on the sample host and on programs that know nothing
// of it, each a setup and the lines that matter.
#pragma once

#include "fault/driven_program.h"
#include "fault/resources.h"

#include <span>
#include <string>
#include <vector>

namespace fault_tests {

struct Step {
    const char* name;
    const char* program;
    const char* setup; // after "host = ghosthand.MainWindow(...)"; repeated before each run of the lines
    const char* lines;
    const char* expected;         // their result
    const char* window = "Frame"; // the sample host's window that goes when a case closes a window
    int askedSeconds = 0;         // how long the lines themselves ask to wait
    int weight = 0;               // how often in the soak, relative to the others
    bool inFaults = false;        // whether each fault happens in the middle of it
};

std::span<const Step> Steps();

// Finds the main window and does the setup.
std::string SetupOf(const Step& step);

// What is wrong with that result of its lines; empty if nothing is.
std::string Mismatch(const Step& step, const std::string& result);

// The global atoms that are there for longer than a step: not those that carry a window's name or a camera.
// These look the same however many times they were forgotten.
std::vector<GlobalAtom> LastingAtoms();

// What a step is followed by when a script or a window went in the middle of it: closes menus, popups and
// dialogs that it may have left, as a user would.
void Settle(const DrivenProgram& program);

} // namespace fault_tests
