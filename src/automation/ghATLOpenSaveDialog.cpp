#include "automation/ghATLOpenSaveDialog.h"

#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT Wrap(std::unique_ptr<ghOpenSaveDialog> engine, IOpenSaveDialog** object) noexcept {
    return WrapInto<ghATLOpenSaveDialog>(std::move(engine), object);
}

} // namespace automation
