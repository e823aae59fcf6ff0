#include "automation/ghATLTreeItem.h"

#include "automation/classes.h"
#include "automation/create.h"
#include "automation/wrap.h"
#include "controls/ghCADTreeItem.h"

namespace automation {

HRESULT CreateTreeItem(IUnknown* outer, REFIID iid, void** object) noexcept {
    return CreateInstance<ghATLTreeItem>(outer, iid, object);
}

HRESULT Wrap(std::unique_ptr<ghTreeItem> engine, ITreeItem** object) {
    if (auto* item = dynamic_cast<ghCADTreeItem*>(engine.get())) {
        static_cast<void>(engine.release());
        return Wrap(std::unique_ptr<ghCADTreeItem>(item), object);
    }
    return WrapInto<ghATLTreeItem>(std::move(engine), object);
}

} // namespace automation
