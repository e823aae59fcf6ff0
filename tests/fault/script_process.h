// A script in a process of its own, which runs lines (script_lines.h) that this process gives it.
#pragma once

#include "support/program.h"

#include <atomic>
#include <cstdint>
#include <memory>
#include <string>

namespace fault_tests {

// Both processes see it.
struct ScriptChannel {
    char lines[1024];
    char result[512];
    std::atomic<std::uint64_t> callBegan; // tick count in ms; 0 between calls
    char member[64];                      // of the call under way, or of the last one
    std::uint32_t calls;                  // since the process began
    std::uint32_t longestCall;            // of these lines, in ms
    char longestMember[64];
};

class ScriptProcess {
public:
    ScriptProcess();
    ~ScriptProcess();
    ScriptProcess(const ScriptProcess&) = delete;
    ScriptProcess& operator=(const ScriptProcess&) = delete;

    // The variable "ghosthand" is there. Lines of the words "release" alone let go of every object and give
    // what DllCanUnloadNow then answers.
    void Start(const std::string& lines);
    HANDLE Done() const { return m_done; } // set when they have come to their end
    bool Wait(DWORD milliseconds) const { return WaitForSingleObject(m_done, milliseconds) == WAIT_OBJECT_0; }
    const ScriptChannel& Channel() const { return *m_channel; }

    // From now on the call under way counts as if it had just begun.
    void RestartClock();

    // Starts and waits. "hangs in Member" or "the script has ended" when they do not come to their end.
    std::string Run(const std::string& lines, DWORD milliseconds);

    HANDLE Process() const { return m_program->Process(); }
    DWORD ProcessId() const { return m_program->ProcessId(); }
    bool HasEnded() const { return m_program->WaitForEnd(0); }
    void Kill();

private:
    HANDLE m_mapping;
    ScriptChannel* m_channel;
    HANDLE m_start;
    HANDLE m_done;
    std::unique_ptr<support::Program> m_program;
};

// The other side: what a process does that was started with the word "script" and a name. Returns its exit
// code.
int RunScriptProcess(const std::string& name);

} // namespace fault_tests
