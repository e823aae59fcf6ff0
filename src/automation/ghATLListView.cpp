#include "automation/ghATLListView.h"

#include "automation/classes.h"
#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT CreateListView(IUnknown* outer, REFIID iid, void** object) noexcept {
    return CreateInstance<ghATLListView>(outer, iid, object);
}

HRESULT Wrap(std::unique_ptr<ghListView> engine, IListView** object) {
    return WrapInto<ghATLListView>(std::move(engine), object);
}

} // namespace automation
