#include "engine/fit_size.h"

#include <cstdlib>

#include "engine/synchronise.h"
#include "hostlink/host_classes.h"
#include "hostlink/window_kind.h"

namespace engine {

namespace {

// Edges that lie closer together than this touch.
constexpr int kTouchingDistance = 5; // pixels

enum Edge : unsigned { kLeftEdge = 1, kTopEdge = 2, kRightEdge = 4, kBottomEdge = 8 };

// What stands above the window: its top-level window, and the MDI frame with the window just below it.
struct Ancestry {
    HWND topLevel = nullptr;
    HWND belowFrame = nullptr; // null where there is no MDI frame
    unsigned touchingEdges = 0;
};

unsigned TouchingEdges(const RECT& outer, const RECT& inner) noexcept {
    const auto touches = [](LONG one, LONG other) { return std::abs(one - other) < kTouchingDistance; };
    return (touches(outer.left, inner.left) ? kLeftEdge : 0u) |
           (touches(outer.top, inner.top) ? kTopEdge : 0u) |
           (touches(outer.right, inner.right) ? kRightEdge : 0u) |
           (touches(outer.bottom, inner.bottom) ? kBottomEdge : 0u);
}

void PostSystemCommand(const ghBaseWindow& window, HWND receiver, WPARAM command) {
    PostMessageA(receiver, WM_SYSCOMMAND, command, 0);
    Synchronise(window);
}

// Maximises the windows in between, so that they follow the top-level window's size, and restores a
// maximised top-level window. The walk ends there: a dialog's owner does not give the dialog its size.
Ancestry PrepareAncestors(const ghBaseWindow& window) {
    Ancestry ancestry;
    HWND below = nullptr;
    for (HWND current = window.Window(); current != nullptr && ancestry.topLevel == nullptr;
         current = GetParent(current)) {
        const DWORD style = hostlink::WindowStyle(current);
        if ((style & WS_CHILD) == 0) {
            ancestry.topLevel = current;
            if ((style & WS_MAXIMIZE) != 0) {
                PostSystemCommand(window, current, SC_RESTORE);
            }
        } else if ((style & (WS_MAXIMIZE | WS_MAXIMIZEBOX)) == WS_MAXIMIZEBOX) {
            // In a control the same bit is WS_TABSTOP; a control leaves the command alone or follows it.
            PostSystemCommand(window, current, SC_MAXIMIZE);
        }
        if (below != nullptr && hostlink::IsMdiFrameClass(hostlink::WindowClass(current))) {
            ancestry.belowFrame = below;
            ancestry.touchingEdges = TouchingEdges(WindowRectangle(current), WindowRectangle(below));
        }
        below = current;
    }
    return ancestry;
}

Size Missing(const ghBaseWindow& window, Size wanted) noexcept {
    const Size present = ClientSize(window.Window());
    return {wanted.width - present.width, wanted.height - present.height};
}

void GrowTopLevel(HWND topLevel, Size missing) noexcept {
    const RECT rectangle = WindowRectangle(topLevel);
    MoveWindow(topLevel, 0, 0, rectangle.right - rectangle.left + missing.width,
               rectangle.bottom - rectangle.top + missing.height, TRUE);
}

// An edge that touches the frame stays where it is; the opposite one gives way. Where both or none touch,
// the left and the top edge stay.
void GrowBelowFrame(const Ancestry& ancestry, Size missing) noexcept {
    RECT rectangle = WindowRectangle(ancestry.belowFrame);
    MapWindowPoints(HWND_DESKTOP, GetParent(ancestry.belowFrame), reinterpret_cast<POINT*>(&rectangle), 2);
    const bool keepsRight = (ancestry.touchingEdges & (kLeftEdge | kRightEdge)) == kRightEdge;
    const bool keepsBottom = (ancestry.touchingEdges & (kTopEdge | kBottomEdge)) == kBottomEdge;
    (keepsRight ? rectangle.left : rectangle.right) += keepsRight ? -missing.width : missing.width;
    (keepsBottom ? rectangle.top : rectangle.bottom) += keepsBottom ? -missing.height : missing.height;
    MoveWindow(ancestry.belowFrame, rectangle.left, rectangle.top, rectangle.right - rectangle.left,
               rectangle.bottom - rectangle.top, TRUE);
}

} // namespace

bool FitClientArea(const ghBaseWindow& window, Size wanted) {
    if ((hostlink::WindowStyle(window.Window()) & (WS_MINIMIZE | WS_MAXIMIZE)) != 0) {
        ShowWindow(window.Window(), SW_RESTORE);
    }
    if (ClientSize(window.Window()) == wanted) {
        return true;
    }
    const Ancestry ancestry = PrepareAncestors(window);
    if (const Size missing = Missing(window, wanted); missing != Size{} && ancestry.topLevel != nullptr) {
        GrowTopLevel(ancestry.topLevel, missing);
        Synchronise(window);
    }
    if (const Size missing = Missing(window, wanted); missing != Size{} && ancestry.belowFrame != nullptr) {
        GrowBelowFrame(ancestry, missing);
        Synchronise(window);
    }
    return ClientSize(window.Window()) == wanted;
}

} // namespace engine
