#include "fault/driven_program.h"

namespace fault_tests {

namespace {

constexpr UINT kAnswerMilliseconds = 10000;

constexpr char kPages[] = "--page trees --page list-views --page cad --page context-menus --page list-boxes "
                          "--page combo-boxes --page tabs --page track-bars --page check-boxes";

// With an end, unlike SendMessage: the program may be in any state.
LRESULT Send(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    DWORD_PTR answer = 0;
    SendMessageTimeoutA(window, message, wParam, lParam, SMTO_NORMAL, kAnswerMilliseconds, &answer);
    return static_cast<LRESULT>(answer);
}

HWND MainWindowOf(DWORD threadId) {
    HWND found = nullptr;
    EnumThreadWindows(
        threadId,
        [](HWND window, LPARAM result) -> BOOL {
            if (!IsWindowVisible(window) || GetWindow(window, GW_OWNER) != nullptr)
                return TRUE;
            *reinterpret_cast<HWND*>(result) = window;
            return FALSE;
        },
        reinterpret_cast<LPARAM>(&found));
    return found;
}

// Most programs of the system are found by their names.
std::string CommandLineOf(const std::string& name) {
    std::string line = name + ".exe";
    if (name == "wordpad")
        line.insert(0, "\"C:\\Program Files\\Windows NT\\Accessories\\").append("\"");
    return line;
}

void CallSystem(const char* function, HANDLE process) {
    using Function = LONG(WINAPI*)(HANDLE);
    const auto found = reinterpret_cast<Function>(GetProcAddress(GetModuleHandleA("ntdll.dll"), function));
    found(process);
}

} // namespace

DrivenProgram::DrivenProgram(const std::string& name) : m_name(name) {
    if (name == "sample_host") {
        m_sampleHost = std::make_unique<support::SampleHost>(kPages);
        m_process = m_sampleHost->Process();
        m_frame = m_sampleHost->Frame();
        const std::string id = std::to_string(m_sampleHost->ProcessId());
        m_reached = CreateEventA(nullptr, FALSE, FALSE, (sample_host::kReachedEvent + id).c_str());
        m_release = CreateEventA(nullptr, FALSE, FALSE, (sample_host::kReleaseEvent + id).c_str());
        m_sampleHost->WaitForWindow("Check boxes"); // the last page
        return;
    }
    m_program = std::make_unique<support::Program>(CommandLineOf(name));
    m_process = m_program->Process();
    support::Eventually([this] { return (m_frame = MainWindowOf(m_program->MainThreadId())) != nullptr; });
    if (m_frame == nullptr || !Answers())
        throw std::runtime_error(name + " shows no main window");
}

DrivenProgram::~DrivenProgram() {
    if (m_reached != nullptr)
        CloseHandle(m_reached);
    if (m_release != nullptr)
        CloseHandle(m_release);
}

bool DrivenProgram::Answers() const {
    DWORD_PTR answer = 0;
    return SendMessageTimeoutA(m_frame, WM_NULL, 0, 0, SMTO_NORMAL, kAnswerMilliseconds, &answer) != 0;
}

void DrivenProgram::Kill() {
    TerminateProcess(m_process, 0);
    WaitForSingleObject(m_process, INFINITE);
}

void DrivenProgram::Suspend() const {
    CallSystem("NtSuspendProcess", m_process);
}

void DrivenProgram::Resume() const {
    CallSystem("NtResumeProcess", m_process);
}

void DrivenProgram::ClearLog() const {
    Send(m_frame, RegisterWindowMessageA(sample_host::kClearLogMessage), 0, 0);
}

HWND DrivenProgram::Window(const std::string& name) const {
    const ATOM atom = GlobalAddAtomA(name.c_str());
    const LRESULT window = Send(m_frame, RegisterWindowMessageA("MSG_HA_GetWindoHWND"), atom, 0);
    GlobalDeleteAtom(atom);
    return reinterpret_cast<HWND>(window);
}

LRESULT DrivenProgram::Ask(sample_host::Question question) const {
    return Send(m_frame, RegisterWindowMessageA(sample_host::kAskMessage), static_cast<WPARAM>(question), 0);
}

void DrivenProgram::Misbehave(HWND window, sample_host::Misbehaviour what, int number) const {
    ResetEvent(m_reached);
    ResetEvent(m_release);
    Send(window, RegisterWindowMessageA(sample_host::kMisbehaveMessage), static_cast<WPARAM>(what), number);
}

} // namespace fault_tests
