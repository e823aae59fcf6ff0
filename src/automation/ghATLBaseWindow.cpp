#include "automation/ghATLBaseWindow.h"

#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT Wrap(std::unique_ptr<ghBaseWindow> engine, IBaseWindow** object) noexcept {
    return WrapInto<ghATLBaseWindow>(std::move(engine), object);
}

} // namespace automation
