#include "automation/ghATLGroupCombo.h"

#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT Wrap(std::unique_ptr<ghGroupCombo> engine, IGroupCombo** object) noexcept {
    return WrapInto<ghATLGroupCombo>(std::move(engine), object);
}

} // namespace automation
