#include "automation/ghATLOptionTreeItem.h"

#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT Wrap(std::unique_ptr<ghOptionTree> engine, IOptionTreeItem** object) noexcept {
    return WrapInto<ghATLOptionTreeItem>(std::move(engine), object);
}

} // namespace automation
