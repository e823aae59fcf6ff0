// Synchronisation with a host of its own process after an action.
#include "engine/ghBaseWindow.h"
#include "engine/ghSharedUtils.h"
#include "engine/synchronise.h"
#include "hostlink/module_instance.h"
#include "hostlink/registered_messages.h"
#include "hostlink/shared_section.h"
#include "support/gui_thread.h"
#include "support/sample_host.h"
#include "support/this_module.h"

#include <gmock/gmock.h>

#include <thread>

namespace {

using hostlink::shared;
using sample_host::Misbehaviour;
using support::Eventually;
using support::SampleHost;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;
namespace ids = sample_host::ids;

class Synchronise : public testing::Test {
protected:
    static void SetUpTestSuite() {
        hostlink::SetModuleInstance(support::ThisModule());
        host = std::make_unique<SampleHost>("--page find");
    }
    static void TearDownTestSuite() { host.reset(); }

    static std::vector<sample_host::LogRecord> Syncs(HWND window = nullptr) {
        return host->Log().Records(hostlink::MSG_GH_SYNC, window);
    }

    static inline std::unique_ptr<SampleHost> host;
};

TEST_F(Synchronise, WaitsForTheModalDialogThatTheActionOpens) {
    ghBaseWindow frame(host->Frame());
    host->ClearLog();
    ASSERT_TRUE(frame.Command(ids::kPageSettings));

    const HWND dialog = ghSharedUtils::active_dialog(host->Frame());
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(ghBaseWindow(dialog).Text(), "Settings");
    ghBaseWindow(dialog).Close();
    EXPECT_TRUE(Eventually([&] { return !IsWindow(dialog); }));
}

// The dialog is known from its creation on and has the marker sent to it, but is shown only later.
TEST_F(Synchronise, FollowsAModalDialogThatIsLongInTheMaking) {
    const SampleHost slow("--misbehave busy=1500@" + std::to_string(ids::kOpenNested));
    ghBaseWindow frame(slow.Frame());
    ASSERT_TRUE(frame.Command(ids::kPageSettings));

    const HWND dialog = ghSharedUtils::active_dialog(slow.Frame());
    ASSERT_NE(dialog, nullptr);
    EXPECT_EQ(ghBaseWindow(dialog).Text(), "Settings");
    EXPECT_THAT(slow.Log().Records(hostlink::MSG_GH_SYNC, dialog), Not(IsEmpty()));
}

TEST_F(Synchronise, ComesBackOnlyAfterABusyHostHasTakenTheMarker) {
    ghBaseWindow frame(host->Frame());
    host->ClearLog();
    PostMessageA(frame.Window(), RegisterWindowMessageA(sample_host::kMisbehaveMessage),
                 static_cast<WPARAM>(Misbehaviour::Busy), 700);
    ASSERT_TRUE(frame.Post(WM_NULL, 0, 0));
    const auto syncs = Syncs(frame.Window());
    ASSERT_THAT(syncs, Not(IsEmpty()));
    EXPECT_EQ(syncs[0].wParam, 0u);
    EXPECT_EQ(syncs[0].lParam, 0u);
}

engine::ThreadIdleState BusyTwice(DWORD) {
    static int asked = 0;
    return ++asked % 3 == 0 ? engine::ThreadIdleState::Idle : engine::ThreadIdleState::Busy;
}

TEST_F(Synchronise, GoesOnWhileTheThreadIsBusyButNotForEver) {
    const ghBaseWindow frame(host->Frame());
    const auto elapsed = [&](const engine::SynchronisationLimits& limits) {
        const ULONGLONG begin = GetTickCount64();
        engine::Synchronise(frame, limits);
        return GetTickCount64() - begin;
    };
    EXPECT_GE(elapsed({.queryIdle = BusyTwice}), 3u * 95);
    const auto alwaysBusy = [](DWORD) { return engine::ThreadIdleState::Busy; };
    EXPECT_GE(elapsed({.longestMilliseconds = 700, .queryIdle = alwaysBusy}), 700u);

    // A host that takes no marker.
    PostMessageA(frame.Window(), RegisterWindowMessageA(sample_host::kMisbehaveMessage),
                 static_cast<WPARAM>(Misbehaviour::Busy), 5000);
    EXPECT_LT(elapsed({.longestMilliseconds = 300}), 4000u);
    SendMessageA(frame.Window(), WM_NULL, 0, 0);
}

// A timer or event of the script closes a dialog while the outer one waits.
TEST_F(Synchronise, GoesOnAfterOneThatCameInBetween) {
    static HWND other;
    static bool cameIn;
    host->Command(ids::kPagePalette);
    other = host->WaitForWindow("Palette");
    ASSERT_NE(other, nullptr);
    cameIn = false;
    ghBaseWindow frame(host->Frame());
    SetTimer(nullptr, 0, 30, [](HWND, UINT, UINT_PTR timer, DWORD) {
        KillTimer(nullptr, timer);
        ghBaseWindow(other).Close(); // takes its marker with it
        cameIn = true;
    });
    host->ClearLog();
    const ULONGLONG begin = GetTickCount64();
    frame.Post(WM_NULL, 0, 0);
    EXPECT_LT(GetTickCount64() - begin, 30000u);
    EXPECT_TRUE(cameIn);
    EXPECT_GE(Syncs(frame.Window()).size(), 2u) << "posted once more";
    EXPECT_EQ(shared.syncQueueHook, 0u);
    EXPECT_EQ(shared.syncCreateHook, 0u);
}

TEST_F(Synchronise, LeavesNoHookBehind) {
    ghBaseWindow frame(host->Frame());
    frame.Post(WM_NULL, 0, 0);
    EXPECT_EQ(shared.syncCreateHook, 0u);
    EXPECT_EQ(shared.syncQueueHook, 0u);

    // What the watchers would notice.
    shared.syncSeen = 0;
    host->ClearLog();
    PostMessageA(frame.Window(), hostlink::MSG_GH_SYNC, 0, 0);
    host->Command(ids::kPageAbout);
    HWND dialog = nullptr;
    ASSERT_TRUE(Eventually([&] {
        dialog = ghSharedUtils::active_dialog(host->Frame());
        return dialog != nullptr && ghBaseWindow(dialog).Text() != "Find";
    }));
    EXPECT_THAT(Syncs(), SizeIs(1));
    EXPECT_EQ(shared.syncSeen, 0u);
    EXPECT_EQ(shared.syncPopup, 0u);
    ghBaseWindow(dialog).Close();
}

TEST_F(Synchronise, IsLeftOutWhenSwitchedOff) {
    ghBaseWindow frame(host->Frame());
    frame.SetSynchronization(false);
    shared.syncQueueHook = 0x77; // any hook would overwrite them
    shared.syncCreateHook = 0x77;
    host->ClearLog();
    EXPECT_TRUE(frame.Post(WM_NULL, 0, 0));
    EXPECT_EQ(frame.Send(WM_NULL, 0, 0), 0);
    frame.Command(0);
    EXPECT_EQ(shared.syncQueueHook, 0x77u);
    EXPECT_EQ(shared.syncCreateHook, 0x77u);
    EXPECT_THAT(Syncs(), IsEmpty());
}

// Each of these windows is gone, or goes, while the script waits.
TEST_F(Synchronise, EndsWhenItsTargetGoes) {
    const HWND find = host->WaitForWindow("Find");
    ASSERT_NE(find, nullptr);
    ghBaseWindow dialog(find);
    PostMessageA(host->Frame(), RegisterWindowMessageA(sample_host::kMisbehaveMessage),
                 static_cast<WPARAM>(Misbehaviour::Busy), 500);
    SampleHost::Misbehave(find, Misbehaviour::DestroyOnSync);
    dialog.Post(WM_NULL, 0, 0);
    EXPECT_TRUE(Eventually([&] { return !IsWindow(find); }));

    EXPECT_FALSE(dialog.Post(WM_NULL, 0, 0));
    EXPECT_FALSE(ghBaseWindow().Post(WM_NULL, 0, 0));
    EXPECT_EQ(ghBaseWindow().Send(WM_GETTEXTLENGTH, 0, 0), 0);
}

HWND MakeDialog(DWORD style) {
    return CreateWindowExA(0, "#32770", "", WS_POPUP | DS_MODALFRAME | style, 0, 0, 100, 100, nullptr,
                           nullptr, nullptr, nullptr);
}

// As after a message box without an owner whose answer opens the next dialog.
TEST_F(Synchronise, EndsWithTheDialogThatTakesThePlaceOfItsWindow) {
    constexpr int kLimit = 5000;
    static HWND second;
    const support::GuiThread thread;
    HWND first = nullptr;
    thread.Run([&] {
        first = MakeDialog(0);
        const WNDPROC giveWay = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
            if (message == hostlink::MSG_GH_SYNC) {
                DestroyWindow(window);
                second = MakeDialog(WS_VISIBLE);
                return LRESULT{0};
            }
            return DefDlgProcA(window, message, wParam, lParam);
        };
        SetWindowLongPtrA(first, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(giveWay));
    });
    const ULONGLONG begin = GetTickCount64();
    engine::Synchronise(ghBaseWindow(first), {.longestMilliseconds = kLimit});
    EXPECT_LT(GetTickCount64() - begin, static_cast<ULONGLONG>(kLimit));
    thread.Run([] { DestroyWindow(second); });
}

TEST_F(Synchronise, EndsWithAHostThatIsKilled) {
    const SampleHost dying;
    ghBaseWindow frame(dying.Frame());
    PostMessageA(frame.Window(), RegisterWindowMessageA(sample_host::kMisbehaveMessage),
                 static_cast<WPARAM>(Misbehaviour::Busy), 60000);
    std::thread killer([&] {
        Eventually([] { return shared.syncQueueHook != 0 && shared.syncSeen == 0; });
        const HANDLE process = OpenProcess(PROCESS_TERMINATE, FALSE, dying.ProcessId());
        TerminateProcess(process, 1);
        CloseHandle(process);
    });
    frame.Post(WM_NULL, 0, 0);
    killer.join();
    EXPECT_TRUE(dying.HasEnded());
}

} // namespace
