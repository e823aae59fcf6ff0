#include "mdi_page.h"

#include "control.h"
#include "frame.h"
#include "host_ids.h"
#include "watch.h"

namespace sample_host {
namespace {

PageHandler HandlerOf(HWND page) {
    return reinterpret_cast<PageHandler>(GetWindowLongPtrA(page, GWLP_USERDATA));
}

LRESULT CALLBACK Procedure(HWND page, UINT message, WPARAM wParam, LPARAM lParam) {
    LRESULT result = 0;
    const PageHandler handler = HandlerOf(page);
    if (handler && handler(page, message, wParam, lParam, result))
        return result;
    return DefMDIChildProcA(page, message, wParam, lParam);
}

} // namespace

HWND OpenMdiPage(const MdiPageSpec& page) {
    const HWND client = MdiClient();
    if (const HWND open = FindWatched(page.name)) {
        SendMessageA(client, WM_MDIACTIVATE, reinterpret_cast<WPARAM>(open), 0);
        return open;
    }
    const char* className = page.className ? page.className : ids::kPageClass;
    RegisterHostClass(className, Procedure);

    MDICREATESTRUCTA child{};
    child.szClass = className;
    child.szTitle = page.caption;
    child.hOwner = Instance();
    child.x = CW_USEDEFAULT;
    child.y = CW_USEDEFAULT;
    child.cx = page.width;
    child.cy = page.height;
    child.style = WS_VISIBLE | WS_CHILD | WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN | WS_CLIPSIBLINGS;
    if (!page.maximizable)
        child.style &= ~static_cast<DWORD>(WS_MAXIMIZEBOX);
    const auto window =
        reinterpret_cast<HWND>(SendMessageA(client, WM_MDICREATE, 0, reinterpret_cast<LPARAM>(&child)));
    if (!window)
        return nullptr;
    Watch(window, page.name);
    SetWindowLongPtrA(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(page.handler));
    page.build(window);
    RECT area;
    GetClientRect(window, &area);
    SendMessageA(window, WM_SIZE, SIZE_RESTORED, MAKELPARAM(area.right, area.bottom));
    return window;
}

} // namespace sample_host
