#include "explain/window_facts.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <set>
#include <tuple>

#include "engine/dpi_scope.h"
#include "engine/enumerate.h"
#include "explain/utf8.h"
#include "hostlink/window_kind.h"

namespace explain {

namespace {

constexpr UINT kAnswerMilliseconds = 200;
constexpr DWORD kLongestPath = 32768; // terminator included
constexpr int kLongestText = 32768;   // of a caption, terminator included
// More children than the system allows handles.
constexpr std::size_t kMostChildren = 0x10000;

class Handle {
public:
    explicit Handle(HANDLE handle) noexcept : m_handle(handle) {}
    ~Handle() {
        if (m_handle != nullptr) {
            CloseHandle(m_handle);
        }
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    HANDLE Get() const noexcept { return m_handle; }

private:
    HANDLE m_handle;
};

// What the window manager itself has stored. GetWindowText would ask a window of this process.
std::string CaptionOf(HWND window) {
    std::wstring text(260, L'\0');
    auto length =
        static_cast<std::size_t>(InternalGetWindowText(window, text.data(), static_cast<int>(text.size())));
    if (length + 1 >= text.size()) {
        text.resize(kLongestText);
        length = static_cast<std::size_t>(InternalGetWindowText(window, text.data(), kLongestText));
    }
    return ToUtf8(std::wstring_view(text).substr(0, length));
}

std::string ClassOf(HWND window) {
    wchar_t name[260] = L"";
    const int length = GetClassNameW(window, name, 260);
    return ToUtf8({name, static_cast<std::size_t>(length)});
}

// How much a process may do, as the system ranks it; -1 if that cannot be read.
std::int64_t IntegrityOf(HANDLE process) {
    HANDLE opened = nullptr;
    if (!OpenProcessToken(process, TOKEN_QUERY, &opened)) {
        return -1;
    }
    const Handle token(opened);
    alignas(TOKEN_MANDATORY_LABEL) std::byte buffer[256];
    DWORD size = 0;
    if (!GetTokenInformation(token.Get(), TokenIntegrityLevel, buffer, sizeof buffer, &size)) {
        return -1;
    }
    const PSID label = reinterpret_cast<const TOKEN_MANDATORY_LABEL*>(buffer)->Label.Sid;
    return *GetSidSubAuthority(label, *GetSidSubAuthorityCount(label) - 1u);
}

void ReadProcess(ProgramFacts& program) {
    const Handle process(OpenProcess(PROCESS_QUERY_LIMITED_INFORMATION, FALSE, program.processId));
    if (process.Get() == nullptr) {
        program.isElevated = GetLastError() == ERROR_ACCESS_DENIED;
        return;
    }
    std::wstring path(kLongestPath, L'\0');
    DWORD length = kLongestPath;
    if (QueryFullProcessImageNameW(process.Get(), 0, path.data(), &length)) {
        path.resize(length);
        program.path = ToUtf8(path);
        program.name = ToUtf8(std::wstring_view(path).substr(path.find_last_of(L'\\') + 1));
    }
    BOOL isWow64 = FALSE;
    program.is32Bit = IsWow64Process(process.Get(), &isWow64) && isWow64;
    // The token of a process with more rights cannot be read from one with less.
    const std::int64_t ours = IntegrityOf(GetCurrentProcess());
    const std::int64_t its = IntegrityOf(process.Get());
    program.isElevated = ours >= 0 && ours < SECURITY_MANDATORY_HIGH_RID && (its < 0 || its > ours);
}

bool HasHungWindow(const std::vector<HWND>& windows) {
    std::set<DWORD> asked;
    return std::ranges::any_of(windows, [&](HWND window) {
        return IsWindowVisible(window) && asked.insert(GetWindowThreadProcessId(window, nullptr)).second &&
               !Answers(window) && IsWindow(window);
    });
}

bool BeginsWith(const std::string& name, std::string_view prefix) {
    const std::wstring text = ToUtf16(name);
    const std::wstring wanted = ToUtf16(prefix);
    return text.size() >= wanted.size() &&
           CompareStringOrdinal(text.data(), static_cast<int>(wanted.size()), wanted.data(),
                                static_cast<int>(wanted.size()), TRUE) == CSTR_EQUAL;
}

} // namespace

WindowFacts FactsOf(HWND window) {
    WindowFacts facts;
    facts.threadId = GetWindowThreadProcessId(window, &facts.processId);
    if (facts.threadId == 0) {
        return {};
    }
    facts.window = window;
    facts.className = ClassOf(window);
    facts.caption = CaptionOf(window);
    facts.style = hostlink::WindowStyle(window);
    facts.extendedStyle = hostlink::WindowExtendedStyle(window);
    facts.isVisible = IsWindowVisible(window) != FALSE;
    facts.isEnabled = IsWindowEnabled(window) != FALSE;
    const engine::DpiScope inPixels(DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE);
    GetWindowRect(window, &facts.rectangle);
    if ((facts.style & WS_CHILD) != 0) {
        facts.parent = GetAncestor(window, GA_PARENT);
        facts.controlId = static_cast<int>(GetWindowLongPtrW(window, GWLP_ID));
    } else {
        facts.owner = GetWindow(window, GW_OWNER);
    }
    return facts;
}

bool Answers(HWND window) {
    DWORD_PTR answer = 0;
    SetLastError(ERROR_SUCCESS);
    return SendMessageTimeoutW(window, WM_NULL, 0, 0, SMTO_ABORTIFHUNG, kAnswerMilliseconds, &answer) != 0 ||
           GetLastError() == ERROR_ACCESS_DENIED; // it has more rights, and need not hang
}

std::vector<ProgramFacts> Programs(std::string_view prefix) {
    std::map<DWORD, std::vector<HWND>> windows;
    engine::EnumerateWindows(nullptr, [&](HWND window) {
        if (const DWORD processId = hostlink::ProcessOf(window)) {
            windows[processId].push_back(window);
        }
        return true;
    });
    std::vector<ProgramFacts> programs;
    for (auto& [processId, topLevel] : windows) {
        ProgramFacts program;
        program.processId = processId;
        ReadProcess(program);
        if (BeginsWith(program.name, prefix)) {
            program.isHung = HasHungWindow(topLevel);
            program.windows = std::move(topLevel);
            programs.push_back(std::move(program));
        }
    }
    std::ranges::sort(programs, {}, [](const ProgramFacts& program) {
        return std::tuple(ToUtf16(program.name), program.processId);
    });
    return programs;
}

std::vector<std::string> Remarks(const ProgramFacts& program) {
    std::vector<std::string> remarks;
    if (program.isElevated) {
        remarks.push_back(
            "Runs with more rights than this program: it takes no clicks, keys or messages from a "
            "script without them. Run the script as administrator.");
    }
    if (program.is32Bit) {
        remarks.push_back("Is a 32-bit program: its windows are found, but what has to run inside it (trees, "
                          "lists, tool bars, waiting until it is ready) does not work.");
    }
    if (program.isHung) {
        remarks.push_back("Does not answer at the moment: it is busy or hangs.");
    }
    return remarks;
}

std::vector<HWND> ChildrenOf(HWND window) {
    std::vector<HWND> children;
    if (window == nullptr) {
        return children;
    }
    // The order of the windows may change during the walk and lead it in a circle or to other parents.
    std::set<HWND> seen;
    for (HWND child = GetWindow(window, GW_CHILD);
         child != nullptr && seen.size() < kMostChildren && seen.insert(child).second;
         child = GetWindow(child, GW_HWNDNEXT)) {
        if (GetAncestor(child, GA_PARENT) == window) {
            children.push_back(child);
        }
    }
    return children;
}

} // namespace explain
