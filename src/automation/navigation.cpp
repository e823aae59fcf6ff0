#include "automation/navigation.h"

#include "engine/ghSharedUtils.h"

namespace automation::navigation {

using engine::diagnostics::Format;

namespace {

std::uint32_t ToFlags(int flags) noexcept {
    return static_cast<std::uint32_t>(flags);
}

} // namespace

Navigation<ghBaseWindow> ActiveDialog() {
    return {[](const ghBaseWindow& from) {
                return Found<ghBaseWindow>(ghSharedUtils::active_dialog(from.Window()));
            },
            "Failed to wait for active dialog."};
}

Navigation<ghBaseWindow> ActiveDocument() {
    return {[](const ghBaseWindow& from) {
                return Found<ghBaseWindow>(engine::FindActiveDocument(from.Window()));
            },
            "Failed to wait for active document."};
}

Navigation<ghBaseWindow> ChildWindow(std::string caption, std::string className, int id, int flags) {
    std::string message = className.empty()
                              ? Format("Failed to wait for ChildWindow('%s', %d).", caption.c_str(), id)
                              : Format("Failed to wait for ChildWindow('%s', '%s', %d).", caption.c_str(),
                                       className.c_str(), id);
    return {[=](const ghBaseWindow& from) {
                return Found<ghBaseWindow>(
                    engine::FindChildWindow(from.Window(), caption, className, id, ToFlags(flags)));
            },
            std::move(message)};
}

Navigation<ghBaseWindow> ChildDialog(std::string caption, int id, int flags) {
    std::string message = Format("Failed to wait for ChildDialog('%s', %d).", caption.c_str(), id);
    return {[=](const ghBaseWindow& from) {
                return Found<ghBaseWindow>(
                    engine::FindChildDialog(from.Window(), caption, id, ToFlags(flags)));
            },
            std::move(message)};
}

Navigation<ghBaseWindow> ChildDialogByControl(std::string caption, int id, bool visibleOnly) {
    std::string message = Format("Failed to wait for ChildDialogByCOntrol('%s', %d).", caption.c_str(), id);
    return {[=](const ghBaseWindow& from) {
                return Found<ghBaseWindow>(
                    engine::FindChildDialogByControl(from.Window(), caption, id, visibleOnly));
            },
            std::move(message)};
}

Navigation<ghBaseWindow> Button(std::string caption, int id, int flags) {
    // A button is looked for, and reported, as a child window of that class.
    std::string message =
        Format("Failed to wait for ChildWindow('%s', '%s', %d).", caption.c_str(), "Button", id);
    return {[=](const ghBaseWindow& from) {
                return Found<ghBaseWindow>(engine::FindButton(from.Window(), caption, id, ToFlags(flags)));
            },
            std::move(message)};
}

Navigation<ghCheckBox> CheckBox(std::string caption, int id, int flags) {
    std::string message = Format("Failed to wait for CheckBox('%s', %d).", caption.c_str(), id);
    return {[=](const ghBaseWindow& from) {
                return Found<ghCheckBox>(engine::FindCheckBox(from.Window(), caption, id, ToFlags(flags)));
            },
            std::move(message)};
}

Navigation<ghTabControl> TabControl(int id, int flags) {
    return {[=](const ghBaseWindow& from) {
                return Found<ghTabControl>(engine::FindTabControl(from.Window(), id, ToFlags(flags)));
            },
            Format("Failed to wait for TabControl(%d).", id)};
}

} // namespace automation::navigation
