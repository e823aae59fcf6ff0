// The shortest call to a window of another thread, where windows differ by little or nothing, and what is
// known of a window without asking it.
#include "explain/window_call.h"

#include <gmock/gmock.h>

#include <memory>
#include <set>
#include <string>
#include <vector>

#include "explain/call_text.h"
#include "explain/utf8.h"
#include "explain/window_facts.h"
#include "support/gui_thread.h"

namespace {

using explain::CallFinder;
using explain::Flags;
using explain::Follow;
using explain::Step;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;

std::string VBScript(const explain::WindowCall& found) {
    return explain::CallText(found.call, explain::Language::VBScript);
}

// The same for a caller that has the object of the root.
std::string BelowRoot(const explain::WindowCall& found) {
    return found.call.empty() ? found.obstacle
                              : explain::CallText({found.call.begin() + 1, found.call.end()},
                                                  explain::Language::VBScript, "root");
}

class WindowCallTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        s_gui = std::make_unique<support::GuiThread>();
        s_gui->Run([] {
            WNDCLASSW windowClass{};
            windowClass.lpfnWndProc = DefWindowProcW;
            windowClass.lpszClassName = L"CallTestRoot";
            RegisterClassW(&windowClass);
            s_root =
                CreateWindowExW(0, L"CallTestRoot", L"Root of the calls", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0,
                                0, 300, 200, nullptr, nullptr, nullptr, nullptr);
        });
    }
    static void TearDownTestSuite() {
        s_gui->Run([] { DestroyWindow(s_root); });
        s_gui.reset();
    }
    void TearDown() override {
        for (const HWND child : explain::ChildrenOf(s_root)) {
            s_gui->Run([&] { DestroyWindow(child); });
        }
    }

    static HWND Root() { return s_root; }

    static HWND Make(const wchar_t* className, const wchar_t* caption, HWND parent, std::intptr_t id = 0,
                     DWORD style = WS_VISIBLE) {
        HWND window = nullptr;
        s_gui->Run([&] {
            window = CreateWindowExW(0, className, caption, WS_CHILD | style, 0, 0, 50, 20, parent,
                                     reinterpret_cast<HMENU>(id), nullptr, nullptr);
        });
        return window;
    }

    // The call's text behind the root, once following it has led to the window.
    static std::string FollowedCall(HWND window) {
        const explain::WindowCall found = explain::CallTo(window);
        EXPECT_TRUE(found.isVerified) << found.obstacle;
        EXPECT_EQ(Follow(found.call), window) << VBScript(found);
        return BelowRoot(found);
    }

    static const support::GuiThread& Gui() { return *s_gui; }

private:
    static inline std::unique_ptr<support::GuiThread> s_gui;
    static inline HWND s_root = nullptr;
};

TEST_F(WindowCallTest, TakesTheMostStableWayToTellAWindowApart) {
    const HWND edit = Make(L"Edit", L"", Root());
    EXPECT_EQ(FollowedCall(edit), "root.Edit") << "the only one needs no argument";
    const HWND second = Make(L"Edit", L"", Root(), 7);
    EXPECT_EQ(FollowedCall(second), "root.Edit(7)");
    const HWND ok = Make(L"Button", L"OK", Root(), 1);
    const HWND cancel = Make(L"Button", L"Cancel", Root(), 2);
    EXPECT_EQ(FollowedCall(ok), "root.Button(\"\", 1)") << "the id before the caption";
    const HWND twin = Make(L"Button", L"Cancel all", Root(), 2);
    EXPECT_EQ(FollowedCall(twin), "root.Button(\"Cancel all\")");
    EXPECT_THAT(FollowedCall(cancel), HasSubstr("root.Button(\"\", 2")) << "its caption is in the other's";
    const HWND label = Make(L"Static", L"Name:", Root(), 0xFFFF);
    EXPECT_EQ(FollowedCall(label), "root.ChildWindow(\"Name:\")") << "that id says: none";
    const HWND nameless = Make(L"CallTestRoot", L"", Root());
    EXPECT_EQ(FollowedCall(nameless), "root.ChildWindow(\"\", \"CallTestRoot\")");
    const HWND box = Make(L"Button", L"", Root(), 3, WS_VISIBLE | BS_AUTOCHECKBOX);
    EXPECT_EQ(FollowedCall(box), "root.CheckBox") << "push buttons are none";
}

TEST_F(WindowCallTest, LookAlikesAreToldByTheirParentsElseCounted) {
    const HWND left = Make(L"CallTestRoot", L"Left", Root(), 10);
    const HWND right = Make(L"CallTestRoot", L"Right", Root(), 11);
    const HWND inLeft = Make(L"Edit", L"", left, 5);
    const HWND inRight = Make(L"Edit", L"", right, 5);
    EXPECT_EQ(FollowedCall(inLeft), "root.ChildWindow(\"\", \"\", 10).Edit");
    EXPECT_EQ(FollowedCall(inRight), "root.ChildWindow(\"\", \"\", 11).Edit");

    // They differ by nothing, and neither do their parents.
    std::vector<HWND> same;
    for (int panel = 0; panel < 2; ++panel) {
        const HWND parent = Make(L"Static", L"", Root());
        for (int index = 0; index < 3; ++index) {
            same.push_back(Make(L"Button", L"", parent));
        }
    }
    std::set<std::string> calls;
    for (const HWND window : same) {
        calls.insert(FollowedCall(window));
    }
    EXPECT_EQ(calls.size(), same.size());
    EXPECT_THAT(calls, testing::Contains("root.Button(\"\", 0, &H60040&)"));
}

TEST_F(WindowCallTest, WhatIsHiddenOrBelowSomethingHiddenTakesAFlag) {
    const HWND hidden = Make(L"CallTestRoot", L"Hidden", Root(), 10, 0);
    const HWND inHidden = Make(L"Edit", L"", hidden, 5);
    EXPECT_EQ(FollowedCall(hidden), "root.ChildWindow(\"\", \"\", 10, &H80)");
    EXPECT_EQ(FollowedCall(inHidden), "root.Edit(5, &HC0)");
    Make(L"Edit", L"", Root(), 5, 0);
    const HWND shown = Make(L"Edit", L"", Root(), 5);
    EXPECT_EQ(FollowedCall(shown), "root.Edit") << "no search sees the one before it";
    EXPECT_EQ(FollowedCall(inHidden), "root.ChildWindow(\"\", \"\", 10, &H80).Edit(5, &H80)");
}

TEST_F(WindowCallTest, CaptionsAreWrittenExactlyOrNotAtAll) {
    const HWND quotes = Make(L"Button", L"say \"x\"\t'y'\n", Root());
    EXPECT_EQ(FollowedCall(quotes), "root.Button");
    const HWND plain = Make(L"Button", L"plain", Root());
    EXPECT_EQ(FollowedCall(quotes), "root.Button(\"say \"\"x\"\"\" & ChrW(9) & \"'y'\" & ChrW(10))");
    EXPECT_EQ(FollowedCall(plain), "root.Button(\"plain\")");
    const HWND full = Make(L"Button", std::wstring(259, L'x').c_str(), Root());
    EXPECT_THAT(FollowedCall(full), HasSubstr("xxx"));
    const HWND tooLong = Make(L"Button", std::wstring(260, L'y').c_str(), Root());
    EXPECT_THAT(FollowedCall(tooLong), Not(HasSubstr("yyy"))) << "a search does not read it to its end";

    const wchar_t* const texts[] = {L"\u00C4ndern", L"\u05E9\u05DC\u05D5\u05DD\u200F", L"\U0001F529"};
    for (const wchar_t* text : texts) {
        const HWND window = Make(L"Button", text, Root());
        BOOL isReplaced = FALSE;
        WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, text, -1, nullptr, 0, nullptr,
                            GetACP() == CP_UTF8 ? nullptr : &isReplaced);
        const explain::WindowCall found = explain::CallTo(window);
        EXPECT_EQ(Follow(found.call), window);
        EXPECT_EQ(found.call.back() == (Step{"Button", {explain::ToUtf8(text)}}), !isReplaced)
            << VBScript(found);
    }
}

TEST_F(WindowCallTest, WindowsThatNoSearchSeesHaveAnObstacle) {
    HWND messageOnly = nullptr;
    Gui().Run([&] {
        messageOnly =
            CreateWindowExW(0, L"CallTestRoot", L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
    });
    const explain::WindowCall found = explain::CallTo(messageOnly);
    EXPECT_THAT(found.call, IsEmpty());
    EXPECT_THAT(found.obstacle, HasSubstr("desktop"));
    Gui().Run([&] { DestroyWindow(messageOnly); });
    EXPECT_THAT(explain::CallTo(messageOnly).obstacle, HasSubstr("gone"));
    EXPECT_THAT(explain::CallTo(nullptr).obstacle, HasSubstr("gone"));
}

TEST_F(WindowCallTest, ACallThatAFinderHasNoTimeForIsTheSameButNotRun) {
    const HWND parent = Make(L"CallTestRoot", L"", Root(), 4);
    const HWND window = Make(L"Edit", L"", parent, 5);
    const explain::WindowCall thoughtThrough = CallFinder(0).CallTo(window);
    const explain::WindowCall run = CallFinder().CallTo(window);
    EXPECT_FALSE(thoughtThrough.isVerified);
    EXPECT_TRUE(run.isVerified);
    EXPECT_EQ(VBScript(thoughtThrough), VBScript(run));
}

TEST_F(WindowCallTest, OnlyCallsThatLeadToAWindowAreFollowed) {
    const HWND edit = Make(L"Edit", L"", Root(), 5);
    explain::Call call = explain::CallTo(edit).call;
    call.push_back({"Parent", {}});
    EXPECT_EQ(Follow(call), Root());
    call.push_back({"NoSuchMember", {}});
    EXPECT_EQ(Follow(call), nullptr);
    call.back() = call.front();
    EXPECT_EQ(Follow(call), nullptr) << "the entry object stands at the beginning only";
    EXPECT_EQ(Follow({}), nullptr);
    EXPECT_EQ(Follow({{"Edit", {std::int64_t{5}}}}), nullptr);
}

TEST_F(WindowCallTest, StylesAreNamedAsTheClassMeansThem) {
    const auto names = [](HWND window) { return explain::StyleNames(explain::FactsOf(window)); };
    EXPECT_THAT(names(Make(L"Button", L"", Root(), 0,
                           WS_VISIBLE | WS_TABSTOP | WS_GROUP | BS_AUTORADIOBUTTON | BS_RIGHT | BS_NOTIFY)),
                ElementsAre("WS_CHILD", "WS_VISIBLE", "WS_GROUP", "WS_TABSTOP", "BS_AUTORADIOBUTTON",
                            "BS_RIGHT", "BS_NOTIFY"));
    EXPECT_THAT(names(Make(L"Button", L"", Root(), 0, 0)), ElementsAre("WS_CHILD", "BS_PUSHBUTTON"));
    EXPECT_THAT(names(Make(L"Edit", L"", Root(), 0, ES_RIGHT | ES_NUMBER | 0x4000)),
                ElementsAre("WS_CHILD", "ES_RIGHT", "ES_NUMBER", "0x4000"));
    EXPECT_THAT(names(Root()),
                IsSupersetOf({"WS_OVERLAPPED", "WS_CAPTION", "WS_MINIMIZEBOX", "WS_MAXIMIZEBOX"}));
    EXPECT_THAT(names(Root()), Not(testing::Contains("WS_BORDER"))) << "a part of the caption's bits";
    // The bits of other classes mean nothing here.
    EXPECT_THAT(names(Make(L"CallTestRoot", L"", Root(), 0, 3)), ElementsAre("WS_CHILD", "0x3"));
}

} // namespace
