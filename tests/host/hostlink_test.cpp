// The host link against a host of its own process: remote sends, what a tampered shared section can do, the
// keyboard state and the capture of menus.
#include "host/answering_hook.h"
#include "hostlink/key_state.h"
#include "hostlink/menu_capture.h"
#include "hostlink/module_instance.h"
#include "hostlink/registered_messages.h"
#include "hostlink/remote_send.h"
#include "hostlink/shared_section.h"
#include "support/sample_host.h"
#include "support/this_module.h"

#include <gmock/gmock.h>

#include <commctrl.h>

#include <array>
#include <memory>
#include <thread>

namespace {

using host_tests::Answer;
using hostlink::shared;
using sample_host::Misbehaviour;
using support::Eventually;
using support::SampleHost;
using testing::Each;
using testing::IsEmpty;
using testing::SizeIs;
namespace ids = sample_host::ids;

class HostLink : public testing::Test {
protected:
    static void SetUpTestSuite() {
        hostlink::SetModuleInstance(support::ThisModule());
        host = std::make_unique<SampleHost>("--page find --page context-menus");
    }
    static void TearDownTestSuite() { host.reset(); }

    static hostlink::HostWindow At(HWND window) { return {window, host->ThreadId()}; }
    static hostlink::HostWindow Edit() { return At(host->WaitForWindow("document 1.1001")); }
    static hostlink::HostWindow Bar() { return At(host->WaitForWindow("Frame.1081")); }

    // A stale remote-send hook would send this request when the message comes by again.
    static void ExpectNoHookLeft(HWND window) {
        const UINT grid = hostlink::MSG_GX_RequestGridInformation;
        host->ClearLog();
        shared.remoteTarget = hostlink::FromHandle(window);
        shared.remoteMsg = grid;
        SendMessageA(window, hostlink::SendRemotelyMessage(), 0, 0);
        EXPECT_THAT(host->Log().Records(hostlink::SendRemotelyMessage()), SizeIs(1));
        EXPECT_THAT(host->Log().Records(grid), IsEmpty());
        EXPECT_EQ(shared.remoteHook, 0u);
    }

    static inline std::unique_ptr<SampleHost> host;
};

TEST_F(HostLink, CarriesBlocksOfUpTo1024BytesBothWays) {
    const host_tests::AnsweringHook answering(host->ThreadId());
    std::array<std::byte, 1025> block;
    block.fill(std::byte{7});
    const std::span<std::byte> allowed(block.data(), 1024);

    hostlink::RemoteSend(Edit(), host_tests::AnswerMessage(), Answer::kIncrementBlock, allowed);
    EXPECT_THAT(allowed, Each(std::byte{8}));
    EXPECT_EQ(block[1024], std::byte{7});
    EXPECT_EQ(hostlink::RemoteSend(Bar(), TB_BUTTONCOUNT, 0),
              SendMessageA(Bar().window, TB_BUTTONCOUNT, 0, 0));
    ExpectNoHookLeft(Edit().window);

    host->ClearLog();
    EXPECT_EQ(hostlink::RemoteSend(Edit(), host_tests::AnswerMessage(), Answer::kIncrementBlock, block), 0);
    EXPECT_THAT(host->Log().Records(hostlink::SendRemotelyMessage()), IsEmpty());
    EXPECT_EQ(block[0], std::byte{8});
}

// A request without a block must not meet what the one before left in the shared section.
TEST_F(HostLink, ClearsWhatTheExchangeBeforeLeft) {
    const host_tests::AnsweringHook answering(host->ThreadId());
    std::array<std::byte, 64> block;
    block.fill(std::byte{0x55});
    hostlink::RemoteSend(Edit(), host_tests::AnswerMessage(), 0, block);
    hostlink::RemoteSend(Edit(), host_tests::AnswerMessage(), 0);
    EXPECT_THAT(std::span<char>(shared.remoteData), Each('\0'));

    ASSERT_NE(hostlink::RemoteSend(Bar(), TB_BUTTONCOUNT, 0), 0);
    EXPECT_EQ(hostlink::TryRemoteSend({Bar().window, 0}, TB_BUTTONCOUNT, 0), std::nullopt); // no hook
    EXPECT_EQ(shared.remoteResult, 0);
}

class HostLinkTexts : public HostLink {
protected:
    // What comes back for `text`, asked for at `offset` of a block of 1024 bytes.
    static std::string Ask(Answer answer, std::string text, std::size_t offset = 8) {
        const host_tests::AnsweringHook answering(host->ThreadId());
        std::array<std::byte, 1024> block = {};
        hostlink::RemoteSendWithString(Edit(), host_tests::AnswerMessage(),
                                       host_tests::AnswerAt(answer, offset), block, offset, text);
        return text;
    }
};

TEST_F(HostLinkTexts, ComeBackFromTheBufferOrFromTheHostsOwnMemory) {
    EXPECT_EQ(Ask(Answer::kReverseText, "abc"), "cba");
    EXPECT_EQ(Ask(Answer::kReverseText, "abc", 1024 - 12), "cba");
    EXPECT_EQ(Ask(Answer::kReverseText, std::string(2000, 'a')), std::string(1023, 'a'));
    EXPECT_EQ(Ask(Answer::kPointToOwnText, "abc"), "own text");
    EXPECT_EQ(Ask(Answer::kPointToLongText, ""), std::string(1023, 'y'));
}

TEST_F(HostLinkTexts, ThatAreBrokenEndWhereTheyMust) {
    EXPECT_EQ(Ask(Answer::kFillBuffer, "abc"), std::string(1023, 'x'));
    EXPECT_EQ(Ask(Answer::kPointNowhere, "abc"), "");
    EXPECT_EQ(Ask(Answer::kPointBeforeUnreadable, "abc"), "end");
    EXPECT_FALSE(host->HasEnded());
}

TEST_F(HostLinkTexts, AreRefusedWhereTheirDescriptorHasNoRoom) {
    for (const std::size_t offset : {std::size_t{1013}, std::size_t{1024}, ~std::size_t{0}}) {
        std::string text = "abc";
        std::array<std::byte, 24> block = {};
        host->ClearLog();
        EXPECT_EQ(hostlink::RemoteSendWithString(Edit(), host_tests::AnswerMessage(), 0, block, offset, text),
                  0);
        EXPECT_EQ(text, "");
        EXPECT_THAT(host->Log().Records(hostlink::SendRemotelyMessage()), IsEmpty());
    }
}

// Any process can write to the shared section between the request and the hook's work.
TEST_F(HostLink, SurvivesATamperedSharedSection) {
    const host_tests::AnsweringHook answering(host->ThreadId());
    const UINT grid = hostlink::MSG_GX_RequestGridInformation;
    const hostlink::HostWindow edit = Edit(); // the held host could not answer for it
    std::thread asker;
    const std::function<void()> tamperings[] = {
        [] { shared.remoteStringOffset = 1013; },
        [] { shared.remoteStringOffset = ~std::uint64_t{0}; },
        [] { shared.remoteTarget = hostlink::FromHandle(GetDesktopWindow()); },
        [] { shared.remoteTarget = 0; },
        [] { shared.remoteMsg = TB_BUTTONCOUNT; },
        [] { shared.remoteMsg = hostlink::SendRemotelyMessage(); },
        [] { shared.remoteWParam = 1; },
        [] { shared.remoteData[1000] = 'x'; },
        [] { shared.remoteString[0] = 'x'; },
        // The signal is taken for another message, for one of the system, or the hook cannot be removed.
        [] { shared.sendRemotelyMsg = hostlink::MSG_GH_SYNC; },
        [&] {
            shared.sendRemotelyMsg = WM_GETTEXTLENGTH;
            asker = std::thread([&] { SendMessageA(edit.window, WM_GETTEXTLENGTH, 0, 0); });
            Sleep(50); // until it is on its way
        },
        [] { shared.remoteHook = 0x77; },
    };
    for (const auto& tamper : tamperings) {
        host->ClearLog();
        const host_tests::HeldHost held(edit.window);
        std::string text = "abc";
        LRESULT result = -1;
        std::thread sender([&] {
            std::array<std::byte, 24> block = {};
            result = hostlink::RemoteSendWithString(edit, grid, 0, block, 8, text);
        });
        EXPECT_TRUE(Eventually([] { return shared.remoteHook != 0; }));
        tamper();
        held.Release();
        sender.join();
        EXPECT_EQ(result, 0);
        EXPECT_THAT(host->Log().Records(grid), IsEmpty());
        EXPECT_THAT(host->Log().Records(WM_CLOSE), IsEmpty());
        EXPECT_THAT(host->Log().Records(TB_BUTTONCOUNT), IsEmpty());
    }
    asker.join();
    ExpectNoHookLeft(edit.window);
}

TEST_F(HostLink, MendsIdentifiersAndCarriesNoMessageOfTheSystem) {
    for (const std::uint32_t wrong : {std::uint32_t{WM_CLOSE}, std::uint32_t{hostlink::MSG_GH_SYNC}}) {
        shared.sendRemotelyMsg = wrong;
        shared.setKeyStateMsg = wrong;
        host->ClearLog();
        EXPECT_NE(hostlink::RemoteSend(Bar(), TB_BUTTONCOUNT, 0), 0);
        hostlink::SetHostKeyState(Edit(), VK_F13, hostlink::kKeyReleased);
        EXPECT_THAT(host->Log().Records(WM_CLOSE), IsEmpty());
        EXPECT_NE(shared.sendRemotelyMsg, wrong);
        EXPECT_NE(shared.setKeyStateMsg, wrong);
    }
    const HWND dialog = host->WaitForWindow("find");
    EXPECT_EQ(hostlink::TryRemoteSend(At(dialog), WM_CLOSE, 0), std::nullopt);
    EXPECT_EQ(hostlink::TryRemoteSend(At(dialog), hostlink::SendRemotelyMessage(), 0), std::nullopt);
    EXPECT_TRUE(IsWindow(dialog));
}

// Its sender has given up, but its signal comes by when the next exchange's hook is there.
TEST_F(HostLink, IsNotMisledByTheSignalOfAnotherExchange) {
    const host_tests::AnsweringHook answering(host->ThreadId());
    const hostlink::HostWindow bar = Bar();
    const HWND frame = host->Frame();
    const host_tests::HeldHost held(Edit().window);
    SendNotifyMessageA(frame, hostlink::SendRemotelyMessage(), 0, 0);
    std::optional<LRESULT> count;
    std::thread sender([&] { count = hostlink::TryRemoteSend(bar, TB_BUTTONCOUNT, 0); });
    EXPECT_TRUE(Eventually([] { return shared.remoteHook != 0; }));
    held.Release();
    sender.join();
    ASSERT_TRUE(count.has_value());
    EXPECT_GT(*count, 0);
}

// Two scripts at once: what one has published another one overwrites, but each removes its own hook.
TEST_F(HostLink, LeavesNoHookWhereAnotherScriptPublishedItsOwn) {
    const host_tests::AnsweringHook answering(host->ThreadId());
    const hostlink::HostWindow edit = Edit();
    const host_tests::HeldHost held(edit.window);
    std::thread sender([&] { hostlink::RemoteSend(edit, hostlink::MSG_GX_RequestGridInformation, 0); });
    EXPECT_TRUE(Eventually([] { return shared.remoteHook != 0; }));
    const HHOOK own = hostlink::ToHook(shared.remoteHook);
    shared.remoteHook = 0; // the other one has finished
    held.Release();
    sender.join();
    EXPECT_FALSE(UnhookWindowsHookEx(own)) << "it is still there";
}

TEST_F(HostLink, ComesBackFromAWindowThatGoesInTheMiddle) {
    const HWND dialog = host->WaitForWindow("find");
    ASSERT_NE(dialog, nullptr);
    SampleHost::Misbehave(dialog, Misbehaviour::DestroyOnCommand);
    SendMessageA(dialog, WM_COMMAND, 0, 0);
    EXPECT_TRUE(Eventually([&] { return !IsWindow(dialog); }));
    EXPECT_EQ(hostlink::TryRemoteSend(At(dialog), hostlink::MSG_GX_RequestGridInformation, 0), std::nullopt);
    ExpectNoHookLeft(host->Frame());
}

TEST_F(HostLink, SetsOneKeyOfTheHostsThread) {
    const host_tests::AnsweringHook answering(host->ThreadId());
    std::array<std::byte, 256> before = {}, held = {}, after = {};
    const auto readKeys = [&](std::array<std::byte, 256>& keys) {
        hostlink::RemoteSend(Edit(), host_tests::AnswerMessage(), Answer::kReadKeys, keys);
    };
    readKeys(before);
    hostlink::SetHostKeyState(Edit(), VK_CONTROL, hostlink::kKeyHeld);
    readKeys(held);
    hostlink::SetHostKeyState(Edit(), VK_CONTROL, hostlink::kKeyReleased);
    readKeys(after);

    // Bits beyond "down" and "toggled" mean nothing, and Wine drops them.
    EXPECT_EQ(held[VK_CONTROL] & std::byte{0x81}, std::byte{0x80});
    held[VK_CONTROL] = before[VK_CONTROL];
    EXPECT_EQ(held, before);
    EXPECT_EQ(after[VK_CONTROL] & std::byte{0x80}, std::byte{0});
    ExpectNoHookLeft(Edit().window);
}

TEST_F(HostLink, CapturesTheMenuOrThePopupBarThatAClickOpens) {
    const auto rightClick = [](HWND area) {
        PostMessageA(area, WM_RBUTTONDOWN, MK_RBUTTON, MAKELPARAM(5, 5));
        PostMessageA(area, WM_RBUTTONUP, 0, MAKELPARAM(5, 5));
    };
    const HWND systemArea = host->WaitForWindow("Context menus.1087");
    const HWND ownArea = host->WaitForWindow("Context menus.1085");
    ASSERT_NE(systemArea, nullptr);
    ASSERT_NE(ownArea, nullptr);
    {
        const hostlink::MenuCapture capture(host->ThreadId());
        ASSERT_TRUE(capture.Installed());
        rightClick(systemArea);
        EXPECT_TRUE(Eventually([&] { return capture.MenuWindow() != nullptr; }));
        EXPECT_EQ(capture.BarWindow(), nullptr);
        PostMessageA(systemArea, WM_KEYDOWN, VK_ESCAPE, 0);
        EXPECT_TRUE(Eventually([&] { return !IsWindowVisible(capture.MenuWindow()); }));
    }
    {
        const hostlink::MenuCapture capture(host->ThreadId());
        EXPECT_EQ(capture.MenuWindow(), nullptr);
        rightClick(ownArea);
        EXPECT_TRUE(Eventually([&] { return capture.BarWindow() != nullptr; }));
        EXPECT_EQ(capture.MenuWindow(), nullptr);
    }
    EXPECT_EQ(shared.menuCaptureHook, 0u);
}

TEST(HostLinkCrash, EndsTheExchangeAndLeavesTheNextHostAlone) {
    hostlink::SetModuleInstance(support::ThisModule());
    const UINT message = hostlink::MSG_GX_RequestGridInformation;
    std::array<std::byte, 24> block = {};
    {
        const SampleHost dying;
        SampleHost::Misbehave(dying.Frame(), Misbehaviour::CrashOnMessage, message);
        EXPECT_EQ(hostlink::RemoteSend({dying.Frame(), dying.ThreadId()}, message, 0, block), 0);
        EXPECT_EQ(dying.ExitCode(), static_cast<DWORD>(sample_host::kCrashExitCode));
    }
    EXPECT_EQ(shared.remoteHook, 0u);
    const SampleHost next;
    EXPECT_TRUE(hostlink::TryRemoteSend({next.Frame(), next.ThreadId()}, message, 0, block));
}

} // namespace
