#include "automation/ghATLListBox.h"

#include "automation/create.h"
#include "automation/wrap.h"

namespace automation {

HRESULT Wrap(std::unique_ptr<ghListBox> engine, IListBox** object) noexcept {
    return WrapInto<ghATLListBox>(std::move(engine), object);
}

} // namespace automation
