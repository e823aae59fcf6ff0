#include "fault/script_process.h"

#include "automation/interfaces.h"
#include "com/built_module.h"
#include "fault/script_lines.h"

#include <objbase.h>

#include <algorithm>

namespace fault_tests {

namespace {

std::string NewName() {
    static int count = 0;
    return "GhosthandFault-" + std::to_string(GetCurrentProcessId()) + "-" + std::to_string(++count);
}

HANDLE MapChannel(const std::string& name, ScriptChannel*& channel) {
    const HANDLE mapping = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0,
                                              sizeof(ScriptChannel), (name + "-channel").c_str());
    channel =
        static_cast<ScriptChannel*>(MapViewOfFile(mapping, FILE_MAP_WRITE, 0, 0, sizeof(ScriptChannel)));
    return mapping;
}

HANDLE Event(const std::string& name) {
    return CreateEventA(nullptr, FALSE, FALSE, name.c_str());
}

template <std::size_t Size>
void Copy(char (&target)[Size], const std::string& text) {
    const std::size_t length = std::min(text.size(), Size - 1);
    text.copy(target, length);
    target[length] = '\0';
}

std::string OwnPath() {
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, MAX_PATH);
    return path;
}

} // namespace

ScriptProcess::ScriptProcess() {
    const std::string name = NewName();
    m_mapping = MapChannel(name, m_channel);
    m_start = Event(name + "-start");
    m_done = Event(name + "-done");
    m_program = std::make_unique<support::Program>(
        std::string("\"").append(OwnPath()).append("\" script ").append(name));
}

ScriptProcess::~ScriptProcess() {
    m_program.reset();
    CloseHandle(m_done);
    CloseHandle(m_start);
    UnmapViewOfFile(m_channel);
    CloseHandle(m_mapping);
}

void ScriptProcess::Start(const std::string& lines) {
    Copy(m_channel->lines, lines);
    ResetEvent(m_done);
    SetEvent(m_start);
}

std::string ScriptProcess::Run(const std::string& lines, DWORD milliseconds) {
    Start(lines);
    const HANDLE objects[] = {m_done, m_program->Process()};
    switch (WaitForMultipleObjects(2, objects, FALSE, milliseconds)) {
    case WAIT_OBJECT_0:
        return m_channel->result;
    case WAIT_OBJECT_0 + 1:
        return "the script has ended";
    default:
        return std::string("hangs in ") + m_channel->member;
    }
}

void ScriptProcess::RestartClock() {
    if (m_channel->callBegan != 0)
        m_channel->callBegan = GetTickCount64();
    m_channel->longestCall = 0;
}

void ScriptProcess::Kill() {
    TerminateProcess(m_program->Process(), 0);
    WaitForSingleObject(m_program->Process(), INFINITE);
}

int RunScriptProcess(const std::string& name) {
    support::Require(OleInitialize(nullptr), "OleInitialize");
    const support::BuiltModule module(support::BuiltModule::DefaultPath());
    ScriptChannel* channel = nullptr;
    MapChannel(name, channel);
    const HANDLE start = Event(name + "-start");
    const HANDLE done = Event(name + "-done");

    ScriptLines script([channel](const std::string& member) {
        if (!member.empty()) {
            Copy(channel->member, member);
            channel->callBegan = GetTickCount64();
            return;
        }
        ++channel->calls;
        const auto took = static_cast<std::uint32_t>(GetTickCount64() - channel->callBegan.exchange(0));
        if (took >= channel->longestCall) {
            channel->longestCall = took;
            Copy(channel->longestMember, channel->member);
        }
    });
    for (bool hasEntry = false;;) {
        // A script's thread takes messages while it waits: a window of its own must not stop the desktop.
        if (MsgWaitForMultipleObjects(1, &start, FALSE, INFINITE, QS_ALLINPUT) != WAIT_OBJECT_0) {
            for (MSG message; PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE);)
                DispatchMessageA(&message);
            continue;
        }
        channel->longestCall = 0;
        channel->longestMember[0] = '\0';
        if (std::string(channel->lines) == "release") {
            script.Forget();
            hasEntry = false;
            Copy(channel->result, std::to_string(module.CanUnloadNow()));
        } else {
            if (!hasEntry) {
                support::ComPointer<IClassFactory> factory;
                support::Require(
                    module.GetClassObject(CLSID_Ghosthand, IID_IClassFactory, factory.ReceiveVoid()),
                    "class object");
                support::ComPointer<IDispatch> entry;
                support::Require(factory->CreateInstance(nullptr, IID_IDispatch, entry.ReceiveVoid()),
                                 "CreateInstance");
                script.Define("ghosthand", std::move(entry));
                hasEntry = true;
            }
            Copy(channel->result, script.Run(channel->lines));
        }
        SetEvent(done);
    }
}

} // namespace fault_tests
