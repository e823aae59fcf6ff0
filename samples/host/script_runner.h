// Runs a script on a thread of its own inside the host: some things, menu handles under Wine among them,
// are good in their own process only.
#pragma once

#include <future>
#include <string>

namespace sample_host {

struct ScriptOptions {
    std::string file;       // .js is JScript, everything else VBScript
    std::string outputFile; // gets the script's output, as standard output does; empty: none
    bool keepOpen = false;  // the host goes on after the script
};

// The exit code of a script is what it gave to Quit, otherwise 0, or 1 after an error (which is written
// to the output as file(line): text).
class ScriptThread {
public:
    // Starts the script. When it has ended it ends the host, unless the options say otherwise; a host
    // whose GUI thread does not end within 10 s is ended with the whole process.
    explicit ScriptThread(const ScriptOptions& options);

    // To be called when the message loop has ended: waits for the script, which may still have
    // something to do, and returns its exit code.
    int Wait();

private:
    std::promise<void> m_loopEnded;
    std::future<int> m_exitCode;
};

} // namespace sample_host
