#include "automation/ghATLControlBar.h"

#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT Wrap(std::unique_ptr<ghControlBar> engine, IControlBar** object) noexcept {
    return WrapInto<ghATLControlBar>(std::move(engine), object);
}

} // namespace automation
