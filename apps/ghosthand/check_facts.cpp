#include "ghosthand/check_facts.h"

#include <algorithm>
#include <future>
#include <map>
#include <memory>

#include <windows.h>

#include <objbase.h>
#include <oleauto.h>
#include <shellscalingapi.h>

#include "Ghosthand_idl.h"
#include "engine/thread_idle.h"
#include "explain/utf8.h"
#include "ghosthand/programs.h"
#include "ghosthand/server_registration.h"

namespace apps {

namespace {

constexpr UINT kAnswerMilliseconds = 200;

struct HandleCloser {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const noexcept { CloseHandle(handle); }
};
using UniqueHandle = std::unique_ptr<HANDLE, HandleCloser>;

struct Releaser {
    void operator()(IUnknown* object) const noexcept { object->Release(); }
};
template <class Interface>
using Owned = std::unique_ptr<Interface, Releaser>;

void FindRegistrations(CheckFacts& facts) {
    const std::wstring neighbour = NeighbourModule();
    facts.neighbour = explain::ToUtf8(neighbour);
    for (const Scope scope : {Scope::CurrentUser, Scope::AllUsers}) {
        if (const std::optional<Registration> found = FindRegistration(scope, neighbour)) {
            facts.registrations.push_back({scope == Scope::CurrentUser, explain::ToUtf8(found->path),
                                           KindOfFile(found->path), FileVersion(found->path), found->faults});
        }
    }
    facts.isRegisteredFor32Bit = IsRegisteredFor32Bit();
}

void FindLoadedCopies(CheckFacts& facts, const std::vector<Program>& programs) {
    constexpr std::wstring_view kName = L"\\ghosthand.dll";
    for (const Program& program : programs) {
        for (const std::wstring& module : program.modules) {
            if (module.size() < kName.size() ||
                CompareStringOrdinal(module.c_str() + module.size() - kName.size(), -1, kName.data(), -1,
                                     TRUE) != CSTR_EQUAL) {
                continue;
            }
            const std::string path = explain::ToUtf8(module);
            auto copy = std::ranges::find_if(
                facts.loaded, [&](const LoadedCopy& known) { return IsSamePath(known.path, path); });
            if (copy == facts.loaded.end()) {
                copy = facts.loaded.insert(copy, {path, {}});
            }
            copy->programs.push_back(NameOf(program));
        }
    }
}

HRESULT ReadTypeLibrary(IDispatch& object, std::string& version) {
    ITypeInfo* information = nullptr;
    if (const HRESULT result = object.GetTypeInfo(0, LOCALE_USER_DEFAULT, &information); FAILED(result)) {
        return result;
    }
    const Owned<ITypeInfo> ownedInformation(information);
    ITypeLib* library = nullptr;
    UINT index = 0;
    if (const HRESULT result = information->GetContainingTypeLib(&library, &index); FAILED(result)) {
        return result;
    }
    const Owned<ITypeLib> ownedLibrary(library);
    TLIBATTR* attributes = nullptr;
    if (const HRESULT result = library->GetLibAttr(&attributes); FAILED(result)) {
        return result;
    }
    version = std::to_string(attributes->wMajorVerNum) + "." + std::to_string(attributes->wMinorVerNum);
    library->ReleaseTLibAttr(attributes);
    return S_OK;
}

// As a script does it: by name, late bound.
void TryObject(CheckFacts& facts) {
    if (FAILED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED))) {
        return;
    }
    CLSID identifier{};
    IDispatch* object = nullptr;
    HRESULT result = CLSIDFromProgID(L"Ghosthand.Ghosthand", &identifier);
    if (SUCCEEDED(result)) {
        result = CoCreateInstance(identifier, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                  reinterpret_cast<void**>(&object));
    }
    if (FAILED(result)) {
        facts.objectError = ResultText(result);
    } else {
        const Owned<IDispatch> owned(object);
        if (const HRESULT read = ReadTypeLibrary(*object, facts.typeLibraryVersion); FAILED(read)) {
            facts.typeLibraryError = ResultText(read);
        }
    }
    CoUninitialize();
}

bool IsElevated(HANDLE process, bool& isReadable) {
    HANDLE opened = nullptr;
    isReadable = OpenProcessToken(process, TOKEN_QUERY, &opened) != FALSE;
    if (!isReadable) {
        return false;
    }
    const UniqueHandle token(opened);
    TOKEN_ELEVATION elevation{};
    DWORD size = 0;
    return GetTokenInformation(token.get(), TokenElevation, &elevation, sizeof elevation, &size) &&
           elevation.TokenIsElevated != 0;
}

DWORD SessionOf(DWORD processId) {
    DWORD session = 0;
    ProcessIdToSessionId(processId, &session);
    return session;
}

std::wstring DesktopName(HDESK desktop) {
    wchar_t name[256] = {};
    DWORD size = 0;
    GetUserObjectInformationW(desktop, UOI_NAME, name, sizeof name, &size);
    return name;
}

void LookAtDesktop(CheckFacts& facts) {
    USEROBJECTFLAGS flags{};
    DWORD size = 0;
    facts.isService =
        !GetUserObjectInformationW(GetProcessWindowStation(), UOI_FLAGS, &flags, sizeof flags, &size) ||
        (flags.dwFlags & WSF_VISIBLE) == 0;
    const HDESK input = OpenInputDesktop(0, FALSE, DESKTOP_READOBJECTS);
    facts.isLocked =
        input == nullptr || DesktopName(input) != DesktopName(GetThreadDesktop(GetCurrentThreadId()));
    if (input != nullptr) {
        CloseDesktop(input);
    }
    facts.isRemote = GetSystemMetrics(SM_REMOTESESSION) != 0;
    bool isReadable = false;
    facts.isElevated = IsElevated(GetCurrentProcess(), isReadable);
}

using GetDpiForMonitorFunction = HRESULT(WINAPI*)(HMONITOR, MONITOR_DPI_TYPE, UINT*, UINT*);

struct ScaleReader {
    GetDpiForMonitorFunction dpiOf;
    std::vector<int>* scales;
};

BOOL CALLBACK AddScale(HMONITOR monitor, HDC, RECT*, LPARAM parameter) {
    const auto& reader = *reinterpret_cast<const ScaleReader*>(parameter);
    UINT horizontal = 0;
    UINT vertical = 0;
    if (SUCCEEDED(reader.dpiOf(monitor, MDT_EFFECTIVE_DPI, &horizontal, &vertical))) {
        reader.scales->push_back(static_cast<int>(horizontal * 100 / USER_DEFAULT_SCREEN_DPI));
    }
    return TRUE;
}

void ReadScales(CheckFacts& facts) {
    const DPI_AWARENESS_CONTEXT before =
        SetThreadDpiAwarenessContext(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE);
    if (const HMODULE library = LoadLibraryW(L"shcore.dll")) {
        const auto dpiOf =
            reinterpret_cast<GetDpiForMonitorFunction>(GetProcAddress(library, "GetDpiForMonitor"));
        const ScaleReader reader{dpiOf, &facts.scales};
        if (dpiOf != nullptr) {
            EnumDisplayMonitors(nullptr, nullptr, AddScale, reinterpret_cast<LPARAM>(&reader));
        }
        FreeLibrary(library);
    }
    SetThreadDpiAwarenessContext(before);
}

void ReadCounters(CheckFacts& facts) {
    const DWORD thisThread = GetCurrentThreadId();
    facts.areCountersReadable = std::async(std::launch::async, engine::QueryThreadIdle, thisThread).get() !=
                                engine::ThreadIdleState::CannotTell;
    engine::ReleasePerformanceData();
}

struct WindowCount {
    DWORD processId;
    ProgramState* state;
};

BOOL CALLBACK LookAtWindow(HWND window, LPARAM parameter) {
    const auto& count = *reinterpret_cast<const WindowCount*>(parameter);
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    if (processId == count.processId && IsWindowVisible(window)) {
        DWORD_PTR ignored = 0;
        count.state->hasWindow = true;
        count.state->answers =
            SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, kAnswerMilliseconds, &ignored) != 0;
        // One that does not answer is enough.
        return count.state->answers;
    }
    return TRUE;
}

ProgramState StateOf(const Program& program) {
    ProgramState state;
    state.name = NameOf(program);
    state.isInOtherSession = SessionOf(program.processId) != SessionOf(GetCurrentProcessId());
    const HANDLE opened = OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, program.processId);
    state.isReadable = opened != nullptr;
    if (!state.isReadable) {
        return state;
    }
    const UniqueHandle process(opened);
    BOOL is32Bit = FALSE;
    IsWow64Process(process.get(), &is32Bit);
    state.is32Bit = is32Bit != FALSE;
    state.isElevated = IsElevated(process.get(), state.isReadable);
    const WindowCount count{program.processId, &state};
    EnumWindows(LookAtWindow, reinterpret_cast<LPARAM>(&count));
    return state;
}

} // namespace

CheckFacts FindCheckFacts(const std::optional<std::string>& program) {
    CheckFacts facts;
    facts.toolVersion = GHOSTHAND_VERSION ".0";
    FindRegistrations(facts);
    const std::vector<Program> programs = RunningPrograms();
    FindLoadedCopies(facts, programs);
    TryObject(facts);
    LookAtDesktop(facts);
    ReadScales(facts);
    ReadCounters(facts);
    facts.program = program;
    const std::wstring prefix = explain::ToUtf16(program.value_or(""));
    const auto length = static_cast<int>(prefix.size());
    for (const Program& running : programs) {
        if (length > 0 && running.name.size() >= prefix.size() &&
            CompareStringOrdinal(running.name.c_str(), length, prefix.c_str(), length, TRUE) == CSTR_EQUAL) {
            facts.programs.push_back(StateOf(running));
        }
    }
    return facts;
}

} // namespace apps
