// The notice that the mouse is blocked: a window without frame that shows one bitmap of the module.
#pragma once

#include <memory>
#include <type_traits>

#include <windows.h>

// There is one notice at a time in a process. It has the size of its bitmap, and the module carries none: the
// notice comes out with no size and is not seen, on purpose. A bitmap resource of that number makes it
// visible.
class ghSplashScreen {
public:
    // Shows the notice in the bottom right corner of `parent`, or of the desktop and topmost if that is null,
    // without taking the activation. It belongs to the calling thread. Does nothing while one is shown.
    static void Show(HWND parent);

    // Takes the notice down and updates the parent. Only its own thread can destroy it: called on another
    // one, this asks that thread to.
    static void Destroy() noexcept;

    // Show() makes the object, its window's end deletes it.
    explicit ghSplashScreen(HWND parent) noexcept;

private:
    struct BitmapDeleter {
        void operator()(HBITMAP bitmap) const noexcept { DeleteObject(bitmap); }
    };

    bool Create() noexcept;
    void Appear() const noexcept;
    void Paint() const noexcept;
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    HWND m_parent;
    HWND m_window = nullptr;
    std::unique_ptr<std::remove_pointer_t<HBITMAP>, BitmapDeleter> m_bitmap;
    SIZE m_size = {}; // of the bitmap, in pixels
};
