#include "explain/window_call.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <map>
#include <optional>
#include <tuple>
#include <utility>

#include "controlbars/popup_menu.h"
#include "engine/enumerate.h"
#include "engine/program_name.h"
#include "engine/search_text.h"
#include "engine/window_finders.h"
#include "explain/call_members.h"
#include "explain/call_text.h"
#include "explain/seen_windows.h"
#include "explain/utf8.h"
#include "explain/window_facts.h"
#include "hostlink/host_classes.h"
#include "hostlink/host_text.h"
#include "hostlink/window_kind.h"

namespace explain {

namespace {

// Calls of which more than these fail when they are run belong to windows that change too quickly.
constexpr std::size_t kMostTried = 6;
constexpr std::size_t kLargestOccurrence = 0xFFFF;
// An id beyond 16 bits cannot be named in a command: it is a number that the program made up for itself.
constexpr std::int64_t kLargestId = 0xFFFF;

std::size_t LengthOf(const Call& call) {
    return CallText(call, Language::VBScript).size();
}

// The part of a class name that stays the same from one run of the program to the next.
std::string_view StablePart(std::string_view className) noexcept {
    for (const std::string_view framework : {"Afx:", "ATL:"}) {
        if (className.starts_with(framework)) {
            return framework;
        }
    }
    if (className.starts_with("WindowsForms10.")) {
        return className.substr(0, className.find(".app."));
    }
    return className;
}

// The window's caption as a script can write it, in the system code page; empty if it has none, or one that
// the code page cannot express or a search does not read to its end.
std::string WritableCaption(const SeenWindow& window) {
    const std::string& caption = window.Caption();
    return AnsiToUtf8(caption) == FactsOf(window.Window()).caption ? caption : std::string();
}

bool IsMdiChild(HWND window) noexcept {
    return (hostlink::WindowExtendedStyle(window) & WS_EX_MDICHILD) != 0;
}

// The id, 0 if it tells nothing: those of MDI children are numbered in the order of their opening.
std::int64_t StableId(const SeenWindow& window) noexcept {
    const bool isHandle =
        window.Id() == static_cast<std::int32_t>(reinterpret_cast<INT_PTR>(window.Window()));
    return window.Id() < 1 || window.Id() > kLargestId || isHandle || IsMdiChild(window.Window())
               ? 0
               : window.Id();
}

Flags FlagsOf(bool anyDescendant, bool includeHidden, std::size_t occurrence) noexcept {
    return {(anyDescendant ? engine::kAnyDescendant : 0u) | (includeHidden ? engine::kIncludeHidden : 0u) |
            static_cast<std::uint32_t>(occurrence) << 16};
}

// Leaves out what has its default value at the end; `required` arguments stay.
Step MakeStep(std::string_view member, std::vector<Argument> arguments, std::size_t required) {
    const auto isDefault = [](const Argument& argument) {
        return argument == Argument(std::string()) || argument == Argument(std::int64_t{0}) ||
               argument == Argument(Flags{0});
    };
    while (arguments.size() > required && isDefault(arguments.back())) {
        arguments.pop_back();
    }
    return {std::string(member), std::move(arguments)};
}

Step StepFor(const Wanted& wanted, std::size_t occurrence) {
    const std::string caption = AnsiToUtf8(wanted.caption);
    const Flags flags = FlagsOf(wanted.anyDescendant, wanted.includeHidden, occurrence);
    const std::string_view name = wanted.member->name;
    switch (wanted.member->shape) {
    case Shape::None:
        return {std::string(name), {}};
    case Shape::IdFlags:
        return MakeStep(name, {wanted.id, flags}, 0);
    case Shape::CaptionIdFlags:
        return MakeStep(name, {caption, wanted.id, flags}, 0);
    case Shape::RequiredCaptionIdFlags:
        return MakeStep(name, {caption, wanted.id, flags}, 1);
    case Shape::CaptionClassIdFlags:
        return MakeStep(name, {caption, AnsiToUtf8(wanted.className), wanted.id, flags}, 1);
    }
    return {};
}

// The ways to tell a window, the most stable first: by nothing but its kind where that needs no argument
// at all, by its id, its caption, its class.
std::vector<Wanted> WaysToWant(const FindingMember& member, const SeenWindow& window, bool anyDescendant,
                               bool includeHidden) {
    const bool takesCaption = member.shape != Shape::IdFlags && member.shape != Shape::None;
    const bool takesClass = member.shape == Shape::CaptionClassIdFlags;
    const std::int64_t id = member.shape == Shape::None ? 0 : StableId(window);
    const std::string caption = takesCaption ? WritableCaption(window) : std::string();
    const std::string className = takesClass ? std::string(StablePart(window.ClassName())) : std::string();
    std::vector<Wanted> ways;
    const auto add = [&](bool isPossible, const std::string& wantedCaption, const std::string& wantedClass,
                         std::int64_t wantedId) {
        if (isPossible) {
            ways.push_back({&member, wantedCaption, wantedClass, wantedId, anyDescendant, includeHidden});
        }
    };
    const bool needsNoFlags = !anyDescendant && !includeHidden;
    add(needsNoFlags && (member.shape == Shape::IdFlags || member.shape == Shape::CaptionIdFlags), "", "", 0);
    add(id > 0, "", "", id);
    add(id > 0 && takesClass, "", className, id);
    add(!caption.empty(), caption, "", 0);
    add(!caption.empty() && id > 0, caption, "", id);
    add(!takesClass, "", "", 0);
    add(takesClass, "", className, 0);
    add(takesClass && !caption.empty(), caption, className, 0);
    add(takesClass && !caption.empty() && id > 0, caption, className, id);
    return ways;
}

struct Candidate {
    Call call;
    bool isOrdinal = false; // it finds the window by its place in an order

    Candidate Then(Step step, bool stepIsOrdinal) const {
        Candidate longer = *this;
        longer.call.push_back(std::move(step));
        longer.isOrdinal = isOrdinal || stepIsOrdinal;
        return longer;
    }
};

} // namespace

class CallFinder::Planner {
public:
    explicit Planner(double searchSeconds) : m_millisecondsLeft(searchSeconds * 1000) {
        engine::EnumerateWindows(nullptr, [&](HWND window) {
            m_topLevel.emplace_back(window);
            return true;
        });
    }

    std::string_view Kind(HWND window) {
        const auto known = m_kinds.find(window);
        return known != m_kinds.end()
                   ? known->second
                   : m_kinds.emplace(window, KindOf(window, ThreadAnswers(window))).first->second;
    }

    WindowCall CallTo(HWND window) {
        WindowCall result;
        if (!IsWindow(window)) {
            result.obstacle = "The window is gone.";
            return result;
        }
        result.kind = Kind(window);
        const HWND root = GetAncestor(window, GA_ROOT);
        if (FindTopLevel(root) == nullptr) {
            result.obstacle = "It does not stand on the desktop: no search sees it.";
            return result;
        }
        bool wasSkipped = false;
        std::size_t tried = 0;
        for (const Candidate& candidate : CandidatesFor(window)) {
            if (tried == kMostTried) {
                break;
            }
            if (Asks(candidate.call) && !ProgramAnswers(window)) {
                wasSkipped = true;
                continue;
            }
            ++tried;
            const auto milliseconds = Verify(candidate.call, window);
            if (milliseconds || m_millisecondsLeft <= 0) {
                result.call = candidate.call;
                result.milliseconds = milliseconds.value_or(0);
                result.isVerified = milliseconds.has_value();
                const FindingMember* const last = MemberByName(candidate.call.back().member);
                result.kind = last != nullptr && last->kind != "BaseWindow" ? last->kind : result.kind;
                return result;
            }
        }
        result.obstacle = wasSkipped
                              ? "Its program does not answer, and only an answer tells which window it is."
                              : "No call was found that a search follows to it.";
        return result;
    }

private:
    const SeenWindow* FindTopLevel(HWND window) const {
        const auto found = std::ranges::find(m_topLevel, window, &SeenWindow::Window);
        return found == m_topLevel.end() ? nullptr : &*found;
    }

    const SeenDescendants& Below(HWND topLevel) {
        const auto known = m_below.find(topLevel);
        return known != m_below.end() ? known->second : m_below.try_emplace(topLevel, topLevel).first->second;
    }

    bool ThreadAnswers(HWND window) {
        const DWORD threadId = GetWindowThreadProcessId(window, nullptr);
        const auto known = m_answers.find(threadId);
        return known != m_answers.end() ? known->second
                                        : m_answers.emplace(threadId, Answers(window)).first->second;
    }

    // All its threads that have windows on the desktop: a search may ask any of them.
    bool ProgramAnswers(HWND window) {
        const DWORD processId = hostlink::ProcessOf(window);
        return ThreadAnswers(window) && std::ranges::all_of(m_topLevel, [&](const SeenWindow& top) {
                   return hostlink::ProcessOf(top.Window()) != processId || ThreadAnswers(top.Window());
               });
    }

    // Whether a search of the call asks the windows themselves.
    static bool Asks(const Call& call) {
        return std::ranges::any_of(call, [](const Step& step) {
            const FindingMember* const member = MemberByName(step.member);
            return member != nullptr ? member->asks
                                     : step.member == "ActiveDocument" || step.member == "CurrentContextMenu";
        });
    }

    // The time in milliseconds, none if the call leads elsewhere. The windows that it passes on its way are
    // looked for once.
    std::optional<double> Verify(const Call& call, HWND window) {
        if (m_millisecondsLeft <= 0) {
            return std::nullopt;
        }
        double milliseconds = 0;
        HWND current = nullptr;
        Call passed;
        for (const Step& step : call) {
            passed.push_back(step);
            const bool isLast = passed.size() == call.size();
            const std::string key = isLast ? std::string() : CallText(passed, Language::VBScript);
            auto known = isLast ? m_passed.end() : m_passed.find(key);
            if (known == m_passed.end()) {
                const auto start = std::chrono::steady_clock::now();
                current = FollowStep(current, step);
                const std::chrono::duration<double, std::milli> taken =
                    std::chrono::steady_clock::now() - start;
                milliseconds += taken.count();
                m_millisecondsLeft -= taken.count();
                if (!isLast) {
                    m_passed.emplace(key, std::pair(current, taken.count()));
                }
            } else {
                current = known->second.first;
                milliseconds += known->second.second;
            }
            if (current == nullptr) {
                return std::nullopt;
            }
        }
        return current == window ? std::optional(milliseconds) : std::nullopt;
    }

    // The first one is the best.
    std::vector<Candidate> CandidatesFor(HWND window) {
        const HWND root = GetAncestor(window, GA_ROOT);
        return window == root ? CandidatesForTopLevel(window) : CandidatesForChild(window, root);
    }

    // None while it is looked for itself.
    std::optional<Candidate> Best(HWND window) {
        const auto known = m_best.find(window);
        if (known != m_best.end()) {
            return known->second;
        }
        m_best.emplace(window, std::nullopt);
        for (const Candidate& candidate : CandidatesFor(window)) {
            const bool mayRun = !Asks(candidate.call) || ProgramAnswers(window);
            if (mayRun && (Verify(candidate.call, window) || m_millisecondsLeft <= 0)) {
                return m_best[window] = candidate;
            }
        }
        return std::nullopt;
    }

    // Top-level windows

    bool IsProgram(HWND window, const std::string& prefix) {
        return _strnicmp(prefix.c_str(), m_programs.NameOf(window).c_str(), prefix.size()) == 0;
    }

    Standing StandingOfTopLevel(const SeenWindow& wanted, const std::string& program,
                                const std::string& caption, const std::string& className) {
        Standing standing;
        for (const SeenWindow& seen : m_topLevel) {
            if ((wanted.Parent() != nullptr || seen.Parent() == nullptr) &&
                (!wanted.IsVisible() || seen.IsVisible()) && IsProgram(seen.Window(), program) &&
                engine::HasWantedText(seen.ClassName().c_str(), className.c_str(), true) &&
                (caption.empty() || engine::HasWantedText(seen.Caption().c_str(), caption.c_str(), true))) {
                ++standing.count;
                standing.position = &seen == &wanted ? standing.count : standing.position;
            }
        }
        return standing;
    }

    std::vector<Candidate> CandidatesForTopLevel(HWND window) {
        const SeenWindow* const found = FindTopLevel(window);
        if (found == nullptr) {
            return {};
        }
        const SeenWindow& seen = *found;
        const std::string file = m_programs.NameOf(window);
        const std::string stem = file.substr(0, file.find_last_of('.'));
        const std::string caption = WritableCaption(seen);
        const std::string className(StablePart(seen.ClassName()));
        const std::uint32_t flags = (seen.Parent() != nullptr ? engine::kTopLevelWithParent : 0u) |
                                    (seen.IsVisible() ? 0u : engine::kIncludeHidden);

        std::vector<Candidate> candidates;
        std::vector<Candidate> ordinals;
        const auto add = [&](const std::string& program, const std::string& wantedCaption,
                             const std::string& wantedClass) {
            const Standing standing = StandingOfTopLevel(seen, program, wantedCaption, wantedClass);
            if (standing.position == 0 || standing.position > kLargestOccurrence) {
                return;
            }
            const bool isOrdinal = standing.count > 1;
            const auto occurrence = static_cast<std::uint32_t>(standing.position > 1 ? standing.position : 0);
            Step step = MakeStep("MainWindow",
                                 {AnsiToUtf8(program), AnsiToUtf8(wantedCaption), AnsiToUtf8(wantedClass),
                                  Flags{flags | occurrence << 16}},
                                 1);
            (isOrdinal ? ordinals : candidates).push_back({{std::move(step)}, isOrdinal});
        };
        if (hostlink::IsMenuClass(hostlink::WindowClass(window)) || Kind(window) == "OpenSaveDialog") {
            AddFromOtherWindows(candidates, seen);
        }
        for (const std::string* program : {&stem, &file}) {
            add(*program, "", "");
        }
        if (!caption.empty()) {
            add(stem, caption, "");
        }
        add(stem, "", className);
        if (!caption.empty()) {
            add(stem, caption, className);
        }
        if (candidates.empty()) {
            AddFromOtherWindows(candidates, seen);
        }
        std::ranges::stable_sort(ordinals, {}, [&](const Candidate& candidate) {
            return std::get<Flags>(candidate.call.front().arguments.size() == 4
                                       ? candidate.call.front().arguments[3]
                                       : Argument(Flags{0}))
                .value;
        });
        candidates.insert(candidates.end(), ordinals.begin(), ordinals.end());
        return candidates;
    }

    // From another top-level window of the program: by being the active dialog, or the open menu.
    void AddFromOtherWindows(std::vector<Candidate>& candidates, const SeenWindow& seen) {
        const HWND window = seen.Window();
        const bool isMenu = hostlink::IsMenuClass(hostlink::WindowClass(window));
        const HWND from =
            seen.Parent() != nullptr ? GetAncestor(seen.Parent(), GA_ROOT) : OtherWindowOf(window);
        const std::optional<Candidate> base = from == nullptr ? std::nullopt : Best(from);
        if (!base) {
            return;
        }
        if (isMenu) {
            candidates.push_back(base->Then({"CurrentContextMenu", {}}, false));
            return;
        }
        if (Kind(window) == "OpenSaveDialog") {
            candidates.push_back(base->Then({"OpenSaveDialog", {}}, false));
        }
        candidates.push_back(base->Then({"ActiveDialog", {}}, false));
    }

    // A visible window of the same thread that is no menu and has no owner.
    HWND OtherWindowOf(HWND window) const {
        const DWORD threadId = GetWindowThreadProcessId(window, nullptr);
        const auto found = std::ranges::find_if(m_topLevel, [&](const SeenWindow& seen) {
            return seen.Window() != window && seen.IsVisible() && seen.Parent() == nullptr &&
                   GetWindowThreadProcessId(seen.Window(), nullptr) == threadId &&
                   !hostlink::IsMenuClass(hostlink::WindowClass(seen.Window()));
        });
        return found == m_topLevel.end() ? nullptr : found->Window();
    }

    // Child windows

    const FindingMember& MemberFor(const SeenWindow& seen) {
        const std::string_view kind = Kind(seen.Window());
        if (kind != "BaseWindow" && kind != "OpenSaveDialog") {
            return *MemberForKind(kind);
        }
        for (const std::string_view name : {"Edit", "Button", "ChildDialog"}) {
            const FindingMember& member = *MemberByName(name);
            if (seen.ClassName().find(member.classes.front().name) != std::string::npos) {
                return member;
            }
        }
        return *MemberByName("ChildWindow");
    }

    // Whether the member's search takes a window of the right class for one of its kind.
    bool IsOfKind(HWND window, const Wanted& wanted) {
        if (wanted.member->name == "CheckBox") {
            return wanted.id > 0 || engine::IsCheckBox(window);
        }
        return !wanted.member->asks || Kind(window) == wanted.member->kind;
    }

    // Of the ways to tell the window from `from` the first that tells it alone. Else the first one with the
    // window's place in the order of those that are told alike.
    std::optional<std::pair<Step, bool>> StepTo(const SeenWindow& seen, HWND from,
                                                const SeenDescendants& below, const FindingMember& member) {
        const bool anyDescendant = seen.Parent() != from;
        std::optional<Step> ordinal;
        for (const Wanted& wanted : WaysToWant(member, seen, anyDescendant, !seen.IsVisible())) {
            if (member.asks && wanted.id < 1 && member.classes.empty()) {
                // Every window would have to be asked: the search itself will do that once.
                if (!ordinal) {
                    ordinal = StepFor(wanted, 0);
                }
                continue;
            }
            const Standing standing = below.StandingOf(seen.Window(), from, wanted,
                                                       [&](HWND window) { return IsOfKind(window, wanted); });
            if (standing.count == 1 && standing.position == 1) {
                return std::pair(StepFor(wanted, 0), false);
            }
            const bool isSure =
                !ordinal && standing.position > 0 &&
                standing.position <= (member.classes.empty() && member.asks ? 1 : kLargestOccurrence);
            // "The first" is no number, but what comes before it may be another thing tomorrow.
            if (isSure && (wanted.id > 0 || !wanted.caption.empty() || IsLastWay(wanted, seen))) {
                ordinal = StepFor(wanted, standing.position > 1 ? standing.position : 0);
            }
        }
        return ordinal ? std::optional(std::pair(*ordinal, true)) : std::nullopt;
    }

    static bool IsLastWay(const Wanted& wanted, const SeenWindow& seen) {
        return StableId(seen) == 0 || wanted.member->shape == Shape::None;
    }

    std::vector<Candidate> CandidatesForChild(HWND window, HWND root) {
        const SeenDescendants& below = Below(root);
        const SeenWindow* const seen = below.Find(window);
        if (seen == nullptr) {
            return {};
        }
        std::vector<Candidate> candidates;
        AddActiveDocument(candidates, window);
        AddByMember(candidates, *seen, below, MemberFor(*seen));
        if (candidates.empty()) {
            AddByMember(candidates, *seen, below, *MemberByName("ChildWindow"));
        }
        return candidates;
    }

    void AddActiveDocument(std::vector<Candidate>& candidates, HWND window) {
        const HWND client = GetAncestor(window, GA_PARENT);
        if (!IsMdiChild(window) || !ThreadAnswers(client)) {
            return;
        }
        const HWND frame = GetParent(client);
        const std::optional<Candidate> base = Best(frame);
        if (base && reinterpret_cast<HWND>(SendMessageA(client, WM_MDIGETACTIVE, 0, 0)) == window) {
            candidates.push_back(base->Then({"ActiveDocument", {}}, false));
        }
    }

    void AddByMember(std::vector<Candidate>& candidates, const SeenWindow& seen, const SeenDescendants& below,
                     const FindingMember& member) {
        std::vector<Candidate> lookAlike;
        std::vector<HWND> ancestors = below.Ancestors(seen.Window());
        const HWND parent = ancestors.front();
        std::ranges::reverse(ancestors);
        for (const HWND from : ancestors) {
            const auto step = StepTo(seen, from, below, member);
            const bool isEnd = from == ancestors.front() || from == parent;
            if (!step || (step->second && !isEnd)) {
                continue;
            }
            const std::optional<Candidate> base = Best(from);
            if (!base) {
                continue;
            }
            const Candidate candidate = base->Then(step->first, step->second);
            if (from == ancestors.front() && !candidate.isOrdinal) {
                candidates.push_back(candidate); // told from the top: no longer call is better
                return;
            }
            lookAlike.push_back(candidate);
        }
        // An order changes when a window comes to the front, and the call would then silently lead to another.
        std::ranges::stable_sort(lookAlike, {}, [](const Candidate& candidate) {
            return std::tuple(candidate.isOrdinal, candidate.call.size(), LengthOf(candidate.call));
        });
        candidates.insert(candidates.end(), lookAlike.begin(), lookAlike.end());
    }

    double m_millisecondsLeft;          // for searches
    std::vector<SeenWindow> m_topLevel; // from the front to the back
    std::map<HWND, SeenDescendants> m_below;
    std::map<HWND, std::string_view> m_kinds;
    std::map<DWORD, bool> m_answers;                         // by thread
    std::map<HWND, std::optional<Candidate>> m_best;         // those that were followed
    std::map<std::string, std::pair<HWND, double>> m_passed; // by the call's text, with its milliseconds
    engine::ProgramNames m_programs;
};

CallFinder::CallFinder(double searchSeconds) : m_planner(std::make_unique<Planner>(searchSeconds)) {}
CallFinder::~CallFinder() = default;

WindowCall CallFinder::CallTo(HWND window) {
    return m_planner->CallTo(window);
}

std::string_view CallFinder::Kind(HWND window) {
    return m_planner->Kind(window);
}

WindowCall CallTo(HWND window) {
    return CallFinder().CallTo(window);
}

} // namespace explain
