// One window of the host.
#pragma once

#include <string>

#include "hostlink/host_window.h"

// A value: copied freely, owns nothing, and never checks that its window still exists: on a null handle
// or a window that is gone every operation gives what the underlying system call gives (false, zero
// sizes, empty text). Control adapters derive from it and add no fields to these.
//
// The actions synchronise with the host before they return, unless Synchronization() is off.
class ghBaseWindow {
public:
    ghBaseWindow() = default;
    explicit ghBaseWindow(HWND window) noexcept;
    ghBaseWindow(const ghBaseWindow&) = default;
    ghBaseWindow& operator=(const ghBaseWindow&) = default;

    // The window's text, at most 259 bytes of it.
    virtual std::string Text() const;
    // Sets the text as if it had been typed: the parent is told of the change. `focusFirst` activates the
    // window before.
    virtual void SetText(const std::string& text, bool focusFirst);
    virtual ~ghBaseWindow() = default;

    bool IsValid() const noexcept { return m_host.window != nullptr; }
    HWND Window() const noexcept { return m_host.window; }
    // The GUI thread that owned the window when the object was made; 0 for a null handle.
    DWORD ThreadId() const noexcept { return m_host.threadId; }
    const hostlink::HostWindow& Host() const noexcept { return m_host; }

    // Whether clicks are delivered as real input instead of posted messages.
    bool RealInput() const noexcept { return m_realInput != 0; }
    void SetRealInput(bool realInput) noexcept { m_realInput = realInput ? 1 : 0; }
    // How long an action waits for the window to become enabled, in seconds; a negative time counts as 0.
    int EnabledTimeout() const noexcept { return m_enabledTimeout; }
    void SetEnabledTimeout(int seconds) noexcept { m_enabledTimeout = seconds < 0 ? 0 : seconds; }
    bool Synchronization() const noexcept { return m_synchronization; }
    void SetSynchronization(bool synchronization) noexcept { m_synchronization = synchronization; }

    bool Visible() const noexcept;
    bool Enabled() const noexcept;
    // The client area in pixels, both edge pixels counted: one more than its extent.
    int Width() const noexcept;
    int Height() const noexcept;
    // The window's left and top edge in screen coordinates.
    int Left() const noexcept;
    int Top() const noexcept;
    int ControlID() const noexcept;
    // The parent or owner; a window with a null handle if there is none.
    ghBaseWindow Parent() const noexcept;

    // Moves the window; (x, y) as MoveWindow takes them. The window grows by one pixel each way.
    void Position(int x, int y);
    // Moves the window as Position does and has the host see a drag by the caption.
    void PositionWithMovingMessage(int x, int y);
    // Makes the client area (width, height) pixels, as Width and Height count them, at the expense of the
    // top-level window if need be. True if the client area has that size now.
    bool FitSize(int width, int height);

    bool SetFocus();
    void Close();
    // True if the command could be posted.
    bool Command(int command);
    LRESULT Send(UINT message, WPARAM wParam, LPARAM lParam);
    bool Post(UINT message, WPARAM wParam, LPARAM lParam);
    // Posts to the window that has the focus in this window's thread, to the window itself if none has.
    // Deliberately does not synchronise.
    bool PostToFocus(UINT message, WPARAM wParam, LPARAM lParam) const noexcept;

private:
    hostlink::HostWindow m_host;
    int m_realInput = 0;
    int m_enabledTimeout = 5;
    bool m_synchronization = true;
};
