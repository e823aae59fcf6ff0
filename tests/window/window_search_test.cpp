// The search over windows, and the navigations that rest on it, with windows of another thread.
#include "engine/diagnostics.h"
#include "engine/window_finders.h"
#include "engine/window_search.h"
#include "support/gui_thread.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>
#include <vector>

namespace {

using namespace engine;
using testing::HasSubstr;

LRESULT CALLBACK DefaultProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return DefWindowProcA(window, message, wParam, lParam);
}

void RegisterTestClass(const char* name) {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = DefaultProcedure;
    windowClass.lpszClassName = name;
    RegisterClassA(&windowClass);
}

// root: "one" (Edit, 1), hidden "two" (Edit, 2), disabled "three" (Edit, 3), panel "panel" (Static, 4) with
// "deep" (Edit, 5) inside, "six" (RichLikeEdit20, 6). Owned popup "popup" (#32770, visible).
class Search : public testing::Test {
protected:
    static void SetUpTestSuite() {
        gui = std::make_unique<support::GuiThread>();
        gui->Run([] {
            for (const char* name : {"RichLikeEdit20", "BCGTabLike", "TestRoot"}) {
                RegisterTestClass(name);
            }
            root = Make("TestRoot", "root", WS_OVERLAPPEDWINDOW | WS_VISIBLE, nullptr, 0);
            one = Child("Edit", "one", root, 1);
            two = Make("Edit", "two", WS_CHILD, root, 2);
            three = Child("Edit", "three", root, 3, WS_DISABLED);
            panel = Child("Static", "panel", root, 4);
            deep = Child("Edit", "deep", panel, 5);
            six = Child("RichLikeEdit20", "six", root, 6);
            popup = Make("#32770", "popup", WS_POPUP | WS_CAPTION | WS_VISIBLE, root, 0);
        });
    }
    static void TearDownTestSuite() {
        gui->Run([] { DestroyWindow(root); });
        gui.reset();
    }
    void TearDown() override {
        gui->Run([this] {
            SetWindowTextA(one, "one");
            SetWindowTextA(three, "three");
            for (const HWND window : extras) {
                DestroyWindow(window);
            }
        });
    }

    // One more child of the root, for this test alone. On the GUI thread.
    HWND Extra(const char* className, const char* caption, UINT_PTR id, DWORD style = 0) {
        return extras.emplace_back(Child(className, caption, root, id, style));
    }

    static HWND Make(const char* className, const char* caption, DWORD style, HWND parent, UINT_PTR id) {
        return CreateWindowExA(0, className, caption, style, 0, 0, 200, 100, parent,
                               reinterpret_cast<HMENU>(id), nullptr, nullptr);
    }
    static HWND Child(const char* className, const char* caption, HWND parent, UINT_PTR id, DWORD style = 0) {
        return Make(className, caption, WS_CHILD | WS_VISIBLE | style, parent, id);
    }

    HWND Find(std::uint32_t flags, std::string_view caption = "", std::string_view className = "",
              std::int64_t id = 0, std::uint64_t style = 0, bool (*customTest)(HWND) = nullptr) const {
        WindowCriteria criteria;
        criteria.parent = root;
        criteria.flags = flags;
        SetSearchText(criteria.caption, caption);
        SetSearchText(criteria.className, className);
        criteria.controlId = id;
        criteria.style = style;
        criteria.customTest = customTest;
        return engine::Search(criteria) ? criteria.result : nullptr;
    }

    static inline std::unique_ptr<support::GuiThread> gui;
    static inline HWND root, one, two, three, panel, deep, six, popup;
    std::vector<HWND> extras;
};

constexpr std::uint32_t kAnyId = kIgnoreId | kIgnoreStyle;

TEST_F(Search, ComparesTextsWholeOrByContainment) {
    EXPECT_EQ(Find(kAnyId | kIgnoreClass, "one"), one);
    EXPECT_EQ(Find(kAnyId | kIgnoreClass, "On"), nullptr);
    EXPECT_EQ(Find(kAnyId | kIgnoreClass | kCaptionContains, "hre"), three);
    EXPECT_EQ(Find(kAnyId | kIgnoreCaption, "", "edit"), nullptr);
    EXPECT_EQ(Find(kAnyId | kIgnoreCaption | kClassContains, "", "Like"), six);
    EXPECT_EQ(Find(kAnyId | kIgnoreClass, ""), nullptr); // none has an empty caption
    EXPECT_EQ(Find(kAnyId | kIgnoreClass | kCaptionContains, ""), one);
    gui->Run([] { SetWindowTextA(three, ""); });
    EXPECT_EQ(Find(kAnyId | kIgnoreClass, ""), three);
}

TEST_F(Search, HonoursEachFlag) {
    const std::uint32_t anyText = kIgnoreCaption | kIgnoreClass | kIgnoreStyle;
    EXPECT_EQ(Find(anyText, "", "", 2), nullptr);
    EXPECT_EQ(Find(anyText | kIncludeHidden, "", "", 2), two);
    EXPECT_EQ(Find(anyText, "", "", 3), three);
    EXPECT_EQ(Find(anyText | kEnabledOnly, "", "", 3), nullptr);
    EXPECT_EQ(Find(anyText, "", "", 5), nullptr);
    EXPECT_EQ(Find(anyText | kAnyDescendant, "", "", 5), deep);
    EXPECT_EQ(Find(anyText | 0xF800, "", "", 1), one); // bits without a meaning
    EXPECT_EQ(Find(kIgnoreCaption | kIgnoreClass | kIgnoreId, "", "", 0, WS_CHILD), one);
    EXPECT_EQ(Find(kIgnoreCaption | kIgnoreClass | kIgnoreId, "", "", 0, WS_POPUP | WS_CAPTION), popup);
    EXPECT_EQ(Find(anyText | kIgnoreId, "", "", 0, 0, [](HWND window) { return GetDlgCtrlID(window) == 4; }),
              panel);
}

// A form that was put into the window and kept its popup style: enumerated below it, but no child of it.
TEST_F(Search, LeavesOutWhatAPopupInsideHolds) {
    HWND form = nullptr, field = nullptr;
    gui->Run([&] {
        form = extras.emplace_back(Make("TestRoot", "form", WS_POPUP | WS_VISIBLE, nullptr, 0));
        SetParent(form, root);
        field = Child("Edit", "field", form, 40);
    });
    EXPECT_EQ(GetAncestor(field, GA_ROOT), root);
    for (const std::uint32_t asked : {0u, kIgnoreId + 0u}) {
        EXPECT_EQ(Find(kIgnoreStyle | kIgnoreClass | kAnyDescendant | asked, "field", "", 40), nullptr);
    }
    EXPECT_EQ(FindControl(form, kEdit, 40, 0), field);
}

TEST_F(Search, CountsOccurrencesOnThroughBothPasses) {
    const auto occurrence = [this](std::uint32_t number) {
        return Find(kAnyId | kIgnoreCaption | kIgnoreClass | number << 16);
    };
    EXPECT_EQ(occurrence(0), one);
    EXPECT_EQ(occurrence(1), one);
    EXPECT_EQ(occurrence(2), three);
    EXPECT_EQ(occurrence(4), six);
    EXPECT_EQ(occurrence(5), popup); // an owned popup is found in the pass over top-level windows
    EXPECT_EQ(occurrence(6), nullptr);
    EXPECT_EQ(occurrence(0x8001), nullptr);
}

TEST_F(Search, TakesTopLevelWindowsByProgramAndOwnership) {
    WindowCriteria criteria;
    criteria.flags = kAnyId | kIgnoreClass;
    SetSearchText(criteria.caption, "root");
    SetSearchText(criteria.moduleName, "WINDOW_SEARCH"); // of window_search_test.exe
    EXPECT_TRUE(engine::Search(criteria));
    EXPECT_EQ(criteria.result, root);

    SetSearchText(criteria.moduleName, "indow_search");
    criteria.result = nullptr;
    EXPECT_FALSE(engine::Search(criteria));

    EXPECT_EQ(FindMainWindow("window_search", "popup", "", 0), nullptr);
    EXPECT_EQ(FindMainWindow("window_search", "popup", "", kTopLevelWithParent), popup);
}

TEST_F(Search, CutsOverlongTextsInsteadOfOverflowing) {
    gui->Run([] { SetWindowTextA(one, std::string(300, 'a').c_str()); });
    EXPECT_EQ(Find(kAnyId | kIgnoreClass, std::string(5000, 'a')), one); // both are 259 bytes now
    EXPECT_EQ(Find(kAnyId | kIgnoreCaption, "", std::string(5000, 'E')), nullptr);
}

TEST_F(Search, DescribesWindowsOnlyToAListener) {
    static std::string described;
    described.clear();
    Find(kAnyId | kIgnoreClass, "one");
    diagnostics::SetSink([](std::string_view text) { described += text; });
    EXPECT_EQ(Find(kIgnoreStyle | kIgnoreClass, "one", "", 1, 0, [](HWND) { return true; }), one);
    diagnostics::SetSink(nullptr);
    Find(kAnyId | kIgnoreClass, "one");
    EXPECT_THAT(described, HasSubstr("  Flags: 40\n  Process: \n  Caption: one\n  Class: Edit\n"
                                     "  Style: 1073741824\n  ID: 1\n  Custom function  Flags: 40\n"));
    EXPECT_EQ(described.find("Caption: one"), described.rfind("Caption: one"));
    // The search goes on to the end although its match is at hand.
    EXPECT_THAT(described, HasSubstr("Caption: six"));
}

TEST_F(Search, NavigatesByKindOfControl) {
    EXPECT_EQ(FindControl(root, kEdit, 0, 0), one);
    EXPECT_EQ(FindControl(root, kEdit, -5, 0), one);
    EXPECT_EQ(FindControl(root, kEdit, 6, 0), six);
    EXPECT_EQ(FindControl(root, kListBox, 0, 0), nullptr);
    EXPECT_EQ(FindControl(root, kEdit, 5, kAnyDescendant), deep);
    EXPECT_EQ(FindControl(nullptr, kEdit, 0, kAnyDescendant | kIncludeHidden), nullptr);
    EXPECT_EQ(FindChildWindow(root, "anel", "tat", 4, 0), panel);
    EXPECT_EQ(FindChildWindow(root, "", "", 0, 3u << 16), panel);
    EXPECT_EQ(FindChildDialog(root, "pop", 0, 0), popup);

    HWND hostTab = nullptr, tab = nullptr;
    gui->Run([&] {
        hostTab = Extra("BCGTabLike", "", 20);
        RegisterTestClass("SysTabControl32");
        tab = Extra("SysTabControl32", "", 21);
    });
    EXPECT_EQ(FindTabControl(root, 0, 0), tab);
    EXPECT_EQ(FindTabControl(root, 20, 0), hostTab);
}

TEST_F(Search, FindsTheDialogOfALabelOrElseOfAButton) {
    HWND inner = nullptr;
    gui->Run([&] {
        inner = Extra("#32770", "inner", 30);
        Make("Static", "Name:", WS_CHILD, inner, 31);
        Extra("Button", "Apply", 32);
    });
    EXPECT_EQ(FindChildDialogByControl(root, "Name", 0, false), inner);
    EXPECT_EQ(FindChildDialogByControl(root, "Name", 0, true), nullptr);
    EXPECT_EQ(FindChildDialogByControl(root, "Apply", 0, true), root);
    EXPECT_EQ(FindChildDialogByControl(root, "", 31, false), inner);
    EXPECT_EQ(FindChildDialogByControl(root, "one", 0, false), nullptr);
}

TEST_F(Search, TellsCheckBoxesFromOtherButtons) {
    HWND push = nullptr, box = nullptr;
    gui->Run([&] {
        push = Extra("Button", "Push", 40, BS_PUSHBUTTON);
        box = Extra("Button", "Check", 41, BS_AUTOCHECKBOX);
    });
    EXPECT_EQ(FindCheckBox(root, "", 0, 0), box);
    EXPECT_EQ(FindCheckBox(root, "", 40, 0), push); // the script knows better
    EXPECT_EQ(FindButton(root, "", 0, 0), push);
    EXPECT_EQ(FindButton(root, "hec", 0, 0), box);
}

} // namespace
