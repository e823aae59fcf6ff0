// What a host's file dialog gets, and dialogs that lack a part of it.
#include "controls/ghOpenSaveDialog.h"
#include "host/control_page.h"
#include "support/code_page.h"

#include <stdexcept>

namespace {

using support::Eventually;
using support::Handle;
using support::Posted;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
namespace ids = sample_host::ids;

class FileDialogTest : public support::ControlPage<FileDialogTest> {
public:
    static constexpr const char* kPage = "save-drawing";
    static constexpr const char* kName = "Save drawing";

protected:
    void SetUp() override {
        if (Page() == nullptr) {
            Host().Command(ids::kPageSaveDrawing);
            ASSERT_NE(Host().WaitForWindow(kName), nullptr);
        }
        ControlPage::SetUp();
    }
    static std::string NameSet(HWND field) {
        const auto records = Host().Log().Records(WM_SETTEXT, field);
        return records.empty() ? "(none)" : records.back().text;
    }
};

TEST_F(FileDialogTest, TheNameIsTypedAndTheDefaultButtonClicked) {
    if (!support::HasCharacterPerByte()) {
        GTEST_SKIP() << support::kNoCharacterPerByte;
    }
    const HWND window = controls::FindOpenSaveDialog(Host().Frame());
    ASSERT_EQ(window, Page());
    const HWND field = FindWindowExA(window, nullptr, "Edit", nullptr);
    const HWND button = GetDlgItem(window, IDOK);
    const ghOpenSaveDialog dialog(window);
    EXPECT_EQ(dialog.Path(), "Address: C:\\Drawings");
    dialog.File("Gr\xF6\xDF"
                "e & more.drawing");
    EXPECT_EQ(NameSet(field), "Gr\xF6\xDF"
                              "e & more.drawing");
    auto commands = SeenBy(window, {WM_COMMAND});
    std::erase_if(commands, [](const support::Seen& seen) { return !seen.posted; });
    EXPECT_THAT(commands, ElementsAre(Posted(WM_COMMAND, MAKEWPARAM(ids::kEdit, EN_UPDATE), Handle(field)),
                                      Posted(WM_COMMAND, MAKEWPARAM(ids::kEdit, EN_CHANGE), Handle(field))));
    EXPECT_THAT(SeenBy(button, {WM_LBUTTONDOWN}),
                ElementsAre(Posted(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(1, 1))));
    EXPECT_TRUE(Eventually([&] { return !IsWindow(window); }));
    EXPECT_EQ(controls::FindOpenSaveDialog(Host().Frame()), nullptr);
}

// It has an edit control with the field's number and an OK button, and lies in front.
TEST_F(FileDialogTest, AnOrdinaryDialogInFrontIsNotTakenForIt) {
    Host().Command(ids::kPageSettings);
    const HWND settings = Host().WaitForWindow("Settings");
    ASSERT_NE(settings, nullptr);
    ASSERT_NE(GetDlgItem(settings, ids::kEdit), nullptr);
    EXPECT_EQ(controls::FindOpenSaveDialog(Host().Frame()), Page());
    SendMessageA(settings, WM_CLOSE, 0, 0);
}

TEST_F(FileDialogTest, AnEmptyNameIsConfirmedToo) {
    const HWND button = GetDlgItem(Page(), IDOK);
    ghOpenSaveDialog(Page()).File("");
    EXPECT_THAT(SeenBy(button, {WM_LBUTTONDOWN}), SizeIs(1));
}

TEST_F(FileDialogTest, OneWithoutButtonIsNotFoundAndJustGetsTheName) {
    const HWND window = Page();
    const HWND field = FindWindowExA(window, nullptr, "Edit", nullptr);
    SendMessageA(GetDlgItem(window, IDOK), WM_CLOSE, 0, 0);
    EXPECT_EQ(controls::FindOpenSaveDialog(Host().Frame()), nullptr);
    ghOpenSaveDialog(window).File("x");
    EXPECT_EQ(NameSet(field), "x");
    EXPECT_TRUE(IsWindow(window));
    SendMessageA(window, WM_CLOSE, 0, 0);
}

TEST_F(FileDialogTest, OneWithoutAFieldFailsWithAText) {
    const HWND window = Page();
    for (const char* className : {"Edit", "ToolbarWindow32"}) { // the address bar has the field's number
        SendMessageA(FindWindowExA(window, nullptr, className, nullptr), WM_CLOSE, 0, 0);
    }
    EXPECT_EQ(controls::FindOpenSaveDialog(Host().Frame()), nullptr);
    const ghOpenSaveDialog dialog(window);
    EXPECT_EQ(dialog.Path(), "Invalid");
    try {
        dialog.File("x");
        ADD_FAILURE() << "does not fail";
    } catch (const std::runtime_error& error) {
        EXPECT_STREQ(error.what(), "Expected to find edit control");
    }
    EXPECT_THAT(SeenBy(GetDlgItem(window, IDOK), {WM_LBUTTONDOWN}), IsEmpty());
    SendMessageA(window, WM_CLOSE, 0, 0);
}

TEST_F(FileDialogTest, FieldAndDialogOfTheOlderKind) {
    SendMessageA(Page(), WM_CLOSE, 0, 0);
    Host().Command(ids::kPageOpenDrawing);
    const HWND window = Host().WaitForWindow("Open drawing");
    const HWND field = GetDlgItem(window, ids::kFileName);
    EXPECT_EQ(controls::FindOpenSaveDialog(Host().Frame()), window);
    EXPECT_EQ(ghOpenSaveDialog(window).Path(), "Invalid");
    ghOpenSaveDialog(window).File("y");
    EXPECT_EQ(NameSet(field), "y");
    EXPECT_TRUE(Eventually([&] { return !IsWindow(window); }));
}

} // namespace
