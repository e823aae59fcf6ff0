// The sample host itself: what other tests rely on when they read its log, make it misbehave, or open
// the popups of its own bars.
#include "hostlink/module_instance.h"
#include "hostlink/remote_send.h"
#include "support/sample_host.h"

#include <gmock/gmock.h>

#include <commctrl.h>

namespace {

using sample_host::Delivery;
using sample_host::LogRecord;
using sample_host::Misbehaviour;
using support::Eventually;
using support::SampleHost;
using testing::ElementsAre;
using testing::Field;
using testing::SizeIs;
namespace ids = sample_host::ids;

TEST(SampleHostLog, TellsPostedFromSentAndKeepsAllBits) {
    const SampleHost host;
    const HWND edit = host.Window("document 1.1001");
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(host.Window("no such window"), nullptr);
    const UINT message = RegisterWindowMessageA("MSG_GX_RequestGridInformation");

    host.ClearLog();
    SendMessageA(edit, message, 0x123456789ABCDEF0, -2);
    PostMessageA(edit, message, 7, 0x7FFFFFFF00000001);
    PostMessageA(edit, WM_NULL, 1, 2);
    ASSERT_TRUE(Eventually([&] { return !host.Log().Records(WM_NULL).empty(); }));

    const auto records = host.Log().Records(message, edit);
    ASSERT_THAT(records, ElementsAre(Field(&LogRecord::delivery, Delivery::Sent),
                                     Field(&LogRecord::delivery, Delivery::Posted)));
    EXPECT_EQ(records[0].wParam, 0x123456789ABCDEF0u);
    EXPECT_EQ(records[0].lParam, 0xFFFFFFFFFFFFFFFEu);
    EXPECT_EQ(records[1].lParam, 0x7FFFFFFF00000001u);
    EXPECT_EQ(records[1].controlId, static_cast<int>(ids::kEdit));
    EXPECT_STREQ(records[1].name, "Document 1.1001");
}

TEST(SampleHostLog, HasTheKeysThatDriveAMenuAndTheCommandThatTheyChoose) {
    const SampleHost host;
    const HWND edit = host.Window("Document 3.1001");
    host.ClearLog();
    for (const UINT message : {UINT{WM_SYSKEYDOWN}, UINT{WM_SYSKEYUP}}) {
        PostMessageA(edit, message, VK_MENU, 0x20000001);
    }
    ASSERT_TRUE(Eventually([&] { return !host.Log().Records(WM_ENTERMENULOOP).empty(); }));
    for (const WPARAM key : {WPARAM{'V'}, WPARAM{'G'}}) { // "&View", "&Grid"
        PostMessageA(edit, WM_KEYDOWN, key, 1);
    }
    ASSERT_TRUE(Eventually([&] { return !host.Log().Records(WM_COMMAND, host.Frame()).empty(); }));
    EXPECT_EQ(LOWORD(host.Log().Records(WM_COMMAND, host.Frame())[0].wParam), ids::kViewGrid);
    EXPECT_THAT(host.Log().Records(WM_KEYDOWN), SizeIs(2));
    EXPECT_TRUE(SendMessageA(host.Window("Frame.1080"), TB_ISBUTTONCHECKED, ids::kViewGrid, 0));
}

TEST(SampleHostMisbehaviour, DestroysAndDisablesTheWindowThatItIsToldTo) {
    const SampleHost host("--page settings --misbehave disable=500@1005 --misbehave destroy-on-sync@1010");
    const HWND dialog = host.WaitForWindow("Settings");
    ASSERT_NE(dialog, nullptr);
    const HWND button = host.Window("Settings.1005");
    const HWND edit = host.Window("Settings.1001");
    const HWND checkBox = host.Window("Settings.1010");
    EXPECT_TRUE(Eventually([&] { return host.Log().Records(WM_ENABLE, button).size() == 2; }));
    EXPECT_TRUE(IsWindowEnabled(button));

    PostMessageA(host.Frame(), RegisterWindowMessageA("MSG_GH_SYNC"), 0, 0);
    EXPECT_TRUE(Eventually([&] { return !IsWindow(checkBox); }));

    SampleHost::Misbehave(edit, Misbehaviour::DestroyOnCommand);
    SendMessageA(host.Frame(), WM_NULL, 0, 0);
    EXPECT_TRUE(IsWindow(edit));
    SendMessageA(dialog, WM_COMMAND, ids::kApply, 0);
    EXPECT_FALSE(IsWindow(edit));
    EXPECT_TRUE(IsWindow(dialog));

    SampleHost::Misbehave(dialog, Misbehaviour::DestroyOnClick);
    PostMessageA(dialog, WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(1, 1));
    EXPECT_TRUE(Eventually([&] { return !IsWindow(dialog); }));
}

TEST(SampleHostMisbehaviour, IsLateAndBusyAndEndsInTheMiddleOfAMessage) {
    const SampleHost host;
    SampleHost::Misbehave(host.Frame(), Misbehaviour::LateDialog, 200);
    EXPECT_EQ(host.Window("Late"), nullptr);
    EXPECT_NE(host.WaitForWindow("Late"), nullptr);

    const ULONGLONG start = GetTickCount64();
    SampleHost::Misbehave(host.Frame(), Misbehaviour::Busy, 300);
    EXPECT_GE(GetTickCount64() - start, 250u);

    SampleHost::Misbehave(host.Frame(), Misbehaviour::NeverIdle, 60000);
    SampleHost::Misbehave(host.Frame(), Misbehaviour::CrashOnMessage, WM_MDIGETACTIVE);
    EXPECT_FALSE(host.HasEnded());
    SendMessageA(host.Frame(), WM_MDIGETACTIVE, 0, 0);
    EXPECT_EQ(host.ExitCode(), static_cast<DWORD>(sample_host::kCrashExitCode));
}

class SampleHostBars : public testing::Test {
protected:
    static void SetUpTestSuite() {
        HMODULE module = nullptr;
        GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                               GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                           reinterpret_cast<LPCSTR>(&SetUpTestSuite), &module);
        hostlink::SetModuleInstance(module);
    }
};

TEST_F(SampleHostBars, AnswerTheToolBarMessagesInTheirOwnWay) {
    const SampleHost host;
    const hostlink::HostWindow bar{host.Window("Frame.1081"), host.ThreadId()};
    ASSERT_EQ(SendMessageA(bar.window, TB_BUTTONCOUNT, 0, 0), 6);

    TBBUTTON circle{}, spline{};
    ASSERT_EQ(hostlink::RemoteSend(bar, TB_GETBUTTON, 1, hostlink::AsBlock(circle)), TRUE);
    ASSERT_EQ(hostlink::RemoteSend(bar, TB_GETBUTTON, 3, hostlink::AsBlock(spline)), TRUE);
    EXPECT_EQ(hostlink::RemoteSend(bar, TB_GETBUTTON, 6, hostlink::AsBlock(spline)), FALSE);
    EXPECT_EQ(spline.fsState & TBSTATE_ENABLED, TBSTATE_ENABLED); // inverted: it is disabled
    EXPECT_EQ(circle.fsState & TBSTATE_ENABLED, 0);

    char text[16] = "";
    EXPECT_EQ(SendMessageA(bar.window, TB_GETBUTTONTEXTA, ids::kDrawCircle, 0), 0);
    EXPECT_EQ(hostlink::RemoteSend(bar, TB_GETSTRINGA, static_cast<WPARAM>(circle.iString),
                                   hostlink::AsBlock(text)),
              6);
    EXPECT_STREQ(text, "Circle");
}

TEST_F(SampleHostBars, OpenAPopupThatKeysWalk) {
    const SampleHost host;
    const hostlink::HostWindow bar{host.Window("Frame.1082"), host.ThreadId()};
    RECT hatch{};
    ASSERT_EQ(hostlink::RemoteSend(bar, TB_GETITEMRECT, 3, hostlink::AsBlock(hatch)), TRUE);
    const LPARAM arrow = MAKELPARAM(hatch.right - 2, hatch.bottom - 2);
    PostMessageA(bar.window, WM_LBUTTONDOWN, MK_LBUTTON, arrow);
    PostMessageA(bar.window, WM_LBUTTONUP, 0, arrow);
    const HWND popup = host.WaitForWindow("Popup 1");
    ASSERT_NE(popup, nullptr);
    EXPECT_EQ(GetWindow(popup, GW_OWNER), host.Frame());
    const HWND entries = FindWindowExA(popup, nullptr, "BCGToolBar:popup", nullptr);
    ASSERT_NE(entries, nullptr);
    EXPECT_EQ(SendMessageA(entries, TB_GETHOTITEM, 0, 0), -1);

    const HWND edit = host.Window("Document 3.1001");
    host.ClearLog();
    for (int hot = 0; hot < 2; ++hot) {
        PostMessageA(edit, WM_KEYDOWN, VK_DOWN, 1);
        EXPECT_TRUE(Eventually([&] { return SendMessageA(entries, TB_GETHOTITEM, 0, 0) == hot; }));
    }
    PostMessageA(edit, WM_KEYDOWN, VK_RETURN, 1);
    EXPECT_TRUE(Eventually([&] { return !IsWindow(popup); }));
    ASSERT_TRUE(Eventually([&] { return !host.Log().Records(WM_COMMAND, host.Frame()).empty(); }));
    EXPECT_EQ(host.Log().Records(WM_COMMAND, host.Frame())[0].wParam, ids::kDrawHatchDots);
}

} // namespace
