#include "automation/navigation.h"

#include "controlbars/context_menu.h"
#include "controlbars/ghMenu.h"
#include "controlbars/ghToolbar.h"
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

Navigation<ghOpenSaveDialog> OpenSaveDialog() {
    return {[](const ghBaseWindow& from) {
                return Found<ghOpenSaveDialog>(controls::FindOpenSaveDialog(from.Window()));
            },
            "Failed to wait for Open-Save dialog."};
}

Navigation<ghBaseWindow> ChildWindow(const std::string& caption, const std::string& className, int id,
                                     int flags) {
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

Navigation<ghBaseWindow> ChildDialog(const std::string& caption, int id, int flags) {
    std::string message = Format("Failed to wait for ChildDialog('%s', %d).", caption.c_str(), id);
    return {[=](const ghBaseWindow& from) {
                return Found<ghBaseWindow>(
                    engine::FindChildDialog(from.Window(), caption, id, ToFlags(flags)));
            },
            std::move(message)};
}

Navigation<ghBaseWindow> ChildDialogByControl(const std::string& caption, int id, bool visibleOnly) {
    std::string message = Format("Failed to wait for ChildDialogByCOntrol('%s', %d).", caption.c_str(), id);
    return {[=](const ghBaseWindow& from) {
                return Found<ghBaseWindow>(
                    engine::FindChildDialogByControl(from.Window(), caption, id, visibleOnly));
            },
            std::move(message)};
}

Navigation<ghBaseWindow> Button(const std::string& caption, int id, int flags) {
    // A button is looked for, and reported, as a child window of that class.
    std::string message =
        Format("Failed to wait for ChildWindow('%s', '%s', %d).", caption.c_str(), "Button", id);
    return {[=](const ghBaseWindow& from) {
                return Found<ghBaseWindow>(engine::FindButton(from.Window(), caption, id, ToFlags(flags)));
            },
            std::move(message)};
}

Navigation<ghCheckBox> CheckBox(const std::string& caption, int id, int flags) {
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

Navigation<ghGXGrid> GXGrid(int id, int flags) {
    return {[=](const ghBaseWindow& from) {
                return Found<ghGXGrid>(controls::FindGrid(from.Window(), id, ToFlags(flags)));
            },
            Format("Failed to wait for GXGrid(%d).", id)};
}

Navigation<ghCADView> CADView() {
    return {[](const ghBaseWindow& from) { return Found<ghCADView>(controls::FindCadView(from.Window())); },
            "Failed to wait for CADView."};
}

Navigation<ghRibCustomiser> RibCustomisationWidget(const std::string& name, int id, int flags) {
    std::string message = Format("Failed to wait for RibCustomisationWidget(%s, %d).", name.c_str(), id);
    return {[=](const ghBaseWindow& from) {
                return Found<ghRibCustomiser>(
                    controls::FindRibbonWidget(from.Window(), name, id, ToFlags(flags)));
            },
            std::move(message)};
}

Navigation<ghControlBar> Toolbar(const std::string& caption, int id, int flags) {
    std::string message = Format("Failed to wait for Toolbar('%s', %d).", caption.c_str(), id);
    return {[=](const ghBaseWindow& from) -> std::unique_ptr<ghControlBar> {
                return Found<ghToolbar>(controlbars::FindToolbar(from.Window(), caption, id, ToFlags(flags)));
            },
            std::move(message)};
}

Navigation<ghControlBar> MainMenu() {
    return {[](const ghBaseWindow& from) -> std::unique_ptr<ghControlBar> {
                auto menu = std::make_unique<ghMenu>(from.Window());
                return menu->IsValid() ? std::move(menu) : nullptr;
            },
            "Failed to wait for main menu."};
}

Navigation<ghControlBar> CurrentContextMenu() {
    return {controlbars::FindCurrentContextMenu, "Failed to wait for current context menu."};
}

} // namespace automation::navigation
