#include "automation/ghATLOptionTree.h"

#include "automation/classes.h"
#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT CreateOptionTree(IUnknown* outer, REFIID iid, void** object) noexcept {
    return CreateInstance<ghATLOptionTree>(outer, iid, object);
}

HRESULT Wrap(std::unique_ptr<ghOptionTree> engine, IOptionTree** object) {
    return WrapInto<ghATLOptionTree>(std::move(engine), object);
}

} // namespace automation
