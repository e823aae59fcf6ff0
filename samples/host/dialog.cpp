#include "dialog.h"

#include "dialog_template.h"
#include "watch.h"

#include <algorithm>
#include <vector>

namespace sample_host {
namespace {

std::vector<HWND> modelessDialogs;

bool IsModeless(HWND dialog) {
    return std::ranges::find(modelessDialogs, dialog) != modelessDialogs.end();
}

bool EndsDialog(UINT message, WPARAM wParam) {
    return message == WM_COMMAND && (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL);
}

void Close(HWND dialog, INT_PTR result) {
    if (IsModeless(dialog))
        DestroyWindow(dialog);
    else if (!(GetWindowLongPtrA(dialog, GWL_STYLE) & WS_CHILD))
        EndDialog(dialog, result);
}

INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        const auto* spec = reinterpret_cast<const DialogSpec*>(lParam);
        SetWindowLongPtrA(dialog, DWLP_USER, reinterpret_cast<LONG_PTR>(spec->handler));
        Watch(dialog, spec->name);
        WatchBelow(dialog);
    }
    const auto handler = reinterpret_cast<DialogHandler>(GetWindowLongPtrA(dialog, DWLP_USER));
    if (handler && handler(dialog, message, wParam, lParam))
        return TRUE;
    if (EndsDialog(message, wParam)) {
        Close(dialog, LOWORD(wParam));
        return TRUE;
    }
    if (message == WM_NCDESTROY)
        std::erase(modelessDialogs, dialog);
    return message == WM_INITDIALOG; // let the system choose the first focus
}

HWND Create(HWND owner, const DialogSpec& dialog) {
    const DialogTemplate layout(dialog.caption, dialog.style, dialog.exStyle, dialog.area, dialog.controls);
    return CreateDialogIndirectParamA(Instance(), layout.Data(), owner, Procedure,
                                      reinterpret_cast<LPARAM>(&dialog));
}

} // namespace

INT_PTR RunModalDialog(HWND owner, const DialogSpec& dialog) {
    const DialogTemplate layout(dialog.caption, dialog.style, dialog.exStyle, dialog.area, dialog.controls);
    return DialogBoxIndirectParamA(Instance(), layout.Data(), owner, Procedure,
                                   reinterpret_cast<LPARAM>(&dialog));
}

HWND OpenModelessDialog(HWND owner, const DialogSpec& dialog) {
    if (const HWND open = FindWatched(dialog.name)) {
        SetActiveWindow(open);
        return open;
    }
    const HWND window = Create(owner, dialog);
    modelessDialogs.push_back(window);
    ShowWindow(window, SW_SHOW);
    return window;
}

HWND AddChildDialog(HWND parent, const DialogSpec& dialog, int id) {
    const HWND window = Create(parent, dialog);
    SetWindowLongPtrA(window, GWLP_ID, id);
    return window;
}

bool IsModelessDialogMessage(MSG& message) {
    for (const HWND dialog : modelessDialogs)
        if (IsDialogMessageA(dialog, &message))
            return true;
    return false;
}

} // namespace sample_host
