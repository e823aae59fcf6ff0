#include "automation/ghATLCADTree.h"

#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT Wrap(std::unique_ptr<ghCADTree> engine, ITreeControl** object) noexcept {
    return WrapInto<ghATLCADTree>(std::move(engine), object);
}

} // namespace automation
