// The inspector's window: what its parts have to do with one another.
#pragma once

#include <atomic>
#include <memory>
#include <optional>
#include <string>

#include <windows.h>

#include "ghinspect/call_box.h"
#include "ghinspect/crosshair.h"
#include "ghinspect/facts_page.h"
#include "ghinspect/fonts.h"
#include "ghinspect/highlight_frame.h"
#include "ghinspect/look_up.h"
#include "ghinspect/member_page.h"
#include "ghinspect/program_tree.h"
#include "ghinspect/settings.h"
#include "ghinspect/window_finder.h"
#include "ghinspect/worker.h"

namespace inspector {

class MainWindow {
public:
    MainWindow();
    ~MainWindow();
    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    // Throws std::system_error.
    void Open(int showCommand);
    // Keys of the window as a whole. True if that was all there is to do.
    bool TranslateKey(MSG& message);
    HWND Window() const noexcept { return m_window; }

private:
    struct Selection {
        Target target;
        std::optional<explain::ItemAtPoint> item;
        LookedUp found;
        bool isGone = false;
        bool wasHung = false; // its program, when it was looked up
    };
    // Something that the worker has been asked and that may take long.
    struct Waiting {
        std::wstring what; // empty: nothing
        ULONGLONG since = 0;
    };

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    static void CALLBACK OnWindowEvent(HWINEVENTHOOK hook, DWORD event, HWND window, LONG object, LONG child,
                                       DWORD threadId, DWORD time);
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void OnCreate();
    void OnCommand(int id, int code);
    LRESULT OnNotify(NMHDR& header);
    void OnTimer(UINT_PTR timer);
    void OnReturn();
    void OnTick();
    void Rescale(int dpi);
    void ArrangeAll();
    // On the monitor that the window is on, in pixels.
    SIZE RoomOnScreen() const;

    void Refresh();
    void RefreshSoon();
    void OnSnapshot(Snapshot snapshot, bool withHidden);
    void Find(bool backwards);
    void OnFound(const Found& found);

    void Select(const Target& target, std::optional<explain::ItemAtPoint> item);
    // Shows it in the tree, too.
    void GoTo(const Target& target, std::optional<explain::ItemAtPoint> item);
    void OnLookedUp(LookedUp found);
    void ShowFacts();
    void ShowPage();
    bool IsMembersPage() const;
    void ReadMembers();
    void DoMember();

    void PickUnderCursor();
    void Pick(POINT point, bool isFinal);
    void OnPicked(const std::optional<Picked>& picked, bool isFinal);
    void FrameSelected();
    void FrameBriefly(const RECT& rectangle);

    // Asks the driven programs. An answer to what is no longer selected is dropped.
    void Ask(std::wstring what, Question question);
    void ShowStatus(const std::wstring& text);

    HWND m_window = nullptr;
    HACCEL m_accelerators = nullptr;
    HWINEVENTHOOK m_events = nullptr;
    HWINEVENTHOOK m_nameEvents = nullptr;
    HWND m_lastFocus = nullptr;
    Scale m_scale;
    std::unique_ptr<Fonts> m_fonts;
    Settings m_settings;

    ProgramTree m_tree;
    FactsPage m_facts;
    CallBox m_callBox;
    MemberPage m_members;
    Crosshair m_crosshair;
    HighlightFrame m_frame;
    std::unique_ptr<Worker> m_watcher; // of the desktop as a whole
    std::unique_ptr<Worker> m_worker;  // asks the driven programs

    std::optional<Selection> m_selection;
    // Goes up with each selection; the worker looks whether a question still matters.
    std::shared_ptr<std::atomic<unsigned>> m_generation = std::make_shared<std::atomic<unsigned>>(0);
    Waiting m_waiting;
    bool m_isTakingSnapshot = false;
    bool m_isSnapshotStale = false;
    ULONGLONG m_snapshotBegan = 0;
    ULONGLONG m_snapshotEnded = 0;
    bool m_isRefreshSet = false;
    std::optional<Target> m_wanted; // to be selected in the tree when it has come
    bool m_isPicking = false;
    std::optional<POINT> m_nextPick;
    bool m_isNextPickFinal = false;
    int m_countdown = 0;
};

} // namespace inspector
