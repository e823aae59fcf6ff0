#include "automation/ghATLControlBarItem.h"

#include "automation/classes.h"
#include "automation/create.h"
#include "automation/wrap.h"
#include "controlbars/ghControlBar.h"
#include "engine/diagnostics.h"
#include "engine/wait_loop.h"

namespace {

constexpr int kExpandSeconds = 5; // whatever the item's own timeout is

// `member` stands in the message for the diagnostic sink. Whether the item is enabled now.
bool WaitUntilEnabled(const ghControlBarItem& item, int seconds, const char* member) {
    bool enabled = false;
    engine::Wait(
        seconds, [&] { return enabled = item.Enabled(); },
        engine::diagnostics::Format("Failed to wait for control bar item enabled state on '%s'.", member),
        item.Window());
    return enabled;
}

// Performs the action once the item is enabled.
template <class Action>
HRESULT WhenEnabled(const ghControlBarItem& item, const char* member, Action action) {
    if (!WaitUntilEnabled(item, item.EnabledTimeout(), member)) {
        return E_FAIL;
    }
    action();
    return S_OK;
}

} // namespace

HRESULT ghATLControlBarItem::Click(LONG button, LONG x, LONG y) {
    return Run({button, x, y},
               [&](auto& item) { return WhenEnabled(item, "Click", [&] { item.Click(button, x, y); }); });
}

HRESULT ghATLControlBarItem::put_Checked(VARIANT_BOOL value) {
    return Run({value}, [&](auto& item) {
        return WhenEnabled(item, "Checked", [&] { item.SetChecked(automation::ToBool(value)); });
    });
}

HRESULT ghATLControlBarItem::Expand(IControlBar** result) {
    *result = nullptr;
    return Run({result}, [&](auto& item) {
        return WaitUntilEnabled(item, kExpandSeconds, "Expand") ? automation::Wrap(item.Expand(), result)
                                                                : S_FALSE;
    });
}

namespace automation {

HRESULT CreateControlBarItem(IUnknown* outer, REFIID iid, void** object) noexcept {
    return CreateInstance<ghATLControlBarItem>(outer, iid, object);
}

HRESULT Wrap(std::unique_ptr<ghControlBarItem> engine, IControlBarItem** object) {
    return WrapInto<ghATLControlBarItem>(std::move(engine), object);
}

} // namespace automation
