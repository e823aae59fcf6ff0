#include "explain/explain_nothing.h"

#include <algorithm>

#include "explain/failed_call.h"
#include "explain/utf8.h"
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

bool IsSame(const WindowCriteria& one, const WindowCriteria& other) {
    return one.flags == other.flags && one.parent == other.parent && one.controlId == other.controlId &&
           one.customTest == other.customTest && std::string_view(one.className) == other.className &&
           std::string_view(one.caption) == other.caption &&
           std::string_view(one.moduleName) == other.moduleName;
}

// A wait repeats its searches.
std::vector<WindowCriteria> WithoutRepetitions(std::span<const WindowCriteria> searches) {
    std::vector<WindowCriteria> once;
    for (const WindowCriteria& search : searches) {
        if (std::ranges::none_of(once, [&](const WindowCriteria& known) { return IsSame(known, search); })) {
            once.push_back(search);
        }
    }
    return once;
}

Explanation ExplainSearches(const FailedCall& repeatedCall, ULONGLONG end) {
    const auto searches = WithoutRepetitions(repeatedCall.searches);
    FailedCall call = repeatedCall;
    call.searches = searches;
    Explanation explanation;
    explanation.wanted = WantedBy(call.searches);
    const auto windows = RejectedWindows(call.searches, kMostMisses, (std::min)(end, GetTickCount64() + 500));
    for (const RejectedWindow& window : windows) {
        explanation.misses.push_back(Describe(call.searches[window.search], window));
    }
    for (std::size_t index = 0; index < windows.size() && explanation.line.empty(); ++index) {
        if (GetTickCount64() + kMillisecondsForLine > end) {
            break;
        }
        explanation.misses[index].line = MendedLine(call, windows[index]);
        explanation.line = explanation.misses[index].line;
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
    Explanation explanation = Explain(call);
    FrameNearest(explanation, call.window);
    return explanation;
}

} // namespace explain
