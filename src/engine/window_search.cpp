#include "engine/window_search.h"

#include <algorithm>
#include <cstring>
#include <iterator>
#include <string>

#include "engine/diagnostics.h"
#include "engine/enumerate.h"
#include "hostlink/host_text.h"
#include "hostlink/window_kind.h"

namespace engine {

namespace {

// One run of a search over the enumerated windows.
class SearchRun {
public:
    explicit SearchRun(WindowCriteria& criteria)
        : m_criteria(criteria), m_tests(criteria), m_describes(diagnostics::SinkListens()) {}

    // How many windows it has looked at.
    int Windows() const noexcept { return m_windows; }

    void Enumerate() {
        const auto visit = [this](HWND window) {
            Visit(window);
            return true;
        };
        const bool onlyTopLevel = (m_criteria.style & WS_CHILD) == 0 && m_criteria.parent == nullptr;
        EnumerateWindows(m_criteria.parent, visit);
        if (!onlyTopLevel && m_criteria.result == nullptr) {
            EnumerateWindows(nullptr, visit);
        }
    }

private:
    void Visit(HWND window) {
        ++m_windows;
        if (m_describes) {
            Describe(window);
        }
        // The wanted occurrence comes only once: with it at hand the other windows need no test.
        if (m_criteria.result == nullptr && Matches(window) && IsWantedOccurrence()) {
            m_criteria.result = window;
        }
    }

    bool Matches(HWND window) {
        return std::all_of(std::begin(kWindowTests), std::end(kWindowTests),
                           [&](WindowTest test) { return m_tests.Passes(test, window); });
    }

    std::uint32_t Occurrence() const noexcept { return m_criteria.flags >> 16; }

    bool IsWantedOccurrence() noexcept {
        if (Occurrence() == 0) {
            return true;
        }
        ++m_criteria.matchCount;
        return m_criteria.matchCount == Occurrence();
    }

    // For the diagnostic sink only; nothing here takes part in the search.
    void Describe(HWND window) {
        char caption[kSearchTextSize] = "";
        char className[kSearchTextSize] = "";
        GetWindowTextA(window, caption, kSearchTextSize);
        GetClassNameA(window, className, kSearchTextSize);
        const int style = static_cast<int>(hostlink::WindowStyle(window) & kComparedStyles);
        std::string text = diagnostics::Format("  Flags: %d\n", static_cast<int>(m_criteria.flags));
        text +=
            "  Process: " + (m_criteria.parent == nullptr ? m_tests.ProgramOf(window) : std::string()) + "\n";
        text += std::string("  Caption: ") + caption + "\n";
        text += std::string("  Class: ") + className + "\n";
        text += diagnostics::Format("  Style: %d\n", style);
        text += diagnostics::Format("  ID: %d\n", static_cast<int>(GetWindowLongPtrA(window, GWLP_ID)));
        if (m_criteria.customTest != nullptr) {
            text += "  Custom function";
        }
        diagnostics::Describe(text);
    }

    WindowCriteria& m_criteria;
    WindowTests m_tests;
    bool m_describes;
    int m_windows = 0;
};

} // namespace

void SetSearchText(char (&field)[kSearchTextSize], std::string_view text) noexcept {
    SetSearchText(field, text, hostlink::SystemCodePage());
}

void WantCaption(WindowCriteria& criteria, std::string_view caption) noexcept {
    SetSearchText(criteria.caption, caption);
    criteria.flags |= caption.empty() ? kIgnoreCaption : kCaptionContains;
}

void WantClass(WindowCriteria& criteria, std::string_view className) noexcept {
    SetSearchText(criteria.className, className);
    criteria.flags |= className.empty() ? kIgnoreClass : kClassContains;
}

void WantId(WindowCriteria& criteria, std::int64_t id) noexcept {
    criteria.controlId = id;
    if (id < 1) {
        criteria.flags |= kIgnoreId;
    }
}

bool HasWantedParent(const WindowCriteria& criteria, HWND window) noexcept {
    if (criteria.parent == nullptr) {
        return (criteria.flags & kTopLevelWithParent) != 0 || GetParent(window) == nullptr;
    }
    return (criteria.flags & kAnyDescendant) != 0 ? IsChild(criteria.parent, window) != FALSE
                                                  : GetParent(window) == criteria.parent;
}

bool HasWantedVisibility(const WindowCriteria& criteria, HWND window) noexcept {
    return (criteria.flags & kIncludeHidden) != 0 || IsWindowVisible(window);
}

bool WindowTests::Passes(WindowTest test, HWND window) {
    switch (test) {
    case WindowTest::Place:
        return HasWantedParent(m_criteria, window);
    case WindowTest::Visibility:
        return HasWantedVisibility(m_criteria, window);
    case WindowTest::Enabled:
        return !Has(kEnabledOnly) || IsWindowEnabled(window);
    case WindowTest::Module:
        return HasWantedModule(window);
    case WindowTest::Caption:
        return HasWantedCaption(window);
    case WindowTest::Class:
        return HasWantedClass(window);
    case WindowTest::Style:
        return Has(kIgnoreStyle) || (hostlink::WindowStyle(window) & kComparedStyles) == m_criteria.style;
    case WindowTest::Id:
        return Has(kIgnoreId) || GetWindowLongPtrA(window, GWLP_ID) == m_criteria.controlId;
    case WindowTest::Custom:
        return m_criteria.customTest == nullptr || m_criteria.customTest(window);
    }
    return false;
}

bool WindowTests::HasWantedModule(HWND window) {
    if (m_criteria.parent != nullptr || m_criteria.moduleName[0] == '\0') {
        return true;
    }
    const std::string& name = ProgramOf(window);
    return _strnicmp(m_criteria.moduleName, name.c_str(), std::strlen(m_criteria.moduleName)) == 0;
}

bool WindowTests::HasWantedCaption(HWND window) const noexcept {
    if (Has(kIgnoreCaption)) {
        return true;
    }
    char text[kSearchTextSize] = "";
    GetWindowTextA(window, text, kSearchTextSize);
    return HasWantedText(text, m_criteria.caption, Has(kCaptionContains));
}

bool WindowTests::HasWantedClass(HWND window) const noexcept {
    if (Has(kIgnoreClass)) {
        return true;
    }
    char text[kSearchTextSize] = "";
    GetClassNameA(window, text, kSearchTextSize);
    return HasWantedText(text, m_criteria.className, Has(kClassContains));
}

bool IsSameSearch(const WindowCriteria& one, const WindowCriteria& other) noexcept {
    return one.parent == other.parent && one.flags == other.flags && one.controlId == other.controlId &&
           one.style == other.style && one.customTest == other.customTest &&
           std::strcmp(one.caption, other.caption) == 0 && std::strcmp(one.className, other.className) == 0 &&
           std::strcmp(one.moduleName, other.moduleName) == 0;
}

bool Search(WindowCriteria& criteria) {
    SearchRun run(criteria);
    run.Enumerate();
    if (diagnostics::Listener* const listener = diagnostics::CurrentListener()) {
        listener->Searched(criteria, run.Windows());
    }
    return criteria.result != nullptr;
}

} // namespace engine
