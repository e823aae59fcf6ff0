#include "automation/ghATLTabControl.h"

#include "automation/classes.h"
#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT CreateTabControl(IUnknown* outer, REFIID iid, void** object) noexcept {
    return CreateInstance<ghATLTabControl>(outer, iid, object);
}

HRESULT Wrap(std::unique_ptr<ghTabControl> engine, ITabControl** object) {
    return WrapInto<ghATLTabControl>(std::move(engine), object);
}

} // namespace automation
