#include "automation/ghATLComboBox.h"

#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT Wrap(std::unique_ptr<ghComboBox> engine, IComboBox** object) noexcept {
    return WrapInto<ghATLComboBox>(std::move(engine), object);
}

} // namespace automation
