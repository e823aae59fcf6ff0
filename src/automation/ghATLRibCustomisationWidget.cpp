#include "automation/ghATLRibCustomisationWidget.h"

#include "automation/classes.h"
#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT CreateRibCustomisationWidget(IUnknown* outer, REFIID iid, void** object) noexcept {
    return CreateInstance<ghATLRibCustomisationWidget>(outer, iid, object);
}

HRESULT Wrap(std::unique_ptr<ghRibCustomiser> engine, IRibCustomisationWidget** object) {
    return WrapInto<ghATLRibCustomisationWidget>(std::move(engine), object);
}

} // namespace automation
