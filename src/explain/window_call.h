// The kind of a window as the engine sees it, and the shortest call of a script that reaches it.
#pragma once

#include <memory>
#include <string>
#include <string_view>

#include <windows.h>

#include "explain/call.h"

namespace explain {

// What a script has at the end of the call.
struct WindowCall {
    std::string kind;        // the automation class without its prefix: "TreeControl", "BaseWindow" ...
    Call call;               // empty if the window cannot be reached; `obstacle` says why
    double milliseconds = 0; // the time that the searches of the call took when it was verified
    bool isVerified = false; // false for a call that a CallFinder only thought through
    std::string obstacle;
};

// The automation class for the window, by the engine's own tests: "BaseWindow", "CADTree", "CADView",
// "CheckBox", "ComboBox", "ControlBar", "GXGrid", "GroupCombo", "ListBox", "ListView", "OpenSaveDialog",
// "OptionTree", "RibCustomisationWidget", "TabControl", "TrackBar" or "TreeControl". Asks the window's
// program, if that answers (a program that hangs is not asked).
std::string_view KindOf(HWND window);
// The same where it is known whether the window's thread answers.
std::string_view KindOf(HWND window, bool mayAsk);

// Each step was run with the engine's own search and found the window. Where several calls reach it, the one
// with the fewest steps, then the shortest in VBScript; where windows look alike, the nearest parent that
// tells them apart or an occurrence number.
WindowCall CallTo(HWND window);

// Runs the call's searches once, without waiting. Null when a step finds nothing or leads to no window.
HWND Follow(const Call& call);

// Calls to many windows, each as CallTo() gives it. What it has learned of the desktop it keeps: to be used
// at once and thrown away. When the searches have taken `searchSeconds` together, further calls are thought
// through, but not run.
class CallFinder {
public:
    explicit CallFinder(double searchSeconds = 60);
    ~CallFinder();
    CallFinder(const CallFinder&) = delete;
    CallFinder& operator=(const CallFinder&) = delete;

    WindowCall CallTo(HWND window);
    // The kind as KindOf() gives it.
    std::string_view Kind(HWND window);

private:
    class Planner;
    std::unique_ptr<Planner> m_planner;
};

} // namespace explain
