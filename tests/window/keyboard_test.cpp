// Menu keys, as the messages that the window with the focus gets.
#include "engine/synchronise.h"
#include "input/keyboard.h"
#include "support/input_window.h"

#include <gmock/gmock.h>

#include <string>

namespace {

using support::InputMessage;
using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

class KeyboardTest : public testing::Test {
protected:
    void SetUp() override { m_host.Focus(m_host.Child()); }

    // A word for each key: R, D and E are the arrows and Return, pressed and released; A is Alt; s is a
    // synchronisation. Another character is the key-down of that code.
    std::vector<InputMessage> Keys(std::string_view keys) const {
        const HWND focus = m_host.Child();
        std::vector<InputMessage> expected;
        const auto press = [&](WPARAM key) {
            expected.push_back({focus, WM_KEYDOWN, key, 1});
            expected.push_back({focus, WM_KEYUP, key, 1});
        };
        for (const char key : keys) {
            switch (key) {
            case 'A':
                expected.push_back({focus, WM_SYSKEYDOWN, VK_MENU, 0x20000001});
                expected.push_back({focus, WM_SYSKEYUP, VK_MENU, 0x20000001});
                break;
            case 'R':
                press(VK_RIGHT);
                break;
            case 'D':
                press(VK_DOWN);
                break;
            case 'E':
                press(VK_RETURN);
                break;
            case 's':
                expected.push_back({m_host.Frame(), support::InputWindow::Marker(), 0, 0});
                break;
            default:
                expected.push_back({focus, WM_KEYDOWN, static_cast<unsigned char>(key), 1});
            }
        }
        return expected;
    }

    support::InputWindow m_host;
    const ghBaseWindow m_window{m_host.Frame()};
};

TEST_F(KeyboardTest, MenuIndexWalksByNumbers) {
    const struct {
        std::string path;
        const char* keys;
    } cases[] = {
        {"2.3", "ARDsDDEs"},
        {"1", "AEs"},
        {"1.0.2", "ADsDEs"},
        {"1/2\\2:1", "ADsDRsDRsEs"},
        {"3-x-1", "ARRDsEs"},
        {std::string("2") + std::string(258, '.'), "AREs"},
        {"", ""},
        {"./", ""},
        {std::string(300, '1'), ""},
    };
    for (const auto& [path, keys] : cases) {
        SCOPED_TRACE(path);
        input::MenuIndex(m_window, path, -1); // no pause
        EXPECT_THAT(m_host.Take(), ElementsAreArray(Keys(keys)));
    }
}

TEST_F(KeyboardTest, MenuCharsSendsUpperCaseKeyDownsAlone) {
    input::MenuChars(m_window, "fo\xE4", 1);
    EXPECT_THAT(m_host.Take(), ElementsAreArray(Keys("AFsOs\xE4s")));
    input::MenuChars(m_window, "", 1);
    EXPECT_THAT(m_host.Take(), IsEmpty());
}

TEST_F(KeyboardTest, NothingMoreIsPressedWhenTheWindowGoes) {
    m_host.DestroyOn(WM_KEYDOWN);
    m_host.Thread().Run([this] { SetFocus(m_host.Frame()); });
    input::MenuIndex(m_window, "3.2", 100);
    ASSERT_FALSE(IsWindow(m_host.Frame()));
    engine::Synchronise(ghBaseWindow(m_host.Other()));
    for (const InputMessage& seen : m_host.Take()) {
        EXPECT_NE(seen.wParam, WPARAM{VK_RETURN});
        EXPECT_NE(seen.wParam, WPARAM{VK_DOWN});
    }
}

TEST_F(KeyboardTest, KeysGoToTheWindowItselfWhereNothingHasTheFocus) {
    m_host.Thread().Run([] { SetFocus(nullptr); });
    input::PressKey(m_window, VK_DOWN, 0);
    engine::Synchronise(m_window);
    const HWND frame = m_host.Frame();
    EXPECT_THAT(m_host.Take(), ElementsAre(InputMessage{frame, WM_KEYDOWN, VK_DOWN, 1},
                                           InputMessage{frame, WM_KEYUP, VK_DOWN, 1}, testing::_));
}

} // namespace
