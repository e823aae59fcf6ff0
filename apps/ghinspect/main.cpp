// The inspector: what a script can reach on this desktop, and by which call.
#include <exception>

#include <windows.h>

#include <commctrl.h>

#include "explain/utf8.h"
#include "ghinspect/main_window.h"

namespace {

int Run(int showCommand) {
    const INITCOMMONCONTROLSEX classes = {sizeof classes, ICC_TREEVIEW_CLASSES | ICC_LISTVIEW_CLASSES |
                                                              ICC_TAB_CLASSES | ICC_BAR_CLASSES |
                                                              ICC_STANDARD_CLASSES};
    InitCommonControlsEx(&classes);
    inspector::MainWindow window;
    window.Open(showCommand);
    MSG message{};
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        if (!window.TranslateKey(message)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
    return static_cast<int>(message.wParam);
}

} // namespace

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int showCommand) {
    try {
        return Run(showCommand);
    } catch (const std::exception& error) {
        MessageBoxW(nullptr, explain::ToUtf16(error.what()).c_str(), L"Ghosthand Inspector",
                    MB_OK | MB_ICONERROR);
        return 1;
    }
}
