#include "explain/window_call.h"

#include <algorithm>
#include <chrono>
#include <map>
#include <optional>
#include <tuple>
#include <utility>

#include "engine/window_finders.h"
#include "explain/call_members.h"
#include "explain/call_text.h"
#include "explain/call_ways.h"
#include "explain/seen_windows.h"
#include "explain/utf8.h"
#include "explain/window_facts.h"
#include "hostlink/host_classes.h"
#include "hostlink/window_kind.h"

namespace explain {

namespace {

// Calls of which more than these fail when they are run belong to windows that change too quickly.
constexpr std::size_t kMostTried = 6;

std::size_t LengthOf(const Call& call) {
    return CallText(call, Language::VBScript).size();
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
    explicit Planner(double searchSeconds) : m_millisecondsLeft(searchSeconds * 1000) {}

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
        if (m_desktop.Find(root) == nullptr) {
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
                result.kind = KindOfMember(candidate.call.back().member);
                return result;
            }
        }
        result.obstacle = wasSkipped
                              ? "Its program does not answer, and only an answer tells which window it is."
                              : "No call was found that a search follows to it.";
        return result;
    }

private:
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
        return ThreadAnswers(window) && std::ranges::all_of(m_desktop.Windows(), [&](const SeenWindow& top) {
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

    std::vector<Candidate> CandidatesForTopLevel(HWND window) {
        const SeenWindow* const found = m_desktop.Find(window);
        if (found == nullptr) {
            return {};
        }
        const SeenWindow& seen = *found;
        const std::string file = m_desktop.ProgramOf(window);
        const std::string stem = file.substr(0, file.find_last_of('.'));
        const std::string caption = WritableCaption(seen);
        const std::string className(StablePart(seen.ClassName()));
        const std::uint32_t flags = (seen.Parent() != nullptr ? engine::kTopLevelWithParent : 0u) |
                                    (seen.IsVisible() ? 0u : engine::kIncludeHidden);

        std::vector<Candidate> candidates;
        std::multimap<std::size_t, Candidate> lookAlike; // by how many do
        const auto add = [&](const std::string& program, const std::string& wantedCaption,
                             const std::string& wantedClass) {
            const Standing standing = m_desktop.StandingOf(seen, program, wantedCaption, wantedClass);
            if (standing.position == 0 || standing.position > kLargestOccurrence) {
                return;
            }
            const auto occurrence = static_cast<std::uint32_t>(standing.position > 1 ? standing.position : 0);
            Candidate candidate{{MakeStep("MainWindow",
                                          {AnsiToUtf8(program), AnsiToUtf8(wantedCaption),
                                           AnsiToUtf8(wantedClass), Flags{flags | occurrence << 16}},
                                          1)},
                                standing.count > 1};
            if (candidate.isOrdinal) {
                lookAlike.emplace(standing.count, std::move(candidate));
            } else {
                candidates.push_back(std::move(candidate));
            }
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
        for (auto& [count, candidate] : lookAlike) {
            candidates.push_back(std::move(candidate));
        }
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
        const auto& windows = m_desktop.Windows();
        const auto found = std::ranges::find_if(windows, [&](const SeenWindow& seen) {
            return seen.Window() != window && seen.IsVisible() && seen.Parent() == nullptr &&
                   GetWindowThreadProcessId(seen.Window(), nullptr) == threadId &&
                   !hostlink::IsMenuClass(hostlink::WindowClass(seen.Window()));
        });
        return found == windows.end() ? nullptr : found->Window();
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

    // Of the ways to tell the window from `from` the first that tells it alone. Else the first one that says
    // something, with the window's place in the order of those that are told alike; true then.
    std::optional<std::pair<Step, bool>> StepTo(const SeenWindow& seen, HWND from,
                                                const SeenDescendants& below, const FindingMember& member) {
        // A search that asks every window counts none, and is run once instead of thought through.
        const bool asksAll = member.asks && member.classes.empty();
        std::optional<Step> ordinal;
        const auto ways = WaysToWant(member, seen, seen.Parent() != from, !seen.IsVisible());
        for (const Wanted& wanted : ways) {
            const bool isBare = wanted.id == 0 && wanted.caption.empty() && wanted.className.empty();
            if (isBare && asksAll) {
                ordinal = ordinal ? ordinal : StepFor(wanted, 0);
                continue;
            }
            const Standing standing = below.StandingOf(seen.Window(), from, wanted,
                                                       [&](HWND window) { return IsOfKind(window, wanted); });
            if (standing.count == 1 && standing.position == 1) {
                return std::pair(StepFor(wanted, 0), false);
            }
            const bool isCounted =
                standing.position > 0 && standing.position <= (asksAll ? 1 : kLargestOccurrence);
            if (isCounted && !ordinal && (!isBare || &wanted == &ways.back())) {
                ordinal = StepFor(wanted, standing.position > 1 ? standing.position : 0);
            }
        }
        return ordinal ? std::optional(std::pair(*ordinal, true)) : std::nullopt;
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
        // An order changes when a window comes to the front, and the call would then silently lead to
        // another.
        std::ranges::stable_sort(lookAlike, {}, [](const Candidate& candidate) {
            return std::tuple(candidate.isOrdinal, candidate.call.size(), LengthOf(candidate.call));
        });
        candidates.insert(candidates.end(), lookAlike.begin(), lookAlike.end());
    }

    double m_millisecondsLeft; // for searches
    SeenDesktop m_desktop;
    std::map<HWND, SeenDescendants> m_below;
    std::map<HWND, std::string_view> m_kinds;
    std::map<DWORD, bool> m_answers;                         // by thread
    std::map<HWND, std::optional<Candidate>> m_best;         // those that were followed
    std::map<std::string, std::pair<HWND, double>> m_passed; // by the call's text, with its milliseconds
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
