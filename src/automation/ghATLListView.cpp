#include "automation/ghATLListView.h"

#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT Wrap(std::unique_ptr<ghListView> engine, IListView** object) noexcept {
    return WrapInto<ghATLListView>(std::move(engine), object);
}

} // namespace automation
