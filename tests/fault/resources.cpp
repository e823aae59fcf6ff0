#include "fault/resources.h"

#include <algorithm>
#include <psapi.h>
#include <span>

namespace fault_tests {

namespace {

struct SystemHandle {
    void* object;
    ULONG_PTR processId;
    ULONG_PTR handle;
    ULONG access;
    USHORT trace;
    USHORT type;
    ULONG attributes;
    ULONG reserved;
};
struct SystemHandles {
    ULONG_PTR count;
    ULONG_PTR reserved;
    SystemHandle handles[1];
};
constexpr int kSystemExtendedHandleInformation = 64;
constexpr LONG kLengthMismatch = static_cast<LONG>(0xC0000004);

using Table = std::vector<std::byte>;

std::span<const SystemHandle> SystemTable(Table& buffer) {
    using Query = LONG(WINAPI*)(int, void*, ULONG, ULONG*);
    static const auto query =
        reinterpret_cast<Query>(GetProcAddress(GetModuleHandleA("ntdll.dll"), "NtQuerySystemInformation"));
    buffer.resize(1 << 20);
    ULONG size = 0;
    LONG status = 0;
    while ((status = query(kSystemExtendedHandleInformation, buffer.data(), static_cast<ULONG>(buffer.size()),
                           &size)) == kLengthMismatch)
        buffer.resize(buffer.size() * 2);
    if (status != 0)
        return {};
    const auto& table = *reinterpret_cast<const SystemHandles*>(buffer.data());
    return {table.handles, table.count};
}

// For systems whose GetProcessHandleCount does not count.
std::size_t CountInSystemTable(DWORD processId) {
    Table buffer;
    return static_cast<std::size_t>(
        std::ranges::count(SystemTable(buffer), processId, &SystemHandle::processId));
}

std::size_t CountHandles(HANDLE process) {
    DWORD count = 0;
    GetProcessHandleCount(process, &count);
    return count != 0 ? count : CountInSystemTable(GetProcessId(process));
}

struct WindowCount {
    DWORD processId;
    std::size_t count;
};

BOOL CALLBACK CountWindow(HWND window, LPARAM parameter) {
    auto& counted = *reinterpret_cast<WindowCount*>(parameter);
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    counted.count += processId == counted.processId ? 1 : 0;
    return TRUE;
}

std::size_t CountWindows(DWORD processId) {
    WindowCount counted = {processId, 0};
    // Those of all threads, as a window may belong to another thread than its parent.
    EnumChildWindows(GetDesktopWindow(), CountWindow, reinterpret_cast<LPARAM>(&counted));
    return counted.count;
}

} // namespace

Resources ResourcesOf(HANDLE process) {
    PROCESS_MEMORY_COUNTERS memory = {};
    GetProcessMemoryInfo(process, &memory, sizeof memory);
    return {CountHandles(process), GetGuiResources(process, GR_GDIOBJECTS),
            GetGuiResources(process, GR_USEROBJECTS), CountWindows(GetProcessId(process)),
            memory.PagefileUsage / 1024};
}

std::vector<GlobalAtom> GlobalAtoms() {
    constexpr unsigned kLongestGap = 1000; // the system hands out the lowest that is free
    std::vector<GlobalAtom> atoms;
    for (unsigned atom = 0xC000, last = atom; atom <= 0xFFFF && atom - last < kLongestGap; ++atom) {
        char name[256] = "";
        if (GlobalGetAtomNameA(static_cast<ATOM>(atom), name, sizeof name) != 0) {
            atoms.push_back({static_cast<ATOM>(atom), name});
            last = atom;
        }
    }
    return atoms;
}

std::vector<std::string> TakeNewAtoms(const std::vector<GlobalAtom>& before) {
    std::vector<std::string> names;
    for (const GlobalAtom& atom : GlobalAtoms()) {
        if (std::ranges::find(before, atom.name, &GlobalAtom::name) != before.end())
            continue;
        names.push_back(atom.name);
        char name[256];
        for (int count = 0; count < 1000 && GlobalGetAtomNameA(atom.atom, name, sizeof name) != 0; ++count)
            GlobalDeleteAtom(atom.atom);
    }
    return names;
}

bool TakePressedButton() {
    const struct {
        int key;
        DWORD release;
    } kButtons[] = {{VK_LBUTTON, MOUSEEVENTF_LEFTUP},
                    {VK_RBUTTON, MOUSEEVENTF_RIGHTUP},
                    {VK_MBUTTON, MOUSEEVENTF_MIDDLEUP}};
    bool any = false;
    for (const auto& button : kButtons) {
        if (GetAsyncKeyState(button.key) < 0) {
            mouse_event(button.release, 0, 0, 0, 0);
            any = true;
        }
    }
    return any;
}

bool IsMouseFree() {
    POINT before = {};
    GetCursorPos(&before);
    const DWORD step = before.x > 100 ? static_cast<DWORD>(-3) : 3;
    for (int tries = 0; tries < 20; ++tries) {
        mouse_event(MOUSEEVENTF_MOVE, step, 0, 0, 0);
        POINT after = {};
        GetCursorPos(&after);
        if (after.x != before.x)
            return true;
        Sleep(50);
    }
    return false;
}

} // namespace fault_tests
