// What the sample host can be told when it is started.
#pragma once

#include "misbehaviour.h"
#include "script_runner.h"

#include <optional>
#include <string>
#include <vector>
#include <windows.h>

namespace sample_host {

inline constexpr char kUsage[] =
    "sample_host [options]\n"
    "  --page NAME          opens a page at the start; may be given several times\n"
    "  --log FILE           writes the messages that its windows get to FILE, line by line\n"
    "  --journal FILE       writes what happens to the window of the page \"peers\" to FILE\n"
    "  --misbehave NAME[=NUMBER][@CONTROL ID]\n"
    "                       misbehaves, at once or when the control exists (host_misbehaviour.h)\n"
    "  --many-children N    opens a window with N descendants\n"
    "  --frame-class NAME   the class name of the main window\n"
    "  --script FILE        runs a script (VBScript, or JScript in a .js file) inside the host, then ends\n"
    "                       with the script's exit code\n"
    "  --output FILE        also writes the script's output to FILE\n"
    "  --keep-open          goes on when the script has ended\n"
    "  --maximized          maximises the main window\n"
    "  --dpi unaware|system|per-monitor\n"
    "                       its DPI awareness; its layout is the same number of pixels in each\n";

struct Options {
    std::vector<std::string> pages;
    std::string logFile;
    std::string journalFile;
    std::vector<MisbehaviourOrder> misbehaviours;
    int manyChildren = 0;
    std::string frameClass;
    ScriptOptions script; // without a file: none
    bool maximized = false;
    DPI_AWARENESS_CONTEXT dpiAwareness = nullptr; // null: what the system gives it
};

// No value, and a line for the user in `error`, when the arguments make no sense.
std::optional<Options> ParseCommandLine(int count, char** arguments, std::string& error);

} // namespace sample_host
