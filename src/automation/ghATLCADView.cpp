#include "automation/ghATLCADView.h"

#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT Wrap(std::unique_ptr<ghCADView> engine, ICADView** object) noexcept {
    return WrapInto<ghATLCADView>(std::move(engine), object);
}

} // namespace automation
