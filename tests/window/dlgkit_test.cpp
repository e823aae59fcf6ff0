#include "inhouse/dlgkit.h"
#include "inhouse/hostlink.h"
#include "support/code_page.h"

#include <gtest/gtest.h>

namespace {

using namespace std::string_literals;

struct Kind {
    const char* name;
    const char* windowClass;
    DWORD plainStyle, ownerDrawnStyle, hasStringsStyle;
    UINT add, textLength, text;
    std::string (*read)(HWND, int, bool);
};
constexpr Kind kListBox{"ListBox",    "LISTBOX",     0,          LBS_OWNERDRAWFIXED,          LBS_HASSTRINGS,
                        LB_ADDSTRING, LB_GETTEXTLEN, LB_GETTEXT, dkListHelpers::get_list_item};
constexpr Kind kComboBox{"ComboBox",         "COMBOBOX",     CBS_DROPDOWNLIST,
                         CBS_OWNERDRAWFIXED, CBS_HASSTRINGS, CB_ADDSTRING,
                         CB_GETLBTEXTLEN,    CB_GETLBTEXT,   dkListHelpers::get_combo_item};

class Control {
public:
    explicit Control(const Kind& kind, DWORD style = 0)
        : m_window(CreateWindowExA(0, kind.windowClass, nullptr, WS_POPUP | kind.plainStyle | style, 0, 0,
                                   100, 200, nullptr, nullptr, nullptr, nullptr)) {}
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;
    ~Control() { DestroyWindow(m_window); }
    HWND Window() const { return m_window; }

    void Subclass(WNDPROC procedure) const {
        SetWindowLongPtrW(m_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(procedure));
    }

private:
    HWND m_window;
};

class ItemText : public testing::TestWithParam<Kind> {};

INSTANTIATE_TEST_SUITE_P(Dlgkit, ItemText, testing::Values(kListBox, kComboBox),
                         [](const auto& testCase) { return testCase.param.name; });

TEST_P(ItemText, IsReadWholeByIndex) {
    if (!support::HasCharacterPerByte()) {
        GTEST_SKIP() << support::kNoCharacterPerByte;
    }
    const Kind& kind = GetParam();
    const Control control(kind);
    const std::string texts[] = {"Alpha", "", "\xC4\xD6\xFC", std::string(5000, 'x')};
    for (const std::string& text : texts)
        SendMessageA(control.Window(), kind.add, 0, reinterpret_cast<LPARAM>(text.c_str()));
    for (int index = 0; index < 4; ++index)
        EXPECT_EQ(kind.read(control.Window(), index, false), texts[index]) << index;
    for (const int index : {-1, 4, 0x7FFF'FFFF})
        EXPECT_EQ(kind.read(control.Window(), index, false), "") << index;
    EXPECT_EQ(kind.read(nullptr, 0, false), "");
}

TEST_P(ItemText, IsEmptyWhereTheControlKeepsNoStrings) {
    const Kind& kind = GetParam();
    const Control data(kind, kind.ownerDrawnStyle);
    SendMessageA(data.Window(), kind.add, 0, 0x0041'4141'4141'4141);
    EXPECT_EQ(kind.read(data.Window(), 0, false), "");

    const Control strings(kind, kind.ownerDrawnStyle | kind.hasStringsStyle);
    SendMessageA(strings.Window(), kind.add, 0, reinterpret_cast<LPARAM>("Alpha"));
    EXPECT_EQ(kind.read(strings.Window(), 0, false), "Alpha");
}

TEST_P(ItemText, OfWhichTheControlClaimsAnAbsurdLengthIsNotRead) {
    const Kind& kind = GetParam();
    static bool wasRead;
    wasRead = false;
    const Control control(kind);
    control.Subclass([](HWND, UINT message, WPARAM, LPARAM) -> LRESULT {
        wasRead = wasRead || message == LB_GETTEXT || message == CB_GETLBTEXT;
        return message == LB_GETTEXTLEN || message == CB_GETLBTEXTLEN ? 0x7FFF'FFFF : TRUE;
    });
    EXPECT_EQ(kind.read(control.Window(), 0, false), "");
    EXPECT_FALSE(wasRead);
}

TEST(ItemTextOfAnExtendedCombo, IsReadWhateverItsStyleSays) {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = [](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
        switch (message) {
        case CB_GETLBTEXTLEN:
            return 5;
        case CB_GETLBTEXT:
            std::wstring(L"Alpha").copy(reinterpret_cast<wchar_t*>(lParam), 5);
            return 5;
        default:
            return DefWindowProcA(window, message, wParam, lParam);
        }
    };
    windowClass.lpszClassName = "ComboBoxEx32"; // this process has not loaded the control's library
    RegisterClassA(&windowClass);
    const Kind extended{"", "ComboBoxEx32", CBS_OWNERDRAWFIXED, 0, 0, 0, 0, 0, nullptr};
    EXPECT_EQ(dkListHelpers::get_combo_item(Control(extended).Window(), 0, false), "Alpha");
}

TEST_P(ItemText, MayGrowAfterItsLengthWasAsked) {
    const Kind& kind = GetParam();
    const Control control(kind);
    static constexpr std::size_t kGrown = 40'000;
    control.Subclass([](HWND, UINT message, WPARAM, LPARAM lParam) -> LRESULT {
        if (message == LB_GETTEXTLEN || message == CB_GETLBTEXTLEN)
            return 3;
        if (message != LB_GETTEXT && message != CB_GETLBTEXT)
            return TRUE;
        const std::wstring grown(kGrown, L'y');
        grown.copy(reinterpret_cast<wchar_t*>(lParam), kGrown);
        reinterpret_cast<wchar_t*>(lParam)[kGrown] = L'\0';
        return kGrown;
    });
    EXPECT_EQ(kind.read(control.Window(), 0, false), std::string(kGrown, 'y'));
}

TEST(GroupCombo, QueryIsBothNamesEachWithItsTerminator) {
    EXPECT_EQ(dkGroupComboHelpers::pack_query({"Metals", "Steel 37"}), "Metals\0Steel 37\0"s);
    EXPECT_EQ(dkGroupComboHelpers::pack_query({"", ""}), "\0\0"s);
    EXPECT_EQ(dkGroupComboHelpers::pack_query({"A\0B"s, "C\0D"s}), "A\0C\0"s);
}

TEST(GroupCombo, IsToldByItsAnswerForTheHeadingOfItemMinusOne) {
    const Control combo(kComboBox);
    EXPECT_FALSE(dkGroupComboHelpers::check_combo_type(combo.Window()));
    EXPECT_FALSE(dkGroupComboHelpers::check_combo_type(nullptr));

    // The answer of a 32-bit index: the high half is not part of it.
    combo.Subclass([](HWND window, UINT message, WPARAM wParam, LPARAM lParam) -> LRESULT {
        if (message == 0x8003 && static_cast<int>(wParam) == -1)
            return 0xFFFF'FFFF;
        return DefWindowProcA(window, message, wParam, lParam);
    });
    EXPECT_TRUE(dkGroupComboHelpers::check_combo_type(combo.Window()));
}

TEST(CadTreeMessage, IsRegisteredUnderItsOwnName) {
    EXPECT_NE(hlWM_REQUEST_CAD_TREE_INFORMATION, 0u);
    EXPECT_EQ(hlWM_REQUEST_CAD_TREE_INFORMATION, RegisterWindowMessageA("hlWM_REQUEST_CAD_TREE_INFORMATION"));
}

} // namespace
