#include "automation/ghATLCheckBox.h"

#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT Wrap(std::unique_ptr<ghCheckBox> engine, ICheckBox** object) noexcept {
    return WrapInto<ghATLCheckBox>(std::move(engine), object);
}

} // namespace automation
