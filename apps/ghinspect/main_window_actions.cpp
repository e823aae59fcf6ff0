// What the window does: follow the desktop, look up what is selected, pick, frame, do members.
#include <algorithm>
#include <exception>
#include <utility>

#include <windows.h>

#include <commctrl.h>

#include "explain/utf8.h"
#include "ghinspect/call_reader.h"
#include "ghinspect/control.h"
#include "ghinspect/control_ids.h"
#include "ghinspect/main_window.h"
#include "ghinspect/window_messages.h"

namespace inspector {

namespace {

constexpr UINT kSoonMilliseconds = 250;
constexpr ULONGLONG kMostSnapshotAge = 5000; // an event may have been lost
constexpr UINT kFrameMilliseconds = 3000;
constexpr int kCountdownSeconds = 3;
// From then on the user is told, and a new selection does not wait for the old question.
constexpr ULONGLONG kPatienceMilliseconds = 1500;

} // namespace

void MainWindow::RefreshSoon() {
    if (m_isRefreshSet) {
        return;
    }
    m_isRefreshSet = true;
    // Where a snapshot takes long there are many windows: three quarters of the time are left to others.
    const ULONGLONG lasted = m_snapshotEnded - m_snapshotBegan;
    SetTimer(m_window, kRefreshTimer, std::max(kSoonMilliseconds, static_cast<UINT>(3 * lasted)), nullptr);
}

void MainWindow::Refresh() {
    if (m_isTakingSnapshot) {
        m_isSnapshotStale = true;
        return;
    }
    m_isTakingSnapshot = true;
    m_snapshotBegan = GetTickCount64();
    m_watcher->Ask([this, open = m_tree.OpenBranches(), withHidden = m_settings.showHidden]() -> Reply {
        return [this, withHidden, snapshot = TakeSnapshot(open, withHidden)] {
            OnSnapshot(snapshot, withHidden);
        };
    });
}

void MainWindow::OnSnapshot(Snapshot snapshot, bool withHidden) {
    m_isTakingSnapshot = false;
    m_snapshotEnded = GetTickCount64();
    m_tree.Merge(std::move(snapshot), withHidden);
    if (m_wanted && m_tree.Select(*m_wanted)) {
        m_wanted.reset();
    }
    ShowFacts();
    if (m_selection && !m_selection->isGone) {
        // A program that answers again can be asked, and what was said of it no longer holds.
        const auto* const program = m_tree.Program(m_selection->target.processId);
        if (program != nullptr && program->isHung != m_selection->wasHung) {
            Select(m_selection->target, m_selection->item);
        }
    }
    if (std::exchange(m_isSnapshotStale, false)) {
        Refresh();
    }
}

void MainWindow::OnTimer(UINT_PTR timer) {
    switch (timer) {
    case kTickTimer:
        OnTick();
        break;
    case kRefreshTimer:
        KillTimer(m_window, kRefreshTimer);
        m_isRefreshSet = false;
        Refresh();
        break;
    case kFrameTimer:
        KillTimer(m_window, kFrameTimer);
        m_frame.Hide();
        break;
    case kCountdownTimer:
        if (--m_countdown > 0) {
            ShowStatus(L"Picks what lies under the mouse pointer in " + std::to_wstring(m_countdown) +
                       L" s. Escape gives up.");
        } else {
            KillTimer(m_window, kCountdownTimer);
            POINT point;
            GetCursorPos(&point);
            Pick(point, true);
        }
        break;
    default:
        break;
    }
}

void MainWindow::OnTick() {
    ShowFacts();
    if (!m_isTakingSnapshot && GetTickCount64() - m_snapshotEnded > kMostSnapshotAge) {
        Refresh();
    }
    const ULONGLONG waited = m_waiting.what.empty() ? 0 : GetTickCount64() - m_waiting.since;
    if (waited > kPatienceMilliseconds) {
        ShowStatus(m_waiting.what + L": no answer from the program for " + std::to_wstring(waited / 1000) +
                   L" s. It is busy or hangs.");
    }
}

void MainWindow::Ask(std::wstring what, Question question) {
    if (m_worker->BusyMilliseconds() > kPatienceMilliseconds) {
        m_worker->StartAfresh();
    }
    m_waiting = {std::move(what), GetTickCount64()};
    const unsigned generation = *m_generation;
    m_worker->Ask([this, generation, latest = m_generation, question = std::move(question)]() -> Reply {
        if (*latest != generation) {
            return nullptr;
        }
        Reply reply;
        try {
            reply = question();
        } catch (const std::exception& error) {
            reply = [this, text = explain::ToUtf16(error.what())] { ShowStatus(L"Failed: " + text); };
        }
        return [this, generation, reply = std::move(reply)] {
            if (*m_generation == generation) {
                if (GetTickCount64() - m_waiting.since > kPatienceMilliseconds) {
                    ShowStatus(L"");
                }
                m_waiting = {};
                reply();
            }
        };
    });
}

void MainWindow::Find(bool backwards) {
    const std::wstring text = TextOf(GetDlgItem(m_window, ids::kFind));
    if (text.empty()) {
        ShowStatus(L"Type what to look for: a class, caption or id, or a script's call.");
        return;
    }
    const std::string narrow = explain::ToUtf8(text);
    if (!LooksLikeCall(narrow)) {
        const Search search = {text, m_settings.language, backwards, m_settings.showHidden};
        m_watcher->Ask([this, search, from = m_selection ? m_selection->target : Target{}]() -> Reply {
            return [this, found = FindNext(search, from)] { OnFound(found); };
        });
        ShowStatus(L"Searching \u2026");
        return;
    }
    const auto call = ReadCall(narrow, m_settings.language);
    if (!call) {
        ShowStatus(L"This call cannot be read as " +
                   explain::ToUtf16(explain::LanguageName(m_settings.language)) +
                   L" with all its arguments written out.");
        return;
    }
    Ask(L"Following the call", [this, call = *call]() -> Reply {
        return [this, followed = FollowCall(call)] {
            if (followed.target) {
                GoTo(*followed.target, {});
            }
            ShowStatus(followed.message);
        };
    });
}

void MainWindow::OnFound(const Found& found) {
    if (!found.target) {
        ShowStatus(m_settings.showHidden ? L"No window matches."
                                         : L"No window matches. Hidden windows were left out.");
        return;
    }
    GoTo(*found.target, {});
    ShowStatus(L"Match " + std::to_wstring(found.ordinal) + L" of " + std::to_wstring(found.count) + L".");
}

void MainWindow::GoTo(const Target& target, std::optional<explain::ItemAtPoint> item) {
    if (!m_tree.Select(target)) {
        // Younger than the last snapshot, or among the hidden ones.
        m_wanted = target;
        const HWND root = GetAncestor(target.window, GA_ROOT);
        if (root != nullptr && !IsWindowVisible(root) && !m_settings.showHidden) {
            CheckDlgButton(m_window, ids::kHiddenWindows, BST_CHECKED);
            m_settings.showHidden = true;
        }
        Refresh();
    }
    Select(target, std::move(item));
}

void MainWindow::Select(const Target& target, std::optional<explain::ItemAtPoint> item) {
    ++*m_generation;
    m_isPicking = false; // a pick that is still on its way will not be heard of
    const explain::ProgramFacts* const known = m_tree.Program(target.processId);
    m_selection = Selection{target, std::move(item), {}, false, known != nullptr && known->isHung};
    m_callBox.Show({}, L"Looking for the shortest call \u2026");
    m_members.ShowMessage(L"Reading the members \u2026");
    ShowFacts();
    FrameSelected();

    const auto program = known == nullptr ? std::nullopt : std::optional(*known);
    if (target.window == nullptr && !program) {
        return;
    }
    Ask(L"Looking for the call", [this, target, program, what = m_selection->item]() -> Reply {
        LookedUp found = target.window != nullptr
                             ? LookUpWindow(target.window, what, program ? &*program : nullptr)
                             : LookUpProgram(*program);
        return [this, found = std::move(found)] { OnLookedUp(found); };
    });
}

void MainWindow::OnLookedUp(LookedUp found) {
    m_callBox.Show(found.call, found.verdict);
    m_selection->found = std::move(found);
    ShowFacts();
    ReadMembers();
}

void MainWindow::ShowFacts() {
    if (!m_selection) {
        return;
    }
    const Target& target = m_selection->target;
    const explain::ProgramFacts* const program = m_tree.Program(target.processId);
    std::wstring name;
    bool isGone = false;
    if (target.window != nullptr) {
        const explain::WindowFacts facts = explain::FactsOf(target.window);
        // Handles are used again.
        isGone = facts.window == nullptr || facts.processId != target.processId ||
                 !m_facts.ShowWindowFacts(target.window, m_selection->found.kind, program);
        name = NameOf(facts);
        if (m_selection->item) {
            name = explain::ToUtf16(m_selection->item->kind) + L" '" +
                   OneLine(explain::ToUtf16(m_selection->item->text), 60) + L"' of " + name;
        }
    } else if (program != nullptr) {
        m_facts.ShowProgram(*program);
        name = explain::ToUtf16(program->name);
    } else {
        isGone = m_snapshotEnded != 0;
    }
    if (!isGone) {
        m_callBox.SetName(name);
    } else if (!std::exchange(m_selection->isGone, true)) {
        ++*m_generation; // nothing that is still asked about it matters
        m_waiting = {};
        m_callBox.SetName(target.window != nullptr ? L"This window is gone" : L"This program has ended");
        m_callBox.Show(m_callBox.Call(), L"What is shown is what was known of it last.");
        m_members.ShowMessage(target.window != nullptr ? L"The window is gone." : L"The program has ended.");
        m_frame.Hide();
    }
}

bool MainWindow::IsMembersPage() const {
    return TabCtrl_GetCurSel(GetDlgItem(m_window, ids::kPages)) == 1;
}

void MainWindow::ShowPage() {
    const bool isMembers = IsMembersPage();
    ShowWindow(m_facts.List().Window(), isMembers ? SW_HIDE : SW_SHOWNA);
    m_members.SetVisible(isMembers);
    if (isMembers) {
        ReadMembers();
    }
}

void MainWindow::ReadMembers() {
    if (!IsMembersPage() || !m_selection || m_selection->isGone || m_selection->found.kind.empty()) {
        return;
    }
    explain::Call call = LookingPart(m_selection->found.call);
    if (call.empty()) {
        m_members.ShowMessage(L"There is no call, and so no object to ask.");
        return;
    }
    Ask(L"Reading the members", [this, call, window = m_selection->target.window]() -> Reply {
        ObjectReport report;
        if (window != nullptr && !explain::Answers(window)) {
            report.obstacle = IsWindow(window) ? L"The program does not answer." : L"The window is gone.";
        } else {
            report = ReadObject(call);
        }
        return [this, report] { m_members.Show(report); };
    });
}

void MainWindow::DoMember() {
    Member member;
    std::vector<explain::Argument> arguments;
    if (!IsMembersPage() || !m_selection || m_selection->isGone ||
        !m_members.Wanted(m_callBox.Language(), member, arguments)) {
        return;
    }
    m_members.ShowAnswer(L"Doing it \u2026");
    Ask(member.name,
        [this, member, arguments, call = LookingPart(m_selection->found.call),
         window = m_selection->target.window]() -> Reply {
            std::wstring answer = window != nullptr && !explain::Answers(window)
                                      ? L"Not done: the program does not answer."
                                      : Perform(call, member, arguments);
            return [this, answer = std::move(answer)] {
                m_members.ShowAnswer(answer);
                ReadMembers();
            };
        });
}

void MainWindow::PickUnderCursor() {
    m_countdown = kCountdownSeconds;
    SetTimer(m_window, kCountdownTimer, 1000, nullptr);
    ShowStatus(L"Put the mouse pointer on what is to be picked: in " + std::to_wstring(m_countdown) +
               L" s. Escape gives up.");
}

// One question at a time: while the cross moves on, the latest place is the one that matters.
void MainWindow::Pick(POINT point, bool isFinal) {
    m_nextPick = point;
    m_isNextPickFinal = isFinal;
    if (m_isPicking && m_worker->BusyMilliseconds() <= kPatienceMilliseconds) {
        return;
    }
    m_isPicking = true;
    m_nextPick.reset();
    ++*m_generation;
    Ask(L"Picking", [this, point, isFinal]() -> Reply {
        return [this, isFinal, picked = PickAt(point)] { OnPicked(picked, isFinal); };
    });
}

void MainWindow::OnPicked(const std::optional<Picked>& picked, bool isFinal) {
    m_isPicking = false;
    if (picked) {
        m_frame.Show(picked->frame, m_scale);
    } else {
        m_frame.Hide();
    }
    if (m_nextPick) {
        Pick(*m_nextPick, m_isNextPickFinal);
    } else if (isFinal && picked) {
        ShowStatus(L"Picked.");
        GoTo(picked->target, picked->item);
        if (GetForegroundWindow() == m_window) {
            SetFocus(m_tree.Window()); // the arrow keys go on from there
        }
    } else if (isFinal) {
        ShowStatus(L"There is nothing to pick.");
        if (m_selection) {
            Select(m_selection->target, m_selection->item); // its questions were dropped for the picking
        }
    }
}

void MainWindow::FrameSelected() {
    if (!m_selection || m_selection->isGone) {
        m_frame.Hide();
        return;
    }
    RECT area = {};
    if (m_selection->item) {
        area = m_selection->item->rectangle;
    } else if (IsWindowVisible(m_selection->target.window)) {
        GetWindowRect(m_selection->target.window, &area);
    }
    FrameBriefly(area);
}

void MainWindow::FrameBriefly(const RECT& rectangle) {
    m_frame.Show(rectangle, m_scale);
    SetTimer(m_window, kFrameTimer, kFrameMilliseconds, nullptr);
}

} // namespace inspector
