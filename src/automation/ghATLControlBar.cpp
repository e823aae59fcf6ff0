#include "automation/ghATLControlBar.h"

#include "automation/classes.h"
#include "automation/create.h"
#include "automation/wrap.h"

namespace {

// Fetches the item afresh until it is valid, up to `timeout` seconds; null when it never was.
template <class Fetch>
std::unique_ptr<ghControlBarItem> WaitForItem(const ghControlBar& bar, int timeout, Fetch fetch) {
    return engine::WaitFor<ghControlBarItem>(
        timeout,
        [&]() -> std::unique_ptr<ghControlBarItem> {
            auto item = fetch();
            return item->IsValid() ? std::move(item) : nullptr;
        },
        "Failed to wait for ControlBar Item.", bar.Window());
}

} // namespace

HRESULT ghATLControlBar::GetItem(int index, LONG, LONG timeout, IControlBarItem** result) {
    *result = nullptr;
    return Run({index, 0, timeout, result}, [&](const auto& bar) {
        return automation::Wrap(WaitForItem(bar, timeout, [&] { return bar.GetItem(index); }), result);
    });
}

HRESULT ghATLControlBar::GetItemByID(BSTR caption, int id, LONG, LONG timeout, IControlBarItem** result) {
    *result = nullptr;
    return Run({caption, id, 0, timeout, result}, [&](const auto& bar) {
        const std::string text = automation::ToAnsi(caption);
        return automation::Wrap(WaitForItem(bar, timeout, [&] { return bar.GetItemByID(text, id); }), result);
    });
}

namespace automation {

HRESULT CreateControlBar(IUnknown* outer, REFIID iid, void** object) noexcept {
    return CreateInstance<ghATLControlBar>(outer, iid, object);
}

HRESULT Wrap(std::unique_ptr<ghControlBar> engine, IControlBar** object) {
    return WrapInto<ghATLControlBar>(std::move(engine), object);
}

} // namespace automation
