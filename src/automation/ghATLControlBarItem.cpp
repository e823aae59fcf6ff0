#include "automation/ghATLControlBarItem.h"

#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT Wrap(std::unique_ptr<ghControlBarItem> engine, IControlBarItem** object) noexcept {
    return WrapInto<ghATLControlBarItem>(std::move(engine), object);
}

} // namespace automation
