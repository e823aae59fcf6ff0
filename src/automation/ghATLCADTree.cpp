#include "automation/ghATLCADTree.h"

#include "automation/classes.h"
#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT CreateCADTreeControl(IUnknown* outer, REFIID iid, void** object) noexcept {
    return CreateInstance<ghATLCADTree>(outer, iid, object);
}

HRESULT Wrap(std::unique_ptr<ghCADTree> engine, ITreeControl** object) {
    return WrapInto<ghATLCADTree>(std::move(engine), object);
}

} // namespace automation
