#include "controls/ghOpenSaveDialog.h"

#include <stdexcept>

#include "engine/enumerate.h"
#include "engine/wait_loop.h"
#include "engine/window_finders.h"
#include "hostlink/host_classes.h"
#include "hostlink/window_kind.h"
#include "input/mouse.h"

namespace {

// Control ids of the system's dialog. The field for the name is a combo box, in older dialogs an edit
// control; the address bar has the id of the latter, and so has the edit control inside of any drop-down
// combo box of any dialog.
constexpr int kNameCombo = 1148;
constexpr int kNameEdit = 1001;
constexpr int kAddressBar = 1001;
constexpr int kFieldSeconds = 5;
constexpr char kNoField[] = "Expected to find edit control";

constexpr engine::ControlKind kExactEdit = {"Edit"};
constexpr engine::ControlKind kToolbar = {"ToolbarWindow32"};

HWND FindDescendant(HWND dialog, int id) {
    return engine::FindChildWindow(dialog, "", "", id, engine::kAnyDescendant);
}

HWND FindAddressBar(HWND dialog) {
    return engine::FindControl(dialog, kToolbar, kAddressBar, engine::kAnyDescendant);
}

// Where several windows have the id of the edit control, one that is an edit control goes first.
HWND FindNameField(HWND dialog) {
    if (const HWND combo = FindDescendant(dialog, kNameCombo)) {
        return combo;
    }
    const HWND edit = engine::FindControl(dialog, kExactEdit, kNameEdit, engine::kAnyDescendant);
    return edit != nullptr ? edit : FindDescendant(dialog, kNameEdit);
}

// The lists and bars deeper in the dialog have this id too.
HWND FindDefaultButton(HWND dialog) {
    return engine::FindChildWindow(dialog, "", "", IDOK, 0);
}

// May open or save a file: an ordinary dialog with a combo box and an OK button looks alike.
bool LooksLikeOpenSaveDialog(HWND window) {
    return (hostlink::WindowStyle(window) & WS_POPUP) != 0 && IsWindowVisible(window) &&
           IsWindowEnabled(window) && hostlink::WindowClass(window).Name() == hostlink::kDialogClass &&
           FindNameField(window) != nullptr && FindDefaultButton(window) != nullptr;
}

// Has what only the system's dialog has.
bool IsSureOpenSaveDialog(HWND window) {
    return FindDescendant(window, kNameCombo) != nullptr || FindAddressBar(window) != nullptr ||
           FindWindowExA(window, nullptr, "DUIViewWndClassName", nullptr) != nullptr;
}

} // namespace

void ghOpenSaveDialog::File(const std::string& name) const {
    HWND field = nullptr;
    engine::Wait(
        kFieldSeconds, [&] { return (field = FindNameField(Window())) != nullptr; }, kNoField, Window());
    if (field == nullptr) {
        throw std::runtime_error(kNoField);
    }
    ghBaseWindow(field).SetText(name, true);
    if (const HWND found = FindDefaultButton(Window())) {
        ghBaseWindow button(found);
        button.SetSynchronization(Synchronization());
        input::Click(button, input::kLeftButton, 1, 1, 0);
    }
}

std::string ghOpenSaveDialog::Path() const {
    const HWND bar = FindAddressBar(Window());
    return bar != nullptr ? ghBaseWindow(bar).Text() : "Invalid";
}

namespace controls {

bool IsOpenSaveDialog(HWND window) {
    return LooksLikeOpenSaveDialog(window) && IsSureOpenSaveDialog(window);
}

HWND FindOpenSaveDialog(HWND from) {
    const DWORD processId = hostlink::ProcessOf(from);
    if (processId == 0) {
        return nullptr;
    }
    // The topmost sure one; the topmost of the rest where there is none.
    HWND sure = nullptr;
    HWND likely = nullptr;
    engine::EnumerateWindows(nullptr, [&](HWND window) {
        if (hostlink::ProcessOf(window) == processId && LooksLikeOpenSaveDialog(window)) {
            likely = likely != nullptr ? likely : window;
            sure = IsSureOpenSaveDialog(window) ? window : nullptr;
        }
        return sure == nullptr;
    });
    return sure != nullptr ? sure : likely;
}

} // namespace controls
