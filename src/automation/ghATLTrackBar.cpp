#include "automation/ghATLTrackBar.h"

#include "automation/classes.h"
#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT CreateTrackBar(IUnknown* outer, REFIID iid, void** object) noexcept {
    return CreateInstance<ghATLTrackBar>(outer, iid, object);
}

HRESULT Wrap(std::unique_ptr<ghTrackBar> engine, ITrackBar** object) {
    return WrapInto<ghATLTrackBar>(std::move(engine), object);
}

} // namespace automation
