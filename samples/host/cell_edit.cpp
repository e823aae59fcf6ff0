#include "cell_edit.h"

#include <utility>

namespace sample_host {
namespace {

std::function<void(const std::string&)> commitText; // of the one edit control that can have the focus

void Close(HWND edit, bool commits) {
    const auto commit = std::exchange(commitText, nullptr);
    char text[1024] = "";
    GetWindowTextA(edit, text, sizeof text);
    if (commit && commits)
        commit(text);
    if (commit)
        DestroyWindow(edit); // a second call, for the lost focus, finds nothing to do
}

LRESULT OnMessage(HWND edit, UINT message, WPARAM wParam, LPARAM lParam, const NextProcedure& next) {
    switch (message) {
    case WM_GETDLGCODE:
        return DLGC_WANTALLKEYS;
    case WM_CHAR:
        if (wParam == VK_RETURN || wParam == VK_ESCAPE) {
            Close(edit, wParam == VK_RETURN);
            return 0;
        }
        break;
    case WM_KILLFOCUS:
        Close(edit, true);
        return 0;
    default:
        break;
    }
    return next(edit, message, wParam, lParam);
}

} // namespace

void OpenCellEdit(HWND parent, RECT area, const std::string& text,
                  std::function<void(const std::string&)> commit) {
    const HWND edit =
        AddControl(parent, {.className = "Edit",
                            .text = text.c_str(),
                            .style = WS_BORDER | ES_AUTOHSCROLL,
                            .area = {area.left, area.top, area.right - area.left, area.bottom - area.top},
                            .behaviour = OnMessage});
    SetFocus(edit); // ends an edit control that is still open
    commitText = std::move(commit);
    SendMessageA(edit, EM_SETSEL, 0, -1);
}

} // namespace sample_host
