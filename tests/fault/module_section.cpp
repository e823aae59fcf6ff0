#include "fault/module_section.h"

#include "support/section.h"

namespace fault_tests {

namespace {

constexpr std::size_t kPageSize = 4096;

std::span<std::byte> Find(const std::wstring& path, const char* name) {
    return support::SectionOf(GetModuleHandleW(path.c_str()), name);
}

UINT Registered(const char* name) {
    return RegisterWindowMessageA(name);
}

} // namespace

ModuleSection::ModuleSection()
    : m_module(support::BuiltModule::DefaultPath()),
      m_data(reinterpret_cast<hostlink::SharedSection*>(Find(m_module.Path(), ".shared").data())),
      m_own(Find(m_module.Path(), ".module")) {}

std::span<std::byte> ModuleSection::Beyond() const {
    return {Bytes().data() + Bytes().size(), kPageSize - Bytes().size()};
}

std::vector<std::string> ModuleSection::HooksRecorded() const {
    std::vector<std::string> names;
    const auto look = [&](const char* name, std::uint64_t handle) {
        if (handle != 0)
            names.emplace_back(name);
    };
    look("remoteHook", m_data->remoteHook);
    look("foregroundHook", m_data->foregroundHook);
    look("menuCaptureHook", m_data->menuCaptureHook);
    look("syncCreateHook", m_data->syncCreateHook);
    look("syncQueueHook", m_data->syncQueueHook);
    return names;
}

std::string ModuleSection::HookAtWork(HWND window) const {
    constexpr std::uint64_t kMark = 0x7FFFFFF1; // no hook's handle
    m_data->remoteHook = kMark;
    m_data->foregroundHook = kMark;
    m_data->syncSeen = 0;
    DWORD_PTR answer = 0;
    const auto send = [&](UINT message) {
        SendMessageTimeoutA(window, message, 0, 0, SMTO_NORMAL, 5000, &answer);
    };
    send(Registered("MSG_GH_SEND_REMOTELY"));
    send(Registered("MSG_GH_SET_KEY_STATE"));
    PostMessageA(window, Registered("MSG_GH_SYNC"), 0, 0);
    Sleep(50);
    send(WM_NULL);
    std::string changed;
    changed += m_data->remoteHook != kMark ? "remoteHook " : "";
    changed += m_data->foregroundHook != kMark ? "foregroundHook " : "";
    changed += m_data->syncSeen != 0 ? "syncSeen " : "";
    m_data->remoteHook = 0;
    m_data->foregroundHook = 0;
    m_data->syncSeen = 1;
    return changed;
}

} // namespace fault_tests
