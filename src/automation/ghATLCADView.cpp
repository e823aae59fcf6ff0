#include "automation/ghATLCADView.h"

#include "automation/classes.h"
#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT CreateCADView(IUnknown* outer, REFIID iid, void** object) noexcept {
    return CreateInstance<ghATLCADView>(outer, iid, object);
}

HRESULT Wrap(std::unique_ptr<ghCADView> engine, ICADView** object) {
    return WrapInto<ghATLCADView>(std::move(engine), object);
}

} // namespace automation
