#include "automation/ghATLCADTreeItem.h"

#include "automation/classes.h"
#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT CreateCADTreeItem(IUnknown* outer, REFIID iid, void** object) noexcept {
    return CreateInstance<ghATLCADTreeItem>(outer, iid, object);
}

HRESULT Wrap(std::unique_ptr<ghCADTreeItem> engine, ITreeItem** object) {
    return WrapInto<ghATLCADTreeItem>(std::move(engine), object);
}

} // namespace automation
