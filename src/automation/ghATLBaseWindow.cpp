#include "automation/ghATLBaseWindow.h"

#include "automation/classes.h"
#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT CreateBaseWindow(IUnknown* outer, REFIID iid, void** object) noexcept {
    return CreateInstance<ghATLBaseWindow>(outer, iid, object);
}

HRESULT Wrap(std::unique_ptr<ghBaseWindow> engine, IBaseWindow** object) {
    return WrapInto<ghATLBaseWindow>(std::move(engine), object);
}

} // namespace automation
