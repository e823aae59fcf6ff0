#include "explain/explain_nothing.h"

#include <algorithm>
#include <cwchar>

#include <windows.h>

#include <tlhelp32.h>

#include "explain/call_text.h"
#include "explain/failed_call.h"
#include "explain/utf8.h"
#include "explain/window_call.h"
#include "explain/window_facts.h"

namespace explain {

namespace {

using engine::WindowCriteria;

// For everything; what comes last, the line, is bounded by what a search takes.
constexpr ULONGLONG kMilliseconds = 1000;
// A line is verified by searches, each of which goes through all windows once more.
constexpr ULONGLONG kMillisecondsForLine = 500;
constexpr std::size_t kMostMisses = 5;

bool Has(const WindowCriteria& search, engine::SearchFlag flag) noexcept {
    return (search.flags & flag) != 0;
}

std::string ClassesOf(std::span<const WindowCriteria> searches) {
    std::string classes;
    for (const WindowCriteria& search : searches) {
        classes.append(classes.empty() ? "" : " or ").append(Quoted(AnsiToUtf8(search.className)));
    }
    return classes;
}

std::string PlaceOf(const WindowCriteria& search) {
    if (search.parent == nullptr) {
        return Has(search, engine::kTopLevelWithParent) ? ", on the desktop, owned ones included"
                                                        : ", on the desktop";
    }
    return (Has(search, engine::kAnyDescendant) ? ", at any depth below " : ", directly below ") +
           NameOf(search.parent);
}

// What a search looks for, in words; several that follow one another differ in the class.
std::string WantedBy(std::span<const WindowCriteria> searches) {
    const WindowCriteria& search = searches.front();
    std::string wanted = "a window";
    if (search.parent == nullptr && search.moduleName[0] != '\0') {
        wanted += " of a program whose name begins with " + Quoted(AnsiToUtf8(search.moduleName));
    }
    if (!Has(search, engine::kIgnoreCaption)) {
        wanted += Has(search, engine::kCaptionContains) ? " whose caption contains " : " with the caption ";
        wanted += Quoted(AnsiToUtf8(search.caption));
    }
    if (!Has(search, engine::kIgnoreClass)) {
        wanted += Has(search, engine::kClassContains) ? ", of a class that contains " : ", of the class ";
        wanted += ClassesOf(searches);
    }
    if (!Has(search, engine::kIgnoreId)) {
        wanted += ", with id " + std::to_string(search.controlId);
    }
    if (search.customTest != nullptr && !search.customKind.empty()) {
        wanted += ", which is a " + std::string(search.customKind);
    }
    wanted += Has(search, engine::kIncludeHidden) ? ", hidden or not" : ", visible";
    if (Has(search, engine::kEnabledOnly)) {
        wanted += ", enabled";
    }
    wanted += PlaceOf(search);
    if (search.flags >> 16 > 1) {
        wanted += "; occurrence " + std::to_string(search.flags >> 16);
    }
    return wanted;
}

// A wait repeats its searches.
std::vector<WindowCriteria> WithoutRepetitions(std::span<const WindowCriteria> searches) {
    std::vector<WindowCriteria> once;
    for (const WindowCriteria& search : searches) {
        if (std::ranges::none_of(
                once, [&](const WindowCriteria& known) { return engine::IsSameSearch(known, search); })) {
            once.push_back(search);
        }
    }
    return once;
}

// The shortest call to a window; empty if there is none.
std::string LineTo(HWND window) {
    const Call call = CallTo(window).call;
    return call.empty() ? std::string() : CallText(call, Language::VBScript);
}

// Why no window belongs to the program: it does not run, or has none yet.
std::string ProgramReason(const std::string& wanted) {
    const std::wstring prefix = ToUtf16(wanted);
    std::string reason = "no program runs whose file name begins with " + Quoted(wanted);
    const HANDLE processes = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (processes == INVALID_HANDLE_VALUE) {
        return reason;
    }
    PROCESSENTRY32W process = {};
    process.dwSize = sizeof process;
    for (BOOL more = Process32FirstW(processes, &process); more; more = Process32NextW(processes, &process)) {
        if (_wcsnicmp(process.szExeFile, prefix.c_str(), prefix.size()) == 0) {
            reason =
                Quoted(ToUtf8(process.szExeFile)) + " runs, but it has no window that can be seen from here";
            break;
        }
    }
    CloseHandle(processes);
    return reason;
}

Explanation ExplainSearches(const FailedCall& repeatedCall, ULONGLONG end) {
    const auto searches = WithoutRepetitions(repeatedCall.searches);
    FailedCall call = repeatedCall;
    call.searches = searches;
    Explanation explanation;
    explanation.wanted = WantedBy(call.searches);
    const auto windows = RejectedWindows(call.searches, kMostMisses, std::min(end, GetTickCount64() + 500));
    for (const RejectedWindow& window : windows) {
        explanation.misses.push_back(Describe(call.searches[window.search], window));
    }
    const auto hasTime = [&] { return GetTickCount64() + kMillisecondsForLine < end; };
    for (std::size_t index = 0; index < windows.size() && explanation.line.empty() && hasTime(); ++index) {
        std::string& line = explanation.misses[index].line;
        const RejectedWindow& window = windows[index];
        // To verify a line the search runs once more, which may ask the program.
        const bool mayAsk = searches[window.search].customTest == nullptr || Answers(window.window);
        if (mayAsk) {
            line = MendedLine(call, window);
        }
        const bool isLate = window.rejections.front() == Rejection::Late;
        if (line.empty() && !isLate && index == 0 && hasTime() && Answers(window.window)) {
            line = LineTo(window.window);
        }
        explanation.line = line;
    }
    const WindowCriteria& search = searches.front();
    const bool hasProgram = std::ranges::any_of(windows, &RejectedWindow::hasProgram);
    if (search.parent == nullptr && search.moduleName[0] != '\0' && !hasProgram) {
        explanation.reason = ProgramReason(AnsiToUtf8(search.moduleName));
    }
    return explanation;
}

void FrameNearest(Explanation& explanation, HWND window) {
    if (!explanation.misses.empty() && !IsRectEmpty(&explanation.misses.front().rectangle)) {
        explanation.rectangle = explanation.misses.front().rectangle;
    } else if (IsRectEmpty(&explanation.rectangle) && window != nullptr) {
        GetWindowRect(window, &explanation.rectangle);
    }
}

Explanation Explain(const FailedCall& call) {
    const ULONGLONG end = GetTickCount64() + kMilliseconds;
    if (call.window != nullptr && !IsWindow(call.window)) {
        Explanation explanation;
        explanation.reason = "the window of the object is gone";
        return explanation;
    }
    const bool answers = call.window == nullptr || Answers(call.window);
    Explanation explanation;
    if (GoesByCriteria(call.member) && !call.searches.empty()) {
        explanation = ExplainSearches(call, end);
    } else if (answers) {
        auto found = ExplainNavigation(call, end);
        explanation = found ? *std::move(found) : ExplainItem(call, end).value_or(Explanation());
    }
    if (!answers) {
        explanation.reason = "the program does not answer";
    }
    return explanation;
}

} // namespace

Explanation ExplainNothing(const FailedCall& call) {
    // For its line. An item of a bar needs to know which it is.
    const bool needsWay = call.reached.empty() && call.window != nullptr && call.kind != "ControlBarItem" &&
                          Answers(call.window);
    FailedCall reachedCall = call;
    if (needsWay) {
        reachedCall.reached = CallTo(call.window).call;
    }
    Explanation explanation = Explain(reachedCall);
    FrameNearest(explanation, call.window);
    return explanation;
}

} // namespace explain
