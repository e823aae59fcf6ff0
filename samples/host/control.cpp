#include "control.h"

#include "host_ids.h"
#include "watch.h"

namespace sample_host {
namespace {

LRESULT CALLBACK PanelProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND || message == WM_NOTIFY)
        return SendMessageA(GetParent(window), message, wParam, lParam);
    return DefWindowProcA(window, message, wParam, lParam);
}

} // namespace

HWND AddControl(HWND parent, const ControlSpec& control) {
    const DWORD visible = control.hidden ? 0 : WS_VISIBLE;
    const HWND window =
        CreateWindowExA(control.exStyle, control.className, control.text, control.style | WS_CHILD | visible,
                        control.area.x, control.area.y, control.area.width, control.area.height, parent,
                        reinterpret_cast<HMENU>(static_cast<INT_PTR>(control.id)), Instance(), nullptr);
    SendMessageA(window, WM_SETFONT, reinterpret_cast<WPARAM>(DialogFont()), FALSE);
    if (control.behaviour)
        AddSubclass(window, control.behaviour);
    WatchBelow(parent); // last, so that the watch sees every message first
    return window;
}

HWND AddPanel(HWND parent, const ControlSpec& panel) {
    RegisterHostClass(ids::kPanelClass, PanelProcedure);
    ControlSpec spec = panel;
    spec.className = ids::kPanelClass;
    spec.style |= WS_CLIPSIBLINGS | WS_CLIPCHILDREN;
    return AddControl(parent, spec);
}

void RegisterHostClass(const char* name, WNDPROC procedure, int backgroundColor) {
    WNDCLASSEXA windowClass{};
    windowClass.cbSize = sizeof windowClass;
    windowClass.style = CS_DBLCLKS;
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = Instance();
    windowClass.hIcon = LoadIconA(nullptr, IDI_APPLICATION);
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.hbrBackground = GetSysColorBrush(backgroundColor);
    windowClass.lpszClassName = name;
    RegisterClassExA(&windowClass); // fails harmlessly when the class is there already
}

HINSTANCE Instance() {
    return GetModuleHandleA(nullptr);
}

HFONT DialogFont() {
    return static_cast<HFONT>(GetStockObject(DEFAULT_GUI_FONT));
}

} // namespace sample_host
