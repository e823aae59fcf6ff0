#include "automation/ghATLTreeItem.h"

#include "automation/create.h"
#include "automation/ghATLCADTreeItem.h"
#include "automation/wrap.h"

namespace automation {

HRESULT Wrap(std::unique_ptr<ghTreeItem> engine, ITreeItem** object) noexcept {
    if (auto* item = dynamic_cast<ghCADTreeItem*>(engine.get())) {
        engine.release();
        return WrapInto<ghATLCADTreeItem>(std::unique_ptr<ghCADTreeItem>(item), object);
    }
    return WrapInto<ghATLTreeItem>(std::move(engine), object);
}

} // namespace automation
