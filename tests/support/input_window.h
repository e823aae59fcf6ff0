// Windows on a GUI thread of the test's own that record the input which reaches them.
#pragma once

#include "support/gui_thread.h"

#include <atomic>
#include <cstdio>
#include <mutex>
#include <ostream>
#include <utility>
#include <vector>

namespace support {

// A message that was taken off the queue; one of setting a key's state was sent.
struct InputMessage {
    HWND window;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;

    bool operator==(const InputMessage&) const = default;
    friend void PrintTo(const InputMessage& seen, std::ostream* out) {
        char text[80];
        std::snprintf(text, sizeof text, "window %p message %04X wParam %llX lParam %llX",
                      static_cast<void*>(seen.window), seen.message,
                      static_cast<unsigned long long>(seen.wParam),
                      static_cast<unsigned long long>(seen.lParam));
        *out << text;
    }
};

// A top-level window with a child. Posted mouse and key messages are recorded and go no further, so that
// nothing acts on them.
class InputWindow {
public:
    InputWindow() {
        s_current = this;
        SetCursorPos(900, 700); // away from the windows, which then see posted moves only
        m_thread.Run([this] { Build(); });
        Focus(m_frame);
    }
    ~InputWindow() {
        m_thread.Run([this] {
            UnhookWindowsHookEx(m_hook);
            DestroyWindow(m_other);
            DestroyWindow(m_frame);
        });
        s_current = nullptr;
    }
    InputWindow(const InputWindow&) = delete;
    InputWindow& operator=(const InputWindow&) = delete;

    HWND Frame() const { return m_frame; }
    HWND Child() const { return m_child; }
    HWND Other() const { return m_other; } // another top-level window of the thread
    const GuiThread& Thread() const { return m_thread; }

    // Puts the window's top-level window in front and gives the window the focus.
    void Focus(HWND window) const {
        m_thread.Run([=] {
            SetForegroundWindow(GetAncestor(window, GA_ROOT));
            SetFocus(window);
        });
    }
    // Has the frame destroy itself when that message comes.
    void DestroyOn(UINT message) { m_destroyOn = message; }

    // What came since the last call. A marker message that is posted again and again counts once.
    std::vector<InputMessage> Take() {
        const std::scoped_lock lock(m_mutex);
        m_heldWhenSeen = 0;
        return std::exchange(m_seen, {});
    }
    // The modifier keys that were held when a mouse message came, as bits of wParam (Alt is 0x20).
    int HeldWhenSeen() const {
        const std::scoped_lock lock(m_mutex);
        return m_heldWhenSeen;
    }
    int HeldNow() const {
        int held = 0;
        m_thread.Run([&] { held = HeldModifierBits(); });
        return held;
    }

    static UINT Marker() { return RegisterWindowMessageA("MSG_GH_SYNC"); }
    static UINT KeyState() { return RegisterWindowMessageA("MSG_GH_SET_KEY_STATE"); }

private:
    static inline InputWindow* s_current = nullptr;

    void Build() {
        WNDCLASSA windowClass{};
        windowClass.lpfnWndProc = Procedure;
        windowClass.lpszClassName = "TestInputWindow";
        RegisterClassA(&windowClass);
        // Shown without activation: without a window manager, Wine otherwise takes two seconds to destroy it.
        const auto topLevel = [](int x) {
            const HWND window = CreateWindowExA(0, "TestInputWindow", "Input", WS_POPUP, x, 50, 300, 200,
                                                nullptr, nullptr, nullptr, nullptr);
            ShowWindow(window, SW_SHOWNOACTIVATE);
            return window;
        };
        m_other = topLevel(400);
        m_frame = topLevel(50);
        m_child = CreateWindowExA(0, "TestInputWindow", "", WS_CHILD | WS_VISIBLE, 100, 100, 50, 20, m_frame,
                                  nullptr, nullptr, nullptr);
        m_hook = SetWindowsHookExA(WH_GETMESSAGE, OnQueue, nullptr, GetCurrentThreadId());
    }

    static int HeldModifierBits() {
        const auto bitIfHeld = [](int key, int bit) { return GetKeyState(key) < 0 ? bit : 0; };
        return bitIfHeld(VK_CONTROL, MK_CONTROL) | bitIfHeld(VK_SHIFT, MK_SHIFT) | bitIfHeld(VK_MENU, 0x20);
    }

    void Record(const InputMessage& message) {
        const std::scoped_lock lock(m_mutex);
        const bool repeated =
            message.message == Marker() && !m_seen.empty() && m_seen.back().message == message.message;
        if (!repeated) {
            m_seen.push_back(message);
        }
    }

    static bool IsMouse(UINT message) { return message >= WM_MOUSEFIRST && message <= WM_MOUSELAST; }

    void OnMessage(MSG& message) {
        const bool isKey = message.message >= WM_KEYFIRST && message.message <= WM_KEYLAST;
        // The lowest messages are what an unknown button comes as.
        if (!IsMouse(message.message) && !isKey && message.message > WM_DESTROY &&
            message.message != Marker()) {
            return;
        }
        if (IsMouse(message.message)) {
            const std::scoped_lock lock(m_mutex);
            m_heldWhenSeen |= HeldModifierBits();
        }
        Record({message.hwnd, message.message, message.wParam, message.lParam});
        if (message.message == m_destroyOn) {
            DestroyWindow(m_frame);
        }
        message.message = WM_NULL;
    }

    static LRESULT CALLBACK OnQueue(int code, WPARAM removed, LPARAM lParam) {
        auto& message = *reinterpret_cast<MSG*>(lParam);
        const bool isOurs = message.hwnd != nullptr &&
                            (message.hwnd == s_current->m_frame || message.hwnd == s_current->m_child ||
                             message.hwnd == s_current->m_other);
        if (code >= 0 && removed == PM_REMOVE && isOurs) {
            s_current->OnMessage(message);
        }
        return CallNextHookEx(nullptr, code, removed, lParam);
    }

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == KeyState()) {
            s_current->Record({window, message, wParam, lParam});
        }
        return DefWindowProcA(window, message, wParam, lParam);
    }

    GuiThread m_thread;
    HWND m_frame = nullptr;
    HWND m_child = nullptr;
    HWND m_other = nullptr;
    HHOOK m_hook = nullptr;
    std::atomic<UINT> m_destroyOn = WM_APP;
    mutable std::mutex m_mutex;
    std::vector<InputMessage> m_seen;
    int m_heldWhenSeen = 0;
};

} // namespace support
