#include "automation/ghATLGhosthand.h"

#include "automation/classes.h"
#include "automation/create.h"
#include "automation/wrap.h"
#include "engine/diagnostics.h"
#include "engine/ghBaseWindow.h"
#include "engine/wait_loop.h"
#include "engine/window_finders.h"
#include "hostlink/host_locale.h"
#include "input/held_modifiers.h"
#include "input/mouse_block.h"

namespace {

// The main window, with the host's locale adopted; null when it is not there.
std::unique_ptr<ghBaseWindow> FindHost(const std::string& application, const std::string& caption,
                                       const std::string& className, LONG flags) {
    const HWND found =
        engine::FindMainWindow(application, caption, className, static_cast<std::uint32_t>(flags));
    if (found == nullptr) {
        return nullptr;
    }
    input::ReleaseAbandonedInput(); // a script before this one may have been ended in the middle of an action
    auto window = std::make_unique<ghBaseWindow>(found);
    hostlink::AdoptHostLocale(window->Host());
    return window;
}

} // namespace

HRESULT ghATLGhosthand::MainWindow(BSTR application, BSTR caption, BSTR className, LONG flags, LONG timeout,
                                   IBaseWindow** result) {
    *result = nullptr;
    return RunWithoutEngine({application, caption, className, flags, timeout, result}, [&] {
        const std::string names[] = {automation::ToAnsi(application), automation::ToAnsi(caption),
                                     automation::ToAnsi(className)};
        return automation::Wrap(
            engine::WaitFor<ghBaseWindow>(
                timeout, [&] { return FindHost(names[0], names[1], names[2], flags); },
                engine::diagnostics::Format("Failed to wait MainWindow('%s', '%s', '%s').", names[0].c_str(),
                                            names[1].c_str(), names[2].c_str())),
            result);
    });
}

HRESULT ghATLGhosthand::UnblockMouse() {
    return RunWithoutEngine({}, [] { input::UnblockMouse(); });
}

HRESULT ghATLGhosthand::get_AllowMouseBlocks(VARIANT_BOOL* result) {
    *result = VARIANT_FALSE;
    return RunWithoutEngine({result}, [&] { automation::Assign(result, input::AllowMouseBlocks()); });
}

HRESULT ghATLGhosthand::put_AllowMouseBlocks(VARIANT_BOOL value) {
    return RunWithoutEngine({value}, [&] { input::SetAllowMouseBlocks(automation::ToBool(value)); });
}

namespace automation {

HRESULT CreateGhosthand(IUnknown* outer, REFIID iid, void** object) noexcept {
    return CreateInstance<ghATLGhosthand>(outer, iid, object);
}

} // namespace automation
