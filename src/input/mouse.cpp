#include "input/mouse.h"

#include "engine/activation.h"
#include "engine/synchronise.h"
#include "engine/window_geometry.h"
#include "input/held_modifiers.h"
#include "input/mouse_button.h"
#include "input/mouse_event.h"

namespace input {

namespace {

// One point of a window, and the messages that are posted there.
class PostedMouse {
public:
    PostedMouse(const ghBaseWindow& window, int x, int y) noexcept
        : m_window(window), m_point(engine::PackPoint(x, y)) {}

    void Move(WPARAM keys) const noexcept { Post(WM_MOUSEMOVE, keys); }
    // The host sees the cursor arrive before anything happens there.
    void MoveThenPost(WPARAM moveKeys, UINT message, WPARAM keys) const noexcept {
        Move(moveKeys);
        Post(message, keys);
    }

    void Post(UINT message, WPARAM keys) const noexcept {
        // A null window would mean the queue of this thread.
        if (m_window.IsValid()) {
            PostMessageA(m_window.Window(), message, keys, m_point);
        }
    }

private:
    const ghBaseWindow& m_window;
    LPARAM m_point;
};

// The press and release of a posted click, the press worked through before the release comes.
void PostClick(const ghBaseWindow& window, const PostedMouse& mouse, const MouseButton& button, WPARAM keys) {
    mouse.MoveThenPost(keys, button.pressMessage, keys | button.keyBit);
    engine::Synchronise(window);
    mouse.MoveThenPost(keys | button.keyBit, button.ReleaseMessage(), keys);
}

constexpr ButtonAction kPress[] = {ButtonAction::Press};
constexpr ButtonAction kRelease[] = {ButtonAction::Release};
constexpr ButtonAction kClick[] = {ButtonAction::Press, ButtonAction::Release};
constexpr ButtonAction kDoubleClick[] = {ButtonAction::Press, ButtonAction::Release, ButtonAction::Press,
                                         ButtonAction::Release};

bool IsInForeground(HWND window) noexcept {
    const HWND foreground = GetForegroundWindow();
    return foreground == window || IsChild(foreground, window);
}

} // namespace

void Click(const ghBaseWindow& window, int button, int x, int y, int keys, bool forceReal) {
    if (!IsInForeground(window.Window())) {
        engine::Activate(window);
    }
    engine::WaitUntilReady(window);
    const HeldModifiers modifiers(window.Host(), keys);
    if (window.RealInput() || forceReal || (keys & kRealClick) != 0) {
        SendMouseEvents(window.Window(), button, kClick, x, y);
    } else {
        PostClick(window, PostedMouse(window, x, y), ButtonOfCode(button), static_cast<WPARAM>(keys));
    }
    engine::Synchronise(window);
}

void DoubleClick(const ghBaseWindow& window, int button, int x, int y, int keys) {
    engine::WaitUntilReady(window);
    const HeldModifiers modifiers(window.Host(), keys);
    if (window.RealInput()) {
        SendMouseEvents(window.Window(), button, kDoubleClick, x, y);
    } else {
        const PostedMouse mouse(window, x, y);
        const MouseButton messages = ButtonOfCode(button);
        const auto plain = static_cast<WPARAM>(keys);
        const WPARAM held = plain | messages.keyBit;
        PostClick(window, mouse, messages, plain);
        engine::Synchronise(window);
        mouse.Move(held);
        // An unknown button has no second press: what stands in its place would be WM_DESTROY.
        if (messages.IsKnown()) {
            mouse.Post(messages.DoubleClickMessage(), held);
        }
        engine::Synchronise(window);
        mouse.MoveThenPost(held, messages.ReleaseMessage(), plain);
    }
    engine::Synchronise(window);
}

void MouseDown(const ghBaseWindow& window, int button, int x, int y, int keys) {
    engine::WaitUntilReady(window);
    const HeldModifiers modifiers(window.Host(), keys);
    if (window.RealInput()) {
        SendMouseEvents(window.Window(), button, kPress, x, y);
    } else {
        const PostedMouse mouse(window, x, y);
        const MouseButton messages = ButtonOfCode(button);
        const auto plain = static_cast<WPARAM>(keys);
        mouse.Move(plain);
        engine::Synchronise(window);
        mouse.MoveThenPost(plain, messages.pressMessage, plain | messages.keyBit);
    }
    engine::Synchronise(window);
}

void MouseUp(const ghBaseWindow& window, int button, int x, int y, int keys) {
    engine::WaitUntilReady(window);
    const HeldModifiers modifiers(window.Host(), keys);
    if (window.RealInput()) {
        SendMouseEvents(window.Window(), button, kRelease, x, y);
    } else {
        const PostedMouse mouse(window, x, y);
        const MouseButton messages = ButtonOfCode(button);
        const auto plain = static_cast<WPARAM>(keys);
        const WPARAM held = plain | messages.keyBit;
        mouse.Move(held);
        engine::Synchronise(window);
        // An unknown button's release is message 0, too, where no press came before it.
        const UINT release = messages.IsKnown() ? messages.ReleaseMessage() : messages.pressMessage;
        mouse.MoveThenPost(held, release, plain);
    }
    engine::Synchronise(window);
}

void MouseMove(const ghBaseWindow& window, int x, int y, int keys) {
    engine::WaitUntilReady(window);
    if (window.RealInput()) {
        MoveCursorInWindow(window.Window(), x, y);
        engine::Synchronise(window);
    }
    const HeldModifiers modifiers(window.Host(), keys);
    PostedMouse(window, x, y).Move(static_cast<WPARAM>(keys) | MK_LBUTTON);
    engine::Synchronise(window);
}

void ParkCursor(const ghBaseWindow& window, bool toWindow) {
    if (toWindow) {
        MoveCursorInWindow(window.Window(), 0, 0);
        return;
    }
    POINT cursor = {};
    GetCursorPos(&cursor);
    if (cursor.x != 0 && cursor.y != 0) {
        MoveCursorOnScreen(0, 0);
        engine::Activate(window);
    }
}

} // namespace input
