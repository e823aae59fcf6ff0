#include "automation/ghATLListBox.h"

#include "automation/classes.h"
#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT CreateListBox(IUnknown* outer, REFIID iid, void** object) noexcept {
    return CreateInstance<ghATLListBox>(outer, iid, object);
}

HRESULT Wrap(std::unique_ptr<ghListBox> engine, IListBox** object) {
    return WrapInto<ghATLListBox>(std::move(engine), object);
}

} // namespace automation
