// The navigations that do not go by criteria: what they look at, and what each window lacks.
#include <algorithm>
#include <functional>

#include <windows.h>

#include <commctrl.h>

#include "engine/enumerate.h"
#include "engine/global_atom.h"
#include "engine/window_finders.h"
#include "engine/window_relations.h"
#include "explain/failed_call.h"
#include "explain/utf8.h"
#include "explain/window_facts.h"
#include "hostlink/host_classes.h"
#include "hostlink/host_text.h"
#include "hostlink/registered_messages.h"
#include "hostlink/window_kind.h"

namespace explain {

namespace {

using Reasons = std::vector<std::string>;

constexpr std::size_t kMostMisses = 5;
constexpr UINT kAnswerMilliseconds = 200;

Miss MissOf(HWND window, Reasons reasons, std::string hint = {}) {
    Miss miss;
    miss.window = window;
    miss.name = NameOf(window);
    miss.reasons = std::move(reasons);
    miss.hint = std::move(hint);
    GetWindowRect(window, &miss.rectangle);
    return miss;
}

// Those with the fewest reasons, the topmost first. `reasonsOf` answers nullopt for a window that is not to
// be named.
std::vector<Miss> TopLevelMisses(DWORD processId, ULONGLONG end,
                                 const std::function<std::optional<Reasons>(HWND)>& reasonsOf) {
    std::vector<Miss> misses;
    engine::EnumerateWindows(nullptr, [&](HWND window) {
        if (hostlink::ProcessOf(window) == processId) {
            if (auto reasons = reasonsOf(window)) {
                misses.push_back(MissOf(window, *std::move(reasons)));
            }
        }
        return GetTickCount64() < end;
    });
    std::ranges::stable_sort(misses, {}, [](const Miss& miss) { return miss.reasons.size(); });
    misses.resize((std::min)(misses.size(), kMostMisses));
    return misses;
}

void AddIf(Reasons& reasons, bool condition, const char* reason) {
    if (condition) {
        reasons.emplace_back(reason);
    }
}

// What ActiveDialog asks of a window. Nothing for one that is not even like a dialog.
std::optional<Reasons> DialogReasons(HWND window) {
    const bool isPopup = (hostlink::WindowStyle(window) & WS_POPUP) != 0;
    const bool isDialog = hostlink::IsDialogClass(hostlink::WindowClass(window));
    const bool passes = hostlink::IsPopupDialog(window);
    if (!passes && !isDialog && (!isPopup || !IsWindowVisible(window))) {
        return std::nullopt;
    }
    Reasons reasons;
    AddIf(reasons, !isPopup, "is no popup window");
    AddIf(reasons, !passes && (isPopup || isDialog), "has no dialog's frame (DS_MODALFRAME)");
    AddIf(reasons, !IsWindowVisible(window), "is hidden");
    AddIf(reasons, !IsWindowEnabled(window), "is disabled");
    AddIf(reasons, reasons.empty(), "is there by now: it came when the time was over");
    return reasons;
}

// The call that reaches a top-level window by its program and caption, verified by the search.
std::string MainWindowLine(HWND window) {
    engine::ProgramNames programs;
    const std::string program = programs.NameOf(window);
    const std::string caption = hostlink::ToAnsi(ToUtf16(FactsOf(window).caption));
    const std::uint32_t flags = (GetParent(window) != nullptr ? engine::kTopLevelWithParent : 0u) |
                                (IsWindowVisible(window) ? 0u : engine::kIncludeHidden);
    if (caption.empty() || engine::FindMainWindow(program, caption, "", flags) != window) {
        return {};
    }
    Step step{"MainWindow", {AnsiToUtf8(program), AnsiToUtf8(caption)}};
    if (flags != 0) {
        step.arguments.emplace_back(std::string());
        step.arguments.emplace_back(Flags{flags});
    }
    FailedCall fromTheEntry;
    return LineOf(fromTheEntry, {step});
}

Explanation ExplainActiveDialog(const FailedCall& call, ULONGLONG end) {
    Explanation explanation;
    explanation.wanted =
        "a visible, enabled popup with a dialog's frame in the program of " + NameOf(call.window);
    if (GetAncestor(call.window, GA_PARENT) != GetDesktopWindow()) {
        explanation.reason =
            "a child window was asked: only windows beside it were looked at; ask the main window";
        if (!call.reached.empty()) {
            FailedCall ofMainWindow = call;
            ofMainWindow.reached.resize(1);
            explanation.line = LineOf(ofMainWindow, {Step{call.member, call.arguments}});
        }
    } else {
        GUITHREADINFO thread = {};
        thread.cbSize = sizeof thread;
        GetGUIThreadInfo(GetWindowThreadProcessId(call.window, nullptr), &thread);
        explanation.reason = thread.hwndActive == nullptr
                                 ? "no window of the program is active"
                                 : "the active window is " + NameOf(thread.hwndActive);
    }
    explanation.misses = TopLevelMisses(hostlink::ProcessOf(call.window), end, DialogReasons);
    for (Miss& miss : explanation.misses) {
        miss.line = GetTickCount64() < end ? MainWindowLine(miss.window) : std::string();
        if (explanation.line.empty()) {
            explanation.line = miss.line;
        }
    }
    return explanation;
}

bool HasDescendant(HWND window, std::initializer_list<int> ids) {
    bool found = false;
    engine::EnumerateWindows(window, [&](HWND child) {
        found = std::ranges::find(ids, GetDlgCtrlID(child)) != ids.end() && IsWindowVisible(child);
        return !found;
    });
    return found;
}

std::optional<Reasons> FileDialogReasons(HWND window) {
    if (!hostlink::IsDialogClass(hostlink::WindowClass(window))) {
        return std::nullopt;
    }
    Reasons reasons;
    AddIf(reasons, (hostlink::WindowStyle(window) & WS_POPUP) == 0, "is no popup window");
    AddIf(reasons, !IsWindowVisible(window), "is hidden");
    AddIf(reasons, !IsWindowEnabled(window), "is disabled");
    AddIf(reasons, !HasDescendant(window, {1148, 1001}), "has no field for the name with id 1148 or 1001");
    AddIf(reasons, GetDlgItem(window, IDOK) == nullptr, "has no button with id 1");
    AddIf(reasons, reasons.empty(), "is there by now: it came when the time was over");
    return reasons;
}

Explanation ExplainOpenSaveDialog(const FailedCall& call, ULONGLONG end) {
    Explanation explanation;
    explanation.wanted = "a dialog that opens or saves a file in the program of " + NameOf(call.window);
    explanation.misses = TopLevelMisses(hostlink::ProcessOf(call.window), end, FileDialogReasons);
    if (explanation.misses.empty()) {
        explanation.reason = "the program shows no dialog";
    }
    return explanation;
}

Explanation ExplainActiveDocument(const FailedCall& call, ULONGLONG) {
    Explanation explanation;
    explanation.wanted = "the active document of " + NameOf(call.window);
    HWND client = nullptr;
    engine::EnumerateWindows(call.window, [&](HWND child) {
        client =
            hostlink::WindowClass(child).Name().find("MDIClient") != std::string_view::npos ? child : nullptr;
        return client == nullptr;
    });
    if (client == nullptr) {
        explanation.reason =
            NameOf(call.window) + " has no window of class 'MDIClient', which would hold documents";
    } else if (GetParent(client) != call.window || !IsWindowVisible(client)) {
        explanation.reason = "the window that holds the documents is hidden or no direct child";
        explanation.misses.push_back(MissOf(
            client,
            {IsWindowVisible(client) ? "is not a direct child of " + NameOf(call.window) : "is hidden"}));
    } else {
        explanation.reason = "no document is active";
        for (HWND child = GetWindow(client, GW_CHILD);
             child != nullptr && explanation.misses.size() < kMostMisses;
             child = GetWindow(child, GW_HWNDNEXT)) {
            explanation.misses.push_back(
                MissOf(child, {IsWindowVisible(child) ? "is not active" : "is hidden"}));
        }
    }
    return explanation;
}

Explanation ExplainMainMenu(const FailedCall& call, ULONGLONG end) {
    Explanation explanation;
    explanation.wanted = "the menu bar of " + NameOf(call.window);
    if ((hostlink::WindowStyle(call.window) & WS_CHILD) != 0) {
        explanation.reason = "a child window has no menu bar: ask the main window";
    } else if (GetMenu(call.window) == nullptr) {
        explanation.reason = "the window has no menu of the system; a program's own menu bar is a tool bar";
    } else {
        explanation.reason = "the window's menu cannot be read from here";
    }
    engine::EnumerateWindows(engine::TopLevelAncestor(call.window), [&](HWND window) {
        const hostlink::WindowClass name(window);
        const bool isBar = hostlink::IsHostBarClass(name) || name.Name() == TOOLBARCLASSNAMEA ||
                           name.Name().find("MenuBar") != std::string_view::npos;
        if (isBar && IsWindowVisible(window)) {
            explanation.misses.push_back(
                MissOf(window, {"is a bar, no menu of the system"}, "look for it with Toolbar"));
        }
        return explanation.misses.size() < kMostMisses && GetTickCount64() < end;
    });
    return explanation;
}

Explanation ExplainOpenMenu(const FailedCall& call, ULONGLONG end) {
    Explanation explanation;
    explanation.wanted = "a menu or popup bar that the thread of " + NameOf(call.window) + " shows";
    explanation.reason = "the program shows no menu";
    const DWORD thread = GetWindowThreadProcessId(call.window, nullptr);
    engine::EnumerateWindows(nullptr, [&](HWND window) {
        if (hostlink::IsMenuClass(hostlink::WindowClass(window)) && IsWindowVisible(window)) {
            explanation.misses.push_back(MissOf(window, {GetWindowThreadProcessId(window, nullptr) == thread
                                                             ? "is there by now"
                                                             : "belongs to another thread or program"}));
        }
        return explanation.misses.size() < kMostMisses && GetTickCount64() < end;
    });
    return explanation;
}

Explanation ExplainContextMenu(const FailedCall& call, ULONGLONG) {
    Explanation explanation;
    explanation.wanted = "the menu that a right click opens in " + NameOf(call.window);
    explanation.reason = !IsWindowVisible(call.window)   ? "the window is hidden"
                         : !IsWindowEnabled(call.window) ? "the window is disabled"
                                                         : "no menu or popup bar opened";
    return explanation;
}

Explanation ExplainName(const FailedCall& call, ULONGLONG) {
    const std::string name = TextAt(call, 0);
    Explanation explanation;
    explanation.wanted = "the window that the program itself calls " + Quoted(name);
    const engine::GlobalAtom atom(hostlink::ToAnsi(ToUtf16(name)));
    const HWND asked = engine::TopLevelAncestor(call.window);
    if (atom.Value() == 0) {
        explanation.reason = name.empty() ? "the name is empty" : "the name is longer than 255 bytes";
        return explanation;
    }
    DWORD_PTR answer = 0;
    if (SendMessageTimeoutA(asked, hostlink::MSG_HA_GetWindoHWND, atom.Value(), 0, SMTO_ABORTIFHUNG,
                            kAnswerMilliseconds, &answer) == 0) {
        explanation.reason = "the program does not answer";
    } else if (answer == 0) {
        explanation.reason = NameOf(asked) + " answers no window: it does not know the name " + Quoted(name) +
                             ", or no names at all";
    } else {
        const HWND named = reinterpret_cast<HWND>(answer);
        explanation.reason = IsWindow(named) ? "the window is there by now: it came when the time was over"
                                             : "the program answers a window that is gone";
    }
    return explanation;
}

Explanation ExplainCadView(const FailedCall& call, ULONGLONG) {
    Explanation explanation;
    explanation.wanted = "a view of the program of " + NameOf(call.window);
    explanation.reason = "no window of the program answers as a view";
    return explanation;
}

struct Navigation {
    std::string_view member;
    Explanation (*explain)(const FailedCall&, ULONGLONG end);
};

constexpr Navigation kNavigations[] = {{"ActiveDialog", ExplainActiveDialog},
                                       {"ActiveDocument", ExplainActiveDocument},
                                       {"CADView", ExplainCadView},
                                       {"ContextMenu", ExplainContextMenu},
                                       {"CurrentContextMenu", ExplainOpenMenu},
                                       {"MainMenu", ExplainMainMenu},
                                       {"OpenSaveDialog", ExplainOpenSaveDialog}};

} // namespace

std::optional<Explanation> ExplainNavigation(const FailedCall& call, ULONGLONG end) {
    const auto known = std::ranges::find(kNavigations, call.member, &Navigation::member);
    if (known != std::end(kNavigations)) {
        return known->explain(call, end);
    }
    const bool isByName = call.member.ends_with("ByID") && call.member != "GetItemByID";
    return isByName ? std::optional(ExplainName(call, end)) : std::nullopt;
}

} // namespace explain
