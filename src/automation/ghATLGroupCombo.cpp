#include "automation/ghATLGroupCombo.h"

#include "automation/classes.h"
#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT CreateGroupCombo(IUnknown* outer, REFIID iid, void** object) noexcept {
    return CreateInstance<ghATLGroupCombo>(outer, iid, object);
}

HRESULT Wrap(std::unique_ptr<ghGroupCombo> engine, IGroupCombo** object) {
    return WrapInto<ghATLGroupCombo>(std::move(engine), object);
}

} // namespace automation
