#include "automation/ghATLComboBox.h"

#include "automation/classes.h"
#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT CreateComboBox(IUnknown* outer, REFIID iid, void** object) noexcept {
    return CreateInstance<ghATLComboBox>(outer, iid, object);
}

HRESULT Wrap(std::unique_ptr<ghComboBox> engine, IComboBox** object) {
    return WrapInto<ghATLComboBox>(std::move(engine), object);
}

} // namespace automation
