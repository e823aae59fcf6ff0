#include "automation/ghATLGXGrid.h"

#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT Wrap(std::unique_ptr<ghGXGrid> engine, IGXGrid** object) noexcept {
    return WrapInto<ghATLGXGrid>(std::move(engine), object);
}

} // namespace automation
