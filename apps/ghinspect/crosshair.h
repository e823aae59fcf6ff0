// The cross that is dragged over the desktop.
#pragma once

#include <functional>

#include <windows.h>

namespace inspector {

// A control that takes the focus; the keys Space and Return press it.
class Crosshair {
public:
    struct Events {
        std::function<void(POINT)> over; // dragged over a point of the screen
        std::function<void(POINT)> dropped;
        std::function<void()> givenUp; // by the Escape key, or because another window took the mouse
        std::function<void()> pressed; // by a key
    };

    void Create(HWND parent, int id, Events events);
    HWND Window() const noexcept { return m_window; }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT OnMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void Begin();
    void End(bool isDrop);
    void Paint();

    HWND m_window = nullptr;
    bool m_isDragging = false;
    Events m_events;
};

} // namespace inspector
