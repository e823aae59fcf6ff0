// A window with a great many descendants, to measure searches: panels that hold nine controls each. The
// last descendant is an edit control.
#include "control.h"
#include "frame.h"
#include "host_ids.h"
#include "watch.h"

namespace sample_host {
namespace {

constexpr int kControlsPerPanel = 9;

// Unwatched, so that making them stays cheap and the log stays short.
HWND AddPart(HWND parent, const char* className, const char* text, int number) {
    const int slot = number % (kControlsPerPanel + 1);
    return CreateWindowExA(0, className, text, WS_CHILD | WS_VISIBLE, 4 + slot * 62, 4, 60, 20, parent,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(ids::kFirstOfMany) + number),
                           Instance(), nullptr);
}

} // namespace

void OpenManyChildrenWindow(int count) {
    RegisterHostClass(ids::kTreeClass, DefWindowProcA);
    const HWND top = CreateWindowExA(0, ids::kTreeClass, "Many children", WS_OVERLAPPEDWINDOW, 60, 60, 700,
                                     400, nullptr, nullptr, Instance(), nullptr);
    Watch(top, "ManyChildren");
    HWND parent = top;
    for (int number = 0; number < count; ++number) {
        if (number + 1 == count)
            AddPart(parent, "Edit", "the last one", number);
        else if (number % (kControlsPerPanel + 1) == kControlsPerPanel)
            parent = AddPart(top, ids::kTreeClass, "panel", number);
        else
            AddPart(parent, number % 2 ? "Button" : "Static", "part", number);
    }
    ShowWindow(top, SW_SHOWNA);
}

} // namespace sample_host
