#include "automation/ghATLTrackBar.h"

#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT Wrap(std::unique_ptr<ghTrackBar> engine, ITrackBar** object) noexcept {
    return WrapInto<ghATLTrackBar>(std::move(engine), object);
}

} // namespace automation
