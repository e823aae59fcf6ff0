#include "engine/program_name.h"

#include <algorithm>

#include "hostlink/host_text.h"

namespace engine {

namespace {

constexpr DWORD kLongestPath = 32768; // terminator included

class ProcessHandle {
public:
    explicit ProcessHandle(DWORD processId) noexcept
        : m_handle(OpenProcess(PROCESS_QUERY_INFORMATION | PROCESS_VM_READ, FALSE, processId)) {}
    ~ProcessHandle() {
        if (m_handle != nullptr) {
            CloseHandle(m_handle);
        }
    }
    ProcessHandle(const ProcessHandle&) = delete;
    ProcessHandle& operator=(const ProcessHandle&) = delete;

    HANDLE Get() const noexcept { return m_handle; }

private:
    HANDLE m_handle;
};

// The path of the program's file is one question to the system; to list a process's modules takes dozens of
// reads in its memory.
std::string ReadProgramName(DWORD processId) {
    const ProcessHandle process(processId);
    std::wstring path(kLongestPath, L'\0');
    DWORD length = kLongestPath;
    if (process.Get() == nullptr || !QueryFullProcessImageNameW(process.Get(), 0, path.data(), &length)) {
        return {};
    }
    path.resize(length);
    // Cut before the conversion: in some code pages the second byte of a character looks like a backslash.
    return hostlink::ToAnsi(std::wstring_view(path).substr(path.find_last_of(L'\\') + 1));
}

} // namespace

const std::string& ProgramNames::NameOf(HWND window) {
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    const auto known = std::find_if(m_known.begin(), m_known.end(),
                                    [&](const Program& program) { return program.processId == processId; });
    if (known != m_known.end()) {
        return known->name;
    }
    return m_known.emplace_back(Program{processId, ReadProgramName(processId)}).name;
}

} // namespace engine
