#include "automation/ghATLOpenSaveDialog.h"

#include "automation/classes.h"
#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT CreateOpenSaveDialog(IUnknown* outer, REFIID iid, void** object) noexcept {
    return CreateInstance<ghATLOpenSaveDialog>(outer, iid, object);
}

HRESULT Wrap(std::unique_ptr<ghOpenSaveDialog> engine, IOpenSaveDialog** object) {
    return WrapInto<ghATLOpenSaveDialog>(std::move(engine), object);
}

} // namespace automation
