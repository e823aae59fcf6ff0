// MDI children of the frame.
#pragma once

#include <windows.h>

namespace sample_host {

// Acts on a message of the page (WM_COMMAND and WM_NOTIFY of its controls, WM_SIZE ...). Returns
// whether that settled it; the answer goes to `result`.
using PageHandler = bool (*)(HWND page, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result);

struct MdiPageSpec {
    const char* name; // the window's name in the host, also the prefix of its controls' names
    const char* caption;
    int width, height;        // of the whole window, in pixels
    void (*build)(HWND page); // adds the controls; the page is watched by then
    PageHandler handler = nullptr;
    bool maximizable = true;
    const char* className = nullptr; // SampleHostPage by default
};

// Opens the page, or activates the one of that name that is open. Null when it cannot be made.
HWND OpenMdiPage(const MdiPageSpec& page);

} // namespace sample_host
