// The windows that a search rejected, with windows of another thread.
#include "engine/window_finders.h"
#include "explain/nearest_misses.h"
#include "support/gui_thread.h"

#include <gmock/gmock.h>

#include <memory>

namespace {

using namespace engine;
using explain::Miss;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;

constexpr std::uint32_t kAnyStyle = kIgnoreStyle;

// frame "Frame": "&Apply" (Button, 1), hidden "Hidden" (Button, 2), disabled "Locked" (Button, 3), check box
// "Grid" (Button, 4), "Open File" (Static, 5), panel "Panel" (Static, 6) with "Deep" (Button, 7) inside,
// hidden panel "Drawer" (Static, 8) with "In drawer" (Button, 9) inside, three edit controls 11 to 13. Owned
// dialog "Settings" with "L\xF6schen" (Button, 21).
class NearestMisses : public testing::Test {
protected:
    static void SetUpTestSuite() {
        gui = std::make_unique<support::GuiThread>();
        gui->Run([] {
            frame = Make("#32770", "Frame", WS_OVERLAPPEDWINDOW | WS_VISIBLE, nullptr, 0);
            Child("Button", "&Apply", frame, 1);
            Make("Button", "Hidden", WS_CHILD, frame, 2);
            Child("Button", "Locked", frame, 3, WS_DISABLED);
            Child("Button", "Grid", frame, 4, BS_AUTOCHECKBOX);
            Child("Static", "Open File", frame, 5);
            panel = Child("Static", "Panel", frame, 6);
            Child("Button", "Deep", panel, 7);
            const HWND drawer = Make("Static", "Drawer", WS_CHILD, frame, 8);
            Child("Button", "In drawer", drawer, 9);
            for (UINT_PTR id = 11; id <= 13; ++id) {
                Child("Edit", "", frame, id);
            }
            dialog = Make("#32770", "Settings", WS_POPUP | WS_CAPTION | WS_VISIBLE, frame, 0);
            Child("Button", "L\xF6schen", dialog, 21);
        });
    }
    static void TearDownTestSuite() {
        gui->Run([] { DestroyWindow(frame); });
        gui.reset();
    }

    static HWND Make(const char* className, const char* caption, DWORD style, HWND parent, UINT_PTR id) {
        return CreateWindowExA(0, className, caption, style, 0, 0, 200, 100, parent,
                               reinterpret_cast<HMENU>(id), nullptr, nullptr);
    }
    static HWND Child(const char* className, const char* caption, HWND parent, UINT_PTR id, DWORD style = 0) {
        return Make(className, caption, WS_CHILD | WS_VISIBLE | style, parent, id);
    }

    static WindowCriteria Wanted(HWND parent, std::string_view caption, std::string_view className,
                                 std::int64_t id = 0, std::uint32_t flags = 0) {
        WindowCriteria criteria;
        criteria.parent = parent;
        criteria.flags = flags | kAnyStyle;
        WantCaption(criteria, caption);
        WantClass(criteria, className);
        WantId(criteria, id);
        return criteria;
    }

    // "NAME: REASON, REASON -> HINT"
    static std::string Text(const Miss& miss) {
        std::string text = miss.name + ":";
        for (const std::string& reason : miss.reasons) {
            text += (text.ends_with(":") ? " " : ", ") + reason;
        }
        return miss.hint.empty() ? text : text + " -> " + miss.hint;
    }
    // Of a search that must have found nothing.
    static std::string Nearest(WindowCriteria criteria) {
        EXPECT_FALSE(engine::Search(criteria));
        const auto misses = explain::NearestMisses({&criteria, 1});
        return misses.empty() ? "" : Text(misses.front());
    }

    static inline std::unique_ptr<support::GuiThread> gui;
    static inline HWND frame, panel, dialog;
};

TEST_F(NearestMisses, NamesTheTestThatRejected) {
    EXPECT_EQ(Nearest(Wanted(frame, "Locked", "Button", 0, kEnabledOnly)),
              "Button 'Locked' id 3: is disabled -> leave &H100 out of the flags, or wait longer");
    EXPECT_EQ(Nearest(Wanted(frame, "Hidden", "Button")),
              "Button 'Hidden' id 2: is hidden -> add &H80 to the flags");
    EXPECT_EQ(Nearest(Wanted(frame, "Deep", "Button")), "Button 'Deep' id 7: is not a direct child of dialog "
                                                        "'Frame' -> add &H40 to the flags");
    EXPECT_EQ(Nearest(Wanted(frame, "In drawer", "Button")),
              "Button 'In drawer' id 9: is not a direct child of dialog 'Frame', lies below a hidden parent, "
              "Static 'Drawer' id 8 -> add &HC0 to the flags");
    EXPECT_EQ(Nearest(Wanted(frame, "Open file", "")),
              "Static 'Open File' id 5: caption 'Open File' does not "
              "contain 'Open file': it differs only in upper and "
              "lower case");
    EXPECT_EQ(
        Nearest(Wanted(frame, "Apply...", "Button")),
        "Button '&Apply' id 1: caption '&Apply' does not contain 'Apply...': it differs only in the mark "
        "of the key, the dots or the case");
    EXPECT_EQ(Nearest(Wanted(frame, "Apply", "Buton")),
              "Button '&Apply' id 1: class 'Button' does not contain 'Buton'");
    EXPECT_EQ(Nearest(Wanted(frame, "Apply", "Button", 8)), "Button '&Apply' id 1: id 1 is not 8");
    EXPECT_EQ(Nearest(Wanted(dialog, "L\xD6SCHEN", "Button")),
              "Button 'L\xC3\xB6schen' id 21: caption 'L\xC3\xB6schen' does not contain 'L\xC3\x96SCHEN': it "
              "differs only in upper and lower case");
}

TEST_F(NearestMisses, LooksBeyondTheParent) {
    // The dialog belongs to the frame, not to the panel, and is no child at any depth.
    EXPECT_EQ(
        Nearest(Wanted(frame, "Settings", "", 0, kAnyDescendant)),
        "dialog 'Settings': is owned by dialog 'Frame', which is no child at any depth -> leave &H40 out "
        "of the flags");
    EXPECT_EQ(Nearest(Wanted(panel, "Settings", "")),
              "dialog 'Settings': belongs to dialog 'Frame', not to Static 'Panel' id 6");
    EXPECT_EQ(Nearest(Wanted(frame, "schen", "Button", 0, kAnyDescendant)),
              "Button 'L\xC3\xB6schen' id 21: belongs to dialog 'Settings', not to dialog 'Frame'");
    EXPECT_EQ(Nearest(Wanted(dialog, "Settings", "")),
              "dialog 'Settings': is the window itself in which was looked");
}

TEST_F(NearestMisses, KnowsTheMembersOwnTests) {
    WindowCriteria checkBox = Wanted(frame, "Apply", "Button");
    checkBox.customTest = [](HWND) { return false; };
    checkBox.customKind = "check box";
    EXPECT_EQ(Nearest(checkBox), "Button '&Apply' id 1: is a push button, no check box");
    WindowCriteria grid = Wanted(frame, "", "", 5);
    grid.customTest = [](HWND) { return false; };
    grid.customKind = "grid";
    EXPECT_EQ(Nearest(grid), "Static 'Open File' id 5: does not answer as a grid");
    grid.flags |= kIgnoreId;
    EXPECT_EQ(Nearest(grid), ""); // all windows would be as near
}

TEST_F(NearestMisses, CountsOccurrences) {
    WindowCriteria third = Wanted(frame, "", "Edit", 0, 4u << 16);
    ASSERT_FALSE(engine::Search(third));
    const auto misses = explain::NearestMisses({&third, 1});
    ASSERT_EQ(misses.size(), 5u);
    EXPECT_EQ(Text(misses[0]), "Edit id 11: only 3 of the 4 wanted occurrences exist -> the high half of the "
                               "flags may be 3 at most");
    EXPECT_EQ(misses[2].name, "Edit id 13");
}

TEST_F(NearestMisses, SaysWhenItIsThereByNow) {
    const WindowCriteria late = Wanted(frame, "Apply", "Button");
    const auto misses = explain::NearestMisses({&late, 1}, 1);
    ASSERT_EQ(misses.size(), 1u);
    EXPECT_EQ(Text(misses[0]),
              "Button '&Apply' id 1: is there by now: it came when the time was over -> wait "
              "longer");
    RECT rectangle;
    GetWindowRect(misses[0].window, &rectangle);
    EXPECT_TRUE(EqualRect(&rectangle, &misses[0].rectangle));
}

TEST_F(NearestMisses, TakesTheNearestOfSeveralSearches) {
    const WindowCriteria searches[] = {Wanted(frame, "", "ToolbarWindow32", 1),
                                       Wanted(frame, "", "BCGToolBar", 1), Wanted(frame, "", "Buttons", 1)};
    const auto misses = explain::NearestMisses(searches, 1);
    ASSERT_EQ(misses.size(), 1u);
    EXPECT_EQ(Text(misses[0]), "Button '&Apply' id 1: class 'Button' does not contain 'Buttons'");
}

TEST_F(NearestMisses, ExplainsTheSearchForAMainWindow) {
    WindowCriteria program = Wanted(nullptr, "", "");
    SetSearchText(program.moduleName, "nearest_mises");
    EXPECT_EQ(Nearest(program), "dialog 'Frame': no program with a window has a file name that begins with "
                                "'nearest_mises'; 'nearest_misses_test.exe' runs");
    WindowCriteria owned = Wanted(nullptr, "Settings", "");
    SetSearchText(owned.moduleName, "nearest_misses");
    EXPECT_EQ(Nearest(owned), "dialog 'Settings': has a parent or owner -> add &H200 to the flags");
}

TEST_F(NearestMisses, FindsNothingNearWhereNothingIs) {
    EXPECT_THAT(explain::NearestMisses({}), IsEmpty());
    const WindowCriteria unlike = Wanted(frame, "xyzzy", "Kontrolle", 4711);
    EXPECT_THAT(explain::NearestMisses({&unlike, 1}), IsEmpty());
    HWND gone = nullptr;
    gui->Run([&] { DestroyWindow(gone = Child("Static", "", frame, 99)); });
    const WindowCriteria belowGone = Wanted(gone, "Apply", "Button");
    EXPECT_THAT(explain::NearestMisses({&belowGone, 1}), IsEmpty());
}

// With thousands of windows the answer is the same each time, and comes.
TEST_F(NearestMisses, BearsThousandsOfWindows) {
    constexpr UINT_PTR kWindows = 5000;
    HWND crowd = nullptr;
    gui->Run([&] {
        crowd = Make("#32770", "Crowd", WS_OVERLAPPEDWINDOW | WS_VISIBLE, nullptr, 0);
        Child("Button", "Aply", crowd, 1);
        for (UINT_PTR id = 2; id <= kWindows; ++id) {
            Child("Static", "", crowd, id);
        }
    });
    const WindowCriteria wanted = Wanted(crowd, "Apply", "Button");
    const ULONGLONG begin = GetTickCount64();
    const auto misses = explain::NearestMisses({&wanted, 1}, 1);
    EXPECT_LT(GetTickCount64() - begin, 5000u);
    ASSERT_EQ(misses.size(), 1u);
    EXPECT_EQ(misses[0].name, "Button 'Aply' id 1");
    gui->Run([&] { DestroyWindow(crowd); });
}

TEST(MissTexts, StayOnOneLine) {
    EXPECT_EQ(explain::Quoted("a\r\nb\tc"), "'a  b c'");
    EXPECT_EQ(explain::Quoted(std::string(59, 'x') + "\xC3\xB6y"), "'" + std::string(59, 'x') + "...'");
    EXPECT_EQ(explain::Hexadecimal(0x80000040), "&H80000040");
}

} // namespace
