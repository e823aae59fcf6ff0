#include "automation/ghATLCheckBox.h"

#include "automation/classes.h"
#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT CreateCheckBox(IUnknown* outer, REFIID iid, void** object) noexcept {
    return CreateInstance<ghATLCheckBox>(outer, iid, object);
}

HRESULT Wrap(std::unique_ptr<ghCheckBox> engine, ICheckBox** object) {
    return WrapInto<ghATLCheckBox>(std::move(engine), object);
}

} // namespace automation
