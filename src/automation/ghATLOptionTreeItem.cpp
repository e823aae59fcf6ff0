#include "automation/ghATLOptionTreeItem.h"

#include "automation/classes.h"
#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT CreateOptionTreeItem(IUnknown* outer, REFIID iid, void** object) noexcept {
    return CreateInstance<ghATLOptionTreeItem>(outer, iid, object);
}

HRESULT Wrap(const ghOptionTree& item, IOptionTreeItem** object) {
    // A window alone makes a tree valid; an item needs its identifier too.
    return WrapInto<ghATLOptionTreeItem>(item.IsValidItem() ? std::make_unique<ghOptionTree>(item) : nullptr,
                                         object);
}

} // namespace automation
