#include "controls/ghGroupCombo.h"

#include "controls/combo_selection.h"
#include "controls/item_search.h"
#include "engine/activation.h"
#include "ghosthand/host_contract.h"
#include "hostlink/remote_send.h"
#include "hostlink/shared_section.h"
#include "inhouse/dlgkit.h"

namespace group_combo = ghosthand::host_contract::group_combo;

namespace {

constexpr int kNone = -1; // as 32 bits of an answer

int IndexOfHeading(HWND combo, int index) noexcept {
    return static_cast<int>(SendMessageA(combo, group_combo::kHeadingOfItem, static_cast<WPARAM>(index), 0));
}

} // namespace

std::string ghGroupCombo::Text() const {
    return ItemText(SelectedIndex());
}

int ghGroupCombo::ItemsCount() const noexcept {
    return static_cast<int>(SendMessageA(Window(), CB_GETCOUNT, 0, 0));
}

std::string ghGroupCombo::ItemText(int index) const {
    return controls::HasItem(*this, index) ? dkListHelpers::get_combo_item(Window(), index, false)
                                           : std::string();
}

std::string ghGroupCombo::HeadingOfItem(int index) const {
    if (!controls::HasItem(*this, index)) {
        return {};
    }
    const int heading = IndexOfHeading(Window(), index);
    return heading == kNone ? std::string() : dkListHelpers::get_combo_item(Window(), heading, false);
}

std::string ghGroupCombo::HeadingText() const {
    return HeadingOfItem(SelectedIndex());
}

bool ghGroupCombo::SelectItem(int index) const {
    engine::Activate(*this);
    if (!controls::HasItem(*this, index) || IndexOfHeading(Window(), index) == index) {
        return false;
    }
    engine::WaitUntilReady(*this);
    controls::SelectComboItem(*this, index);
    return true;
}

bool ghGroupCombo::SelectItemByName(const std::string& heading, const std::string& item) const {
    // A query that is too long for the exchange is not sent and answered by 0, so that item 0 is chosen.
    // Kept on purpose.
    std::string query = dkGroupComboHelpers::pack_query({heading, item});
    const bool tooLong = query.size() > hostlink::kRemoteDataSize;
    const std::optional<LRESULT> answer =
        tooLong ? 0
                : hostlink::TryRemoteSend(Host(), group_combo::kFindByNames, query.size(),
                                          std::as_writable_bytes(std::span(query)));
    const int index = answer ? static_cast<int>(*answer) : kNone;
    return index != kNone && SelectItem(index);
}

int ghGroupCombo::SelectedIndex() const noexcept {
    return static_cast<int>(SendMessageA(Window(), CB_GETCURSEL, 0, 0));
}
