// A program that a test starts and that ends with the test, and what it wrote.
#pragma once

#include <windows.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>

namespace support {

// Empty if there is no such file.
inline std::string ReadFile(const std::filesystem::path& path) {
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

class Program {
public:
    // `outputFile` gets what the program writes to its console. Throws std::runtime_error.
    explicit Program(std::string commandLine, const std::string& outputFile = "") {
        STARTUPINFOA startup{};
        startup.cb = sizeof startup;
        HANDLE output = INVALID_HANDLE_VALUE;
        if (!outputFile.empty()) {
            SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
            output = CreateFileA(outputFile.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inheritable,
                                 CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
            startup.dwFlags = STARTF_USESTDHANDLES;
            startup.hStdOutput = startup.hStdError = output;
        }
        const bool started =
            CreateProcessA(nullptr, commandLine.data(), nullptr, nullptr, !outputFile.empty(), 0, nullptr,
                           nullptr, &startup, &m_process) != FALSE;
        if (output != INVALID_HANDLE_VALUE) {
            CloseHandle(output);
        }
        if (!started) {
            throw std::runtime_error("cannot be started: " + commandLine);
        }
        // Lets it take the foreground, as a program that the user started may.
        AllowSetForegroundWindow(m_process.dwProcessId);
    }
    ~Program() {
        TerminateProcess(m_process.hProcess, 0);
        WaitForSingleObject(m_process.hProcess, INFINITE);
        CloseHandle(m_process.hThread);
        CloseHandle(m_process.hProcess);
    }
    Program(const Program&) = delete;
    Program& operator=(const Program&) = delete;

    // False when it is still running then.
    bool WaitForEnd(int seconds) const {
        return WaitForSingleObject(m_process.hProcess, static_cast<DWORD>(seconds) * 1000) == WAIT_OBJECT_0;
    }
    HANDLE Process() const { return m_process.hProcess; }
    DWORD ProcessId() const { return m_process.dwProcessId; }
    DWORD MainThreadId() const { return m_process.dwThreadId; }

private:
    PROCESS_INFORMATION m_process{};
};

} // namespace support
