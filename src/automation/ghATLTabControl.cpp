#include "automation/ghATLTabControl.h"

#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT Wrap(std::unique_ptr<ghTabControl> engine, ITabControl** object) noexcept {
    return WrapInto<ghATLTabControl>(std::move(engine), object);
}

} // namespace automation
