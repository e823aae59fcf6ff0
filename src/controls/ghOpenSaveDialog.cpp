#include "controls/ghOpenSaveDialog.h"

#include <stdexcept>

#include "engine/navigation.h"
#include "engine/wait_loop.h"
#include "hostlink/window_class.h"
#include "hostlink/window_kind.h"
#include "input/mouse.h"

namespace {

constexpr int kNameCombo = 1148;
constexpr int kNameEdit = 1001;
constexpr int kAddressBar = 1001;
constexpr int kFieldSeconds = 5;
constexpr char kNoField[] = "Expected to find edit control";

HWND FindBelow(HWND dialog, const char* className, int id) {
    return engine::FindChildWindow(dialog, "", className, id, engine::kAnyDescendant);
}

// The address bar shares its id with the field of some dialogs, so that an edit control goes first.
HWND FindNameField(HWND dialog) {
    if (const HWND combo = FindBelow(dialog, "", kNameCombo)) {
        return combo;
    }
    const HWND edit = FindBelow(dialog, "Edit", kNameEdit);
    return edit != nullptr ? edit : FindBelow(dialog, "", kNameEdit);
}

// The lists and bars deeper in the dialog have this id too.
HWND FindDefaultButton(HWND dialog) {
    return engine::FindChildWindow(dialog, "", "", IDOK, 0);
}

bool IsOpenSaveDialog(HWND window) {
    return (hostlink::WindowStyle(window) & WS_POPUP) != 0 && IsWindowVisible(window) &&
           IsWindowEnabled(window) && hostlink::WindowClass(window).Name() == "#32770" &&
           FindNameField(window) != nullptr && FindDefaultButton(window) != nullptr;
}

struct DialogSearch {
    DWORD processId = 0;
    HWND result = nullptr;
};

BOOL CALLBACK VisitForDialog(HWND window, LPARAM parameter) noexcept {
    auto& search = *reinterpret_cast<DialogSearch*>(parameter);
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    if (processId == search.processId && IsOpenSaveDialog(window)) {
        search.result = window;
    }
    return search.result == nullptr;
}

} // namespace

void ghOpenSaveDialog::File(const std::string& name) const {
    HWND field = nullptr;
    engine::Wait(
        kFieldSeconds, [&] { return (field = FindNameField(Window())) != nullptr; }, kNoField);
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
    constexpr engine::ControlKind kToolbar = {"ToolbarWindow32"};
    const HWND bar = engine::FindControl(Window(), kToolbar, kAddressBar, engine::kAnyDescendant);
    return bar != nullptr ? ghBaseWindow(bar).Text() : "Invalid";
}

namespace controls {

HWND FindOpenSaveDialog(HWND from) {
    DialogSearch search;
    if (GetWindowThreadProcessId(from, &search.processId) != 0) {
        EnumWindows(VisitForDialog, reinterpret_cast<LPARAM>(&search));
    }
    return search.result;
}

} // namespace controls
