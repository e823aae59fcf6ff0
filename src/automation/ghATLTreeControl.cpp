#include "automation/ghATLTreeControl.h"

#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT Wrap(std::unique_ptr<ghTreeControl> engine, ITreeControl** object) noexcept {
    return WrapInto<ghATLTreeControl>(std::move(engine), object);
}

} // namespace automation
