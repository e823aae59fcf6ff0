#include "item_menu.h"

#include "bar_popup.h"
#include "host_ids.h"

namespace sample_host {

void OpenItemMenu(POINT corner, const std::string& item) {
    std::vector<BarButton> entries;
    if (item.empty())
        entries = {{.command = ids::kItemAdd, .text = "Add item"}};
    else
        entries = {{.command = ids::kItemProperties, .text = "Properties of " + item},
                   {.command = ids::kItemDelete, .text = "Delete"}};
    OpenBarPopup(PopupKind::Plain, corner, entries, nullptr);
}

} // namespace sample_host
