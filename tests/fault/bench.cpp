#include "fault/bench.h"

#include <cstdio>

#include <tlhelp32.h>

namespace fault_tests {

namespace {

using sample_host::Question;

constexpr DWORD kCallMilliseconds = 10000;
constexpr std::size_t kHandleTolerance = 8;

// Windows removes the hooks of a thread that ends. Wine removes them with the thread that they are on.
bool KeepsHooksOfTheDead() {
    return GetProcAddress(GetModuleHandleA("ntdll.dll"), "wine_get_version") != nullptr;
}

// Where an instruction of another process lies.
std::string Place(DWORD processId, LRESULT address) {
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPMODULE, processId);
    MODULEENTRY32 module = {};
    module.dwSize = sizeof module;
    std::string place = "no module";
    for (BOOL more = Module32First(snapshot, &module); more; more = Module32Next(snapshot, &module)) {
        const LRESULT offset = address - reinterpret_cast<LRESULT>(module.modBaseAddr);
        if (offset >= 0 && offset < static_cast<LRESULT>(module.modBaseSize)) {
            char text[32];
            std::snprintf(text, sizeof text, "+0x%llX", static_cast<unsigned long long>(offset));
            place = module.szModule + std::string(text);
        }
    }
    CloseHandle(snapshot);
    return place;
}

} // namespace

std::string Bench::Prepare(const Step& step, DWORD milliseconds) {
    try {
        if (m_program && (m_program->HasEnded() || m_program->Name() != step.program))
            m_program.reset();
        if (!m_program)
            m_program = std::make_unique<DrivenProgram>(step.program);
        if (!m_script || m_script->HasEnded())
            m_script = std::make_unique<ScriptProcess>();
    } catch (const std::exception& error) {
        m_program.reset();
        return error.what();
    }
    const std::string result = m_script->Run(SetupOf(step) + "; host.Enabled", milliseconds);
    return result == "True" ? "" : "\"" + result + "\" in the setup";
}

std::string Bench::Do(const Step& step, DWORD milliseconds) {
    return Mismatch(step, m_script->Run(step.lines, milliseconds));
}

std::string Bench::TryStep(const Step& step, DWORD milliseconds) {
    const std::string error = Prepare(step, milliseconds);
    return error.empty() ? Do(step, milliseconds) : error;
}

void Bench::RememberState() {
    m_atoms = LastingAtoms();
    m_programId = m_program->ProcessId();
    m_programHandles = ResourcesOf(m_program->Process()).handles;
    m_scriptId = m_script->ProcessId();
    m_scriptHandles = ResourcesOf(m_script->Process()).handles;
    NewViolation();
}

std::vector<std::string> Bench::Leftovers(bool scriptWasEnded) {
    std::vector<std::string> left;
    for (const std::string& hook : m_section.HooksRecorded())
        left.push_back(hook + " is recorded");
    if (scriptWasEnded && KeepsHooksOfTheDead())
        m_hookedId = m_program->ProcessId();
    if (m_program->ProcessId() != m_hookedId)
        if (const std::string changed = m_section.HookAtWork(m_program->Frame()); !changed.empty())
            left.push_back("a hook that changes " + changed);
    // Nobody can take back what a process held of the atom table when it was ended.
    for (const std::string& atom : TakeNewAtoms(m_atoms))
        if (!scriptWasEnded)
            left.push_back("the atom \"" + atom + "\"");
    if (TakePressedButton())
        left.push_back("a mouse button is down");
    m_script->Run("ghosthand.UnblockMouse()", kCallMilliseconds);
    if (!IsMouseFree())
        left.push_back("the mouse is blocked");
    if (m_program->IsSampleHost() && m_program->Ask(Question::HeldKeys) != 0)
        left.push_back("held keys " + std::to_string(m_program->Ask(Question::HeldKeys)));
    const auto grown = [&](const char* whose, HANDLE process, DWORD& id, std::size_t& before) {
        const std::size_t now = ResourcesOf(process).handles;
        if (GetProcessId(process) == id && now > before + kHandleTolerance)
            left.push_back(std::to_string(now - before) + " more handles in the " + whose);
        if (GetProcessId(process) != id || now > before + kHandleTolerance)
            before = now; // a fresh process, or told once
        id = GetProcessId(process);
    };
    grown("program", m_program->Process(), m_programId, m_programHandles);
    grown("script", m_script->Process(), m_scriptId, m_scriptHandles);
    if (const std::string place = NewViolation(); !place.empty())
        left.push_back("access violation at " + place);
    return left;
}

std::string Bench::NewViolation() {
    if (!m_program->IsSampleHost())
        return "";
    const LRESULT count = m_program->Ask(Question::AccessViolations);
    const bool isNew = count > (m_program->ProcessId() == m_violatedId ? m_violations : 0);
    m_violatedId = m_program->ProcessId();
    m_violations = count;
    return isNew ? Place(m_violatedId, m_program->Ask(Question::LastViolation)) : "";
}

} // namespace fault_tests
