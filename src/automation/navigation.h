// The navigations of a window object: what each looks for, and what is reported when it does not appear.
#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "controlbars/ghControlBar.h"
#include "controls/ghCADTree.h"
#include "controls/ghCADView.h"
#include "controls/ghCheckBox.h"
#include "controls/ghComboBox.h"
#include "controls/ghGXGrid.h"
#include "controls/ghGroupCombo.h"
#include "controls/ghListBox.h"
#include "controls/ghListView.h"
#include "controls/ghOpenSaveDialog.h"
#include "controls/ghOptionTree.h"
#include "controls/ghRibCustomiser.h"
#include "controls/ghTabControl.h"
#include "controls/ghTrackBar.h"
#include "controls/host_control_search.h"
#include "engine/diagnostics.h"
#include "engine/wait_loop.h"
#include "engine/window_finders.h"

namespace automation {

// `search` answers at once: a new engine object, null when nothing was found.
template <class Target>
struct Navigation {
    std::function<std::unique_ptr<Target>(const ghBaseWindow& from)> search;
    std::string message; // for the diagnostic sink
};

// Repeats the navigation's search up to `timeoutSeconds`. Null when nothing appeared.
template <class Target>
std::unique_ptr<Target> WaitForTarget(const ghBaseWindow& from, int timeoutSeconds,
                                      const Navigation<Target>& navigation) {
    return engine::WaitFor<Target>(
        timeoutSeconds, [&] { return navigation.search(from); }, navigation.message, from.Window());
}

namespace navigation {

using controls::kCadTree;
using controls::kGroupCombo;
using engine::kComboBox;
using engine::kEdit;
using engine::kListBox;
using engine::kListView;
using engine::kOptionTree;
using engine::kTrackBar;
using engine::kTreeView;

// A new object of the kind for a window that was found; null for a null handle.
template <class Target>
std::unique_ptr<Target> Found(HWND window) {
    return window == nullptr ? nullptr : std::make_unique<Target>(window);
}

// A control of a kind that is told by its class; `name` stands in the message.
template <class Target>
Navigation<Target> Control(const engine::ControlKind& kind, const char* name, int id, int flags) {
    return {[=](const ghBaseWindow& from) {
                return Found<Target>(
                    engine::FindControl(from.Window(), kind, id, static_cast<std::uint32_t>(flags)));
            },
            engine::diagnostics::Format("Failed to wait for %s(%d).", name, id)};
}

// The window that the host itself gives that name.
template <class Target>
Navigation<Target> WindowByName(std::string name) {
    std::string message =
        engine::diagnostics::Format("Failed to wait for window with ID = '%s'.", name.c_str());
    return {[name = std::move(name)](const ghBaseWindow& from) {
                return Found<Target>(engine::FindWindowByName(from.Window(), name));
            },
            std::move(message)};
}

Navigation<ghBaseWindow> ActiveDialog();
Navigation<ghBaseWindow> ActiveDocument();
Navigation<ghOpenSaveDialog> OpenSaveDialog();
Navigation<ghBaseWindow> ChildWindow(const std::string& caption, const std::string& className, int id,
                                     int flags);
Navigation<ghBaseWindow> ChildDialog(const std::string& caption, int id, int flags);
Navigation<ghBaseWindow> ChildDialogByControl(const std::string& caption, int id, bool visibleOnly);
Navigation<ghBaseWindow> Button(const std::string& caption, int id, int flags);
Navigation<ghCheckBox> CheckBox(const std::string& caption, int id, int flags);
Navigation<ghTabControl> TabControl(int id, int flags);
Navigation<ghGXGrid> GXGrid(int id, int flags);
Navigation<ghCADView> CADView();
Navigation<ghRibCustomiser> RibCustomisationWidget(const std::string& name, int id, int flags);
Navigation<ghControlBar> Toolbar(const std::string& caption, int id, int flags);
Navigation<ghControlBar> MainMenu();
Navigation<ghControlBar> CurrentContextMenu();

} // namespace navigation
} // namespace automation
