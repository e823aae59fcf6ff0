#include "explain/nearest_misses.h"

#include <algorithm>
#include <cstdio>
#include <deque>
#include <map>
#include <unordered_set>

#include "engine/enumerate.h"
#include "explain/utf8.h"
#include "explain/window_facts.h"
#include "hostlink/host_classes.h"
#include "hostlink/window_kind.h"

namespace explain {

namespace {

using engine::WindowCriteria;
using engine::WindowTest;

constexpr ULONGLONG kMilliseconds = 500;
constexpr std::size_t kLongestQuoted = 60; // bytes

std::string ClassOf(HWND window) {
    return AnsiToUtf8(hostlink::WindowClass(window).Name());
}

bool Has(const WindowCriteria& search, engine::SearchFlag flag) noexcept {
    return (search.flags & flag) != 0;
}

TextTest TestOf(bool contains) noexcept {
    return contains ? TextTest::Contains : TextTest::Equal;
}

TextComparison CompareCaption(const WindowCriteria& search, HWND window) {
    return Compare(AnsiToUtf8(search.caption), FactsOf(window).caption,
                   TestOf(Has(search, engine::kCaptionContains)));
}

// Everything that the tests of one search say about a window.
class SearchTests {
public:
    explicit SearchTests(const WindowCriteria& search) : m_search(search), m_tests(search) {}

    // Ends early for a window that has no place among the nearest.
    int Weigh(HWND window, const NearestList& nearest, RejectedWindow& result);

    std::uint32_t Matches() const noexcept { return m_matches; }
    bool HasProgram() const noexcept { return m_hasProgram; }

private:
    Rejection PlaceRejection(HWND window) const;
    int ProgramDistance(HWND window);
    int DistanceOf(WindowTest test, HWND window);
    bool PassesCustomTest(HWND window, RejectedWindow& result);
    bool IsAnswering(HWND window);

    const WindowCriteria& m_search;
    engine::WindowTests m_tests;
    std::map<DWORD, bool> m_answers; // by thread
    std::uint32_t m_matches = 0;
    bool m_hasProgram = false;
};

struct OrderedTest {
    WindowTest test;
    Rejection rejection;
};

// What costs little, or takes a window out of the running, comes first; the custom test is asked last and
// only of windows of the wanted class, as the search does: others may understand the message as something
// else.
constexpr OrderedTest kOrder[] = {
    {WindowTest::Module, Rejection::Program},    {WindowTest::Id, Rejection::Id},
    {WindowTest::Class, Rejection::Class},       {WindowTest::Style, Rejection::Style},
    {WindowTest::Place, Rejection::OtherParent}, {WindowTest::Visibility, Rejection::Hidden},
    {WindowTest::Enabled, Rejection::Disabled},  {WindowTest::Caption, Rejection::Caption}};
static_assert(std::size(kOrder) + 1 == std::size(engine::kWindowTests));

int SearchTests::Weigh(HWND window, const NearestList& nearest, RejectedWindow& result) {
    int weight = 0;
    bool hasClass = true;
    for (const OrderedTest& ordered : kOrder) {
        const bool passes = m_tests.Passes(ordered.test, window);
        m_hasProgram = m_hasProgram || (ordered.test == WindowTest::Module && passes);
        if (passes) {
            continue;
        }
        const Rejection rejection =
            ordered.test == WindowTest::Place ? PlaceRejection(window) : ordered.rejection;
        hasClass = hasClass && ordered.test != WindowTest::Class;
        result.rejections.push_back(rejection);
        weight += Weight(rejection, DistanceOf(ordered.test, window));
        if (!nearest.HasPlaceFor(weight)) {
            return weight;
        }
    }
    if (m_search.customTest != nullptr && hasClass && !PassesCustomTest(window, result)) {
        result.rejections.push_back(Rejection::Kind);
        // Where nothing else tells them apart, every window would be as near as the next.
        const bool onlyTest = Has(m_search, engine::kIgnoreClass) && Has(m_search, engine::kIgnoreId);
        weight += onlyTest ? NearestList::kFarthest + 1 : Weight(Rejection::Kind);
    }
    if (result.rejections.empty()) {
        ++m_matches;
        const std::uint32_t wanted = m_search.flags >> 16;
        const auto rejection = wanted == 0 || m_matches == wanted ? Rejection::Late : Rejection::Occurrence;
        result.rejections.push_back(rejection);
        weight = Weight(rejection);
    }
    return weight;
}

Rejection SearchTests::PlaceRejection(HWND window) const {
    const HWND parent = m_search.parent;
    if (parent == nullptr || GetParent(window) == parent) {
        return Rejection::Owned;
    }
    return IsChild(parent, window) ? Rejection::NotDirectChild : Rejection::OtherParent;
}

int SearchTests::ProgramDistance(HWND window) {
    const std::string& name = m_tests.ProgramOf(window);
    constexpr int kUnreadable = 500; // it may be the wanted one
    return name.empty()
               ? kUnreadable
               : Compare(AnsiToUtf8(m_search.moduleName), AnsiToUtf8(name), TextTest::BeginsWith).distance;
}

int SearchTests::DistanceOf(WindowTest test, HWND window) {
    switch (test) {
    case WindowTest::Caption:
        return CompareCaption(m_search, window).distance;
    case WindowTest::Class:
        return Compare(AnsiToUtf8(m_search.className), ClassOf(window),
                       TestOf(Has(m_search, engine::kClassContains)))
            .distance;
    case WindowTest::Id:
        return Compare(std::to_string(m_search.controlId), std::to_string(GetWindowLongPtrA(window, GWLP_ID)),
                       TextTest::Equal)
            .distance;
    case WindowTest::Module:
        return ProgramDistance(window);
    default:
        return 0;
    }
}

bool SearchTests::PassesCustomTest(HWND window, RejectedWindow& result) {
    result.hasUnaskedProgram = !IsAnswering(window);
    return !result.hasUnaskedProgram && m_tests.Passes(WindowTest::Custom, window);
}

bool SearchTests::IsAnswering(HWND window) {
    const DWORD thread = GetWindowThreadProcessId(window, nullptr);
    const auto known = m_answers.find(thread);
    return known != m_answers.end() ? known->second
                                    : m_answers.emplace(thread, Answers(window)).first->second;
}

// Goes through the windows, each once.
class Walk {
public:
    Walk(std::span<const WindowCriteria> searches, std::size_t most, ULONGLONG end)
        : m_nearest(most), m_end(end), m_tests(searches.begin(), searches.end()) {}

    // The descendants of a window, or the top-level windows of a program, of all programs for 0.
    void VisitDescendants(HWND parent) {
        if (parent != nullptr) {
            engine::EnumerateWindows(parent, [this](HWND window) { return Visit(window); });
        }
    }
    std::vector<HWND> VisitTopLevel(DWORD processId) {
        std::vector<HWND> windows;
        engine::EnumerateWindows(nullptr, [&](HWND window) {
            if (processId != 0 && hostlink::ProcessOf(window) != processId) {
                return true;
            }
            windows.push_back(window);
            return Visit(window);
        });
        return windows;
    }
    bool HasPlaceFor(Rejection rejection) const noexcept { return m_nearest.HasPlaceFor(Weight(rejection)); }

    std::vector<RejectedWindow> Nearest() const {
        std::vector<RejectedWindow> windows;
        for (const std::size_t candidate : m_nearest.Nearest()) {
            RejectedWindow& window = windows.emplace_back(m_candidates[candidate]);
            window.matches = m_tests[window.search].Matches();
            window.hasProgram = m_tests[window.search].HasProgram();
        }
        return windows;
    }

private:
    bool Visit(HWND window) {
        if (GetTickCount64() >= m_end) {
            return false;
        }
        if (!m_visited.insert(window).second) {
            return true;
        }
        int least = NearestList::kFarthest + 1;
        RejectedWindow nearest;
        for (std::size_t search = 0; search < m_tests.size(); ++search) {
            RejectedWindow rejected;
            rejected.window = window;
            rejected.search = search;
            const int weight = m_tests[search].Weigh(window, m_nearest, rejected);
            if (weight < least) {
                least = weight;
                nearest = std::move(rejected);
            }
        }
        if (m_nearest.HasPlaceFor(least)) {
            m_nearest.Add(least, m_candidates.size());
            m_candidates.push_back(std::move(nearest));
        }
        return true;
    }

    NearestList m_nearest;
    ULONGLONG m_end;
    std::deque<SearchTests> m_tests;
    std::unordered_set<HWND> m_visited;
    std::vector<RejectedWindow> m_candidates;
};

// What is said of a miss and what would mend it, put together.
class Sentences {
public:
    Sentences(const WindowCriteria& search, const RejectedWindow& rejected)
        : m_search(search), m_rejected(rejected), m_window(rejected.window) {
        for (const Rejection rejection : rejected.rejections) {
            Say(rejection);
        }
        if (m_addedFlags != 0) {
            m_hints.insert(m_hints.begin(), "add " + Hexadecimal(m_addedFlags) + " to the flags");
        }
    }

    std::vector<std::string> Reasons() && { return std::move(m_reasons); }
    std::string Hint() const {
        std::string hint;
        for (const std::string& part : m_hints) {
            hint.append(hint.empty() ? "" : "; ").append(part);
        }
        return hint;
    }

private:
    void Add(std::string reason, std::string hint = {}) {
        m_reasons.push_back(std::move(reason));
        if (!hint.empty()) {
            m_hints.push_back(std::move(hint));
        }
    }
    void AddFlag(std::string reason, std::uint32_t flag) {
        m_addedFlags |= flag;
        Add(std::move(reason));
    }

    void Say(Rejection rejection);
    void SayHidden();
    void SayOwned();
    void SayOccurrence();
    void SayId();
    void SayCaption();
    void SayProgram();
    void SayOtherParent();
    void SayKind();

    const WindowCriteria& m_search;
    const RejectedWindow& m_rejected;
    HWND m_window;
    std::vector<std::string> m_reasons;
    std::vector<std::string> m_hints;
    std::uint32_t m_addedFlags = 0;
};

void Sentences::Say(Rejection rejection) {
    switch (rejection) {
    case Rejection::Late:
        return Add("is there by now: it came when the time was over", "wait longer");
    case Rejection::Occurrence:
        return SayOccurrence();
    case Rejection::Disabled:
        return Add("is disabled",
                   "leave " + Hexadecimal(engine::kEnabledOnly) + " out of the flags, or wait longer");
    case Rejection::NotDirectChild:
        return AddFlag("is not a direct child of " + NameOf(m_search.parent), engine::kAnyDescendant);
    case Rejection::Owned:
        return SayOwned();
    case Rejection::Hidden:
        return SayHidden();
    case Rejection::Id:
        return SayId();
    case Rejection::Caption:
        return SayCaption();
    case Rejection::Style: {
        const DWORD style = hostlink::WindowStyle(m_window) & engine::kComparedStyles;
        return Add("style " + Hexadecimal(style) + " is not " +
                   Hexadecimal(static_cast<std::uint32_t>(m_search.style)));
    }
    case Rejection::Program:
        return SayProgram();
    case Rejection::OtherParent:
        return SayOtherParent();
    case Rejection::Class:
        return Add(TextReason("class", ClassOf(m_window), AnsiToUtf8(m_search.className),
                              TestOf(Has(m_search, engine::kClassContains))));
    case Rejection::Kind:
        return SayKind();
    }
}

void Sentences::SayOccurrence() {
    const std::string wanted = std::to_string(m_search.flags >> 16);
    const std::string matches = std::to_string(m_rejected.matches);
    Add("only " + matches + " of the " + wanted + " wanted occurrences " +
            (m_rejected.matches == 1 ? "exists" : "exist"),
        "the high half of the flags may be " + matches + " at most");
}

void Sentences::SayOwned() {
    if (m_search.parent == nullptr) {
        AddFlag("has a parent or owner", engine::kTopLevelWithParent);
    } else {
        Add("is owned by " + NameOf(m_search.parent) + ", which is no child at any depth",
            "leave " + Hexadecimal(engine::kAnyDescendant) + " out of the flags");
    }
}

void Sentences::SayHidden() {
    HWND above = m_window;
    while (above != nullptr && (hostlink::WindowStyle(above) & WS_VISIBLE) != 0) {
        above = GetAncestor(above, GA_PARENT);
    }
    AddFlag(above == m_window || above == nullptr ? "is hidden"
                                                  : "lies below a hidden parent, " + NameOf(above),
            engine::kIncludeHidden);
}

void Sentences::SayId() {
    const LONG_PTR id = GetWindowLongPtrA(m_window, GWLP_ID);
    const std::string wanted = std::to_string(m_search.controlId);
    if (id < 1) {
        Add("has no id, " + wanted + " is wanted", "give no id");
    } else {
        Add("id " + std::to_string(id) + " is not " + wanted);
    }
}

void Sentences::SayCaption() {
    const std::string caption = FactsOf(m_window).caption;
    const std::string wanted = AnsiToUtf8(m_search.caption);
    if (caption.empty()) {
        Add("has no caption, " + Quoted(wanted) + " is wanted", "give no caption");
    } else {
        Add(TextReason("caption", caption, wanted, TestOf(Has(m_search, engine::kCaptionContains))));
    }
}

void Sentences::SayProgram() {
    engine::ProgramNames programs;
    const std::string name = AnsiToUtf8(programs.NameOf(m_window));
    const std::string wanted = Quoted(AnsiToUtf8(m_search.moduleName));
    if (name.empty()) {
        Add("the name of its program cannot be read: it has more rights than the script",
            "run both with the same rights");
    } else if (m_rejected.hasProgram) {
        Add("belongs to " + Quoted(name) + ", whose name does not begin with " + wanted);
    } else {
        Add("no program with a window has a file name that begins with " + wanted + "; " + Quoted(name) +
            " runs");
    }
}

void Sentences::SayOtherParent() {
    const std::string wanted = NameOf(m_search.parent);
    const HWND parent = GetParent(m_window);
    if (m_window == m_search.parent) {
        Add("is the window itself in which was looked");
    } else if (parent == nullptr) {
        Add("is neither below " + wanted + " nor owned by it", "look for it with MainWindow");
    } else {
        Add("belongs to " + NameOf(parent) + ", not to " + wanted);
    }
}

std::string_view ButtonKindOf(HWND window) noexcept {
    switch (hostlink::WindowStyle(window) & BS_TYPEMASK) {
    case BS_RADIOBUTTON:
    case BS_AUTORADIOBUTTON:
        return "an option button";
    case BS_GROUPBOX:
        return "a frame";
    case BS_OWNERDRAW:
        return "a button that its program draws";
    default:
        return "a push button";
    }
}

void Sentences::SayKind() {
    const std::string kind(m_search.customKind);
    if (m_rejected.hasUnaskedProgram) {
        Add("cannot be asked what it is: its program does not answer");
    } else if (kind == "check box") {
        Add("is " + std::string(ButtonKindOf(m_window)) + ", no check box");
    } else {
        Add(kind.empty() ? "is of another kind" : "does not answer as a " + kind);
    }
}

} // namespace

std::vector<RejectedWindow> RejectedWindows(std::span<const WindowCriteria> searches, std::size_t most,
                                            ULONGLONG end) {
    if (searches.empty()) {
        return {};
    }
    Walk walk(searches, most, end);
    const HWND parent = searches.front().parent;
    if (parent == nullptr) {
        walk.VisitTopLevel(0);
        return walk.Nearest();
    }
    walk.VisitDescendants(parent);
    const DWORD processId = hostlink::ProcessOf(parent);
    const std::vector<HWND> topLevel = processId != 0 ? walk.VisitTopLevel(processId) : std::vector<HWND>();
    for (const HWND window : topLevel) {
        if (walk.HasPlaceFor(Rejection::OtherParent)) {
            walk.VisitDescendants(window);
        }
    }
    return walk.Nearest();
}

Miss Describe(const WindowCriteria& search, const RejectedWindow& rejected) {
    Miss miss;
    miss.window = rejected.window;
    miss.name = NameOf(rejected.window);
    Sentences sentences(search, rejected);
    miss.hint = sentences.Hint();
    miss.reasons = std::move(sentences).Reasons();
    GetWindowRect(rejected.window, &miss.rectangle);
    return miss;
}

std::vector<Miss> NearestMisses(std::span<const WindowCriteria> searches, std::size_t most) {
    std::vector<Miss> misses;
    for (const RejectedWindow& rejected : RejectedWindows(searches, most, GetTickCount64() + kMilliseconds)) {
        misses.push_back(Describe(searches[rejected.search], rejected));
    }
    return misses;
}

std::string TextReason(std::string_view what, std::string_view actual, std::string_view wanted,
                       TextTest test) {
    std::string reason(what);
    reason.append(" ").append(Quoted(actual));
    reason += test == TextTest::Equal      ? " is not "
              : test == TextTest::Contains ? " does not contain "
                                           : " does not begin with ";
    reason += Quoted(wanted);
    const TextDifference difference = Compare(wanted, actual, test).difference;
    if (difference == TextDifference::Case) {
        reason += ": it differs only in upper and lower case";
    } else if (difference == TextDifference::Marks) {
        reason += ": it differs only in the mark of the key, the dots or the case";
    }
    return reason;
}

std::string NameOf(HWND window) {
    const WindowFacts facts = FactsOf(window);
    if (facts.window == nullptr) {
        return "a window that is gone";
    }
    std::string name = facts.className == hostlink::kDialogClass ? "dialog" : facts.className;
    if (!facts.caption.empty()) {
        name.append(" ").append(Quoted(facts.caption));
    }
    if (facts.controlId != 0) {
        name += " id " + std::to_string(facts.controlId);
    }
    return name;
}

std::string Quoted(std::string_view text) {
    std::string quoted(text.substr(0, kLongestQuoted));
    if (text.size() > kLongestQuoted) {
        while (!quoted.empty() && (static_cast<unsigned char>(text[quoted.size()]) & 0xC0) == 0x80) {
            quoted.pop_back(); // no half character
        }
        quoted += "...";
    }
    std::ranges::replace_if(
        quoted, [](unsigned char byte) { return byte < ' '; }, ' ');
    quoted.insert(0, 1, '\'');
    return quoted += '\'';
}

std::string Hexadecimal(std::uint32_t number) {
    char text[16] = "";
    std::snprintf(text, sizeof text, "&H%X", static_cast<unsigned>(number));
    return text;
}

} // namespace explain
