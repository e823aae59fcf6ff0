#include "automation/ghATLOptionTree.h"

#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT Wrap(std::unique_ptr<ghOptionTree> engine, IOptionTree** object) noexcept {
    return WrapInto<ghATLOptionTree>(std::move(engine), object);
}

} // namespace automation
