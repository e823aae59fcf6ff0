#include "automation/ghATLRibCustomisationWidget.h"

#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT Wrap(std::unique_ptr<ghRibCustomiser> engine, IRibCustomisationWidget** object) noexcept {
    return WrapInto<ghATLRibCustomisationWidget>(std::move(engine), object);
}

} // namespace automation
