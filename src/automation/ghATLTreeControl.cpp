#include "automation/ghATLTreeControl.h"

#include "automation/classes.h"
#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT CreateTreeControl(IUnknown* outer, REFIID iid, void** object) noexcept {
    return CreateInstance<ghATLTreeControl>(outer, iid, object);
}

HRESULT Wrap(std::unique_ptr<ghTreeControl> engine, ITreeControl** object) {
    return WrapInto<ghATLTreeControl>(std::move(engine), object);
}

} // namespace automation
