#include "input/keyboard.h"

#include <cctype>
#include <vector>

#include "engine/activation.h"
#include "engine/path_tokens.h"
#include "engine/synchronise.h"
#include "engine/wait_loop.h"

namespace input {

namespace {

// Of WM_SYSKEYDOWN and WM_SYSKEYUP: the Alt key is down, repeated once.
constexpr LPARAM kAltKeyData = 0x20000001;
constexpr LPARAM kRepeatedOnce = 1;

// Times without end are left to the caller, but not beyond the window's life. Whether the window is there.
bool PressKeyTimes(const ghBaseWindow& window, int virtualKey, int times, int delay) {
    for (int pressed = 0; pressed < times && IsWindow(window.Window()); ++pressed) {
        PressKey(window, virtualKey, delay);
    }
    return IsWindow(window.Window()) != FALSE;
}

void EnterMenu(const ghBaseWindow& window, int delay) {
    PressMenuKey(window);
    engine::PumpFor(delay);
}

// Opens one submenu after the other below the highlighted title and goes down to the item in each. False
// when the window went: the keys would reach another one.
bool WalkSubmenus(const ghBaseWindow& window, const std::vector<std::string>& tokens, int delay) {
    int openingKey = VK_DOWN; // the menu bar's drop-down; a submenu opens to the right
    for (auto token = tokens.begin() + 1; token != tokens.end(); ++token) {
        const int position = engine::PathNumber(*token);
        if (position <= 0) {
            continue;
        }
        PressKey(window, openingKey, delay);
        openingKey = VK_RIGHT;
        engine::Synchronise(window);
        if (!PressKeyTimes(window, VK_DOWN, position - 1, delay)) {
            return false;
        }
    }
    return true;
}

} // namespace

void PressKey(const ghBaseWindow& window, int virtualKey, int delay) {
    const auto key = static_cast<WPARAM>(virtualKey);
    window.PostToFocus(WM_KEYDOWN, key, kRepeatedOnce);
    window.PostToFocus(WM_KEYUP, key, kRepeatedOnce);
    engine::PumpFor(delay);
}

void PressMenuKey(const ghBaseWindow& window) {
    window.PostToFocus(WM_SYSKEYDOWN, VK_MENU, kAltKeyData);
    window.PostToFocus(WM_SYSKEYUP, VK_MENU, kAltKeyData);
}

void MenuChars(const ghBaseWindow& window, const std::string& path, int delay) {
    engine::WaitUntilReady(window);
    if (path.empty()) {
        return;
    }
    EnterMenu(window, delay);
    for (const char character : path) {
        if (!IsWindow(window.Window())) {
            return;
        }
        const int key = std::toupper(static_cast<unsigned char>(character));
        // The key-down alone, deliberately: menus react to nothing else.
        window.PostToFocus(WM_KEYDOWN, static_cast<WPARAM>(key), kRepeatedOnce);
        engine::PumpFor(delay);
        engine::Synchronise(window);
    }
}

void MenuIndex(const ghBaseWindow& window, const std::string& path, int delay) {
    engine::WaitUntilReady(window);
    const auto tokens = engine::PathTokens(path, engine::kMenuNumberPath);
    if (!tokens || tokens->empty()) {
        return;
    }
    EnterMenu(window, delay);
    if (PressKeyTimes(window, VK_RIGHT, engine::PathNumber(tokens->front()) - 1, delay) &&
        WalkSubmenus(window, *tokens, delay)) {
        PressKey(window, VK_RETURN, delay);
        engine::Synchronise(window);
    }
}

} // namespace input
