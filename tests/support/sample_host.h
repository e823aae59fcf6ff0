// The sample host in a process of its own, for the lifetime of a test.
#pragma once

#include "support/environment.h"

#include <host_ids.h>
#include <host_log.h>
#include <host_misbehaviour.h>
#include <windows.h>

#include <functional>
#include <memory>
#include <stdexcept>
#include <string>

namespace support {

// Asks again and again, for up to a minute: machines are slow at times. Returns the last answer.
inline bool Eventually(const std::function<bool()>& condition) {
    const ULONGLONG end = GetTickCount64() + 60000;
    while (!condition()) {
        if (GetTickCount64() >= end) {
            return false;
        }
        Sleep(20);
    }
    return true;
}

class SampleHost {
public:
    // Starts the program and waits until its main window is shown and answers. Throws
    // std::runtime_error when that does not happen.
    explicit SampleHost(const std::string& arguments = "") {
        std::string commandLine = "\"";
        commandLine += PathFromEnvironment("GHOSTHAND_SAMPLE_HOST") + "\" " + arguments;
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        if (!CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                            &startup, &m_process)) {
            throw std::runtime_error("the sample host cannot be started: " + commandLine);
        }
        CloseHandle(m_process.hThread);
        // Its identifier also lets the host take the foreground, as a program that the user started may.
        AllowSetForegroundWindow(m_process.dwProcessId);
        const bool shown = Eventually([this] { return (m_frame = FindFrame()) != nullptr || HasEnded(); });
        if (!shown || m_frame == nullptr) {
            End();
            throw std::runtime_error("the sample host shows no main window: " + commandLine);
        }
        SendMessageA(m_frame, WM_NULL, 0, 0);
        m_log = std::make_unique<sample_host::LogReader>(m_process.dwProcessId);
    }
    ~SampleHost() { End(); }
    SampleHost(const SampleHost&) = delete;
    SampleHost& operator=(const SampleHost&) = delete;

    HANDLE Process() const { return m_process.hProcess; }
    HWND Frame() const { return m_frame; }
    DWORD ProcessId() const { return m_process.dwProcessId; }
    DWORD ThreadId() const { return GetWindowThreadProcessId(m_frame, nullptr); }
    const sample_host::LogReader& Log() const { return *m_log; }
    void ClearLog() const { sample_host::LogReader::Clear(m_frame); }

    // The window that the host gave that name ("Settings.1001"), null if there is none now.
    HWND Window(const std::string& name) const {
        const ATOM atom = GlobalAddAtomA(name.c_str());
        const LRESULT window = SendMessageA(m_frame, RegisterWindowMessageA("MSG_HA_GetWindoHWND"), atom, 0);
        GlobalDeleteAtom(atom);
        return reinterpret_cast<HWND>(window);
    }

    // The same, once it exists and is visible; null when it does not come.
    HWND WaitForWindow(const std::string& name) const {
        HWND window = nullptr;
        Eventually([&] { return (window = Window(name)) != nullptr && IsWindowVisible(window); });
        return window;
    }

    void Command(unsigned command) const { PostMessageA(m_frame, WM_COMMAND, command, 0); }

    // Sent, so that it takes effect before this returns ("busy" blocks the caller as well).
    static void Misbehave(HWND window, sample_host::Misbehaviour what, LPARAM number = 0) {
        SendMessageA(window, RegisterWindowMessageA(sample_host::kMisbehaveMessage),
                     static_cast<WPARAM>(what), number);
    }

    bool HasEnded() const { return WaitForSingleObject(m_process.hProcess, 0) == WAIT_OBJECT_0; }

    // Waits for the end; STILL_ACTIVE when it does not come.
    DWORD ExitCode() const {
        DWORD code = STILL_ACTIVE;
        Eventually([this] { return HasEnded(); });
        GetExitCodeProcess(m_process.hProcess, &code);
        return code;
    }

private:
    HWND FindFrame() const {
        HWND found = nullptr;
        while ((found = FindWindowExA(nullptr, found, nullptr, sample_host::ids::kFrameCaption)) != nullptr) {
            DWORD processId = 0;
            GetWindowThreadProcessId(found, &processId);
            if (processId == m_process.dwProcessId && IsWindowVisible(found)) {
                return found;
            }
        }
        return nullptr;
    }

    void End() {
        TerminateProcess(m_process.hProcess, 0);
        WaitForSingleObject(m_process.hProcess, INFINITE);
        CloseHandle(m_process.hProcess);
    }

    PROCESS_INFORMATION m_process{};
    HWND m_frame = nullptr;
    std::unique_ptr<sample_host::LogReader> m_log;
};

} // namespace support
