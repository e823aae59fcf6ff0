#include "automation/ghATLGXGrid.h"

#include "automation/classes.h"
#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT CreateGXGrid(IUnknown* outer, REFIID iid, void** object) noexcept {
    return CreateInstance<ghATLGXGrid>(outer, iid, object);
}

HRESULT Wrap(std::unique_ptr<ghGXGrid> engine, IGXGrid** object) {
    return WrapInto<ghATLGXGrid>(std::move(engine), object);
}

} // namespace automation
