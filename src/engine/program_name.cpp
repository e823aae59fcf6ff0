#include "engine/program_name.h"

#include <algorithm>

#include <psapi.h>

namespace engine {

namespace {

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

std::string ReadProgramName(DWORD processId) {
    const ProcessHandle process(processId);
    HMODULE program = nullptr;
    DWORD needed = 0;
    char name[MAX_PATH] = "";
    if (process.Get() != nullptr && K32EnumProcessModules(process.Get(), &program, sizeof program, &needed)) {
        K32GetModuleBaseNameA(process.Get(), program, name, MAX_PATH);
    }
    return name;
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
