// The program that a script drives, and what is done to it.
#pragma once

#include "support/program.h"
#include "support/sample_host.h"

#include <memory>
#include <string>

namespace fault_tests {

class DrivenProgram {
public:
    // "sample_host", which opens the pages that the tables need, or the name of another program. Waits until
    // its main window answers; throws std::runtime_error when it does not.
    explicit DrivenProgram(const std::string& name);
    ~DrivenProgram();
    DrivenProgram(const DrivenProgram&) = delete;
    DrivenProgram& operator=(const DrivenProgram&) = delete;

    const std::string& Name() const { return m_name; }
    HANDLE Process() const { return m_process; }
    DWORD ProcessId() const { return GetProcessId(m_process); }
    DWORD ThreadId() const { return GetWindowThreadProcessId(m_frame, nullptr); }
    HWND Frame() const { return m_frame; }
    bool HasEnded() const { return WaitForSingleObject(m_process, 0) == WAIT_OBJECT_0; }
    // Whether its GUI thread takes a message within some seconds.
    bool Answers() const;

    void Kill();
    void Suspend() const;
    void Resume() const;

    // Of the sample host only.
    bool IsSampleHost() const { return m_sampleHost != nullptr; }
    const sample_host::LogReader& Log() const { return m_sampleHost->Log(); }
    void ClearLog() const;
    HWND Window(const std::string& name) const; // null if there is none
    LRESULT Ask(sample_host::Question question) const;
    // The next such misbehaviour sets Reached().
    void Misbehave(HWND window, sample_host::Misbehaviour what, int number) const;
    HANDLE Reached() const { return m_reached; }
    void Release() const { SetEvent(m_release); }

private:
    std::string m_name;
    std::unique_ptr<support::SampleHost> m_sampleHost;
    std::unique_ptr<support::Program> m_program;
    HANDLE m_process = nullptr; // borrowed
    HWND m_frame = nullptr;
    HANDLE m_reached = nullptr;
    HANDLE m_release = nullptr;
};

} // namespace fault_tests
