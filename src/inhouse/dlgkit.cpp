#include "inhouse/dlgkit.h"

#include "ghosthand/host_contract.h"

#include <cwchar>
#include <memory>
#include <string_view>

namespace {

struct ItemMessages {
    UINT textLength;
    UINT text;
    std::uint32_t ownerDrawn; // any of these styles
    std::uint32_t hasStrings;
};
constexpr ItemMessages kListBox{LB_GETTEXTLEN, LB_GETTEXT, LBS_OWNERDRAWFIXED | LBS_OWNERDRAWVARIABLE,
                                LBS_HASSTRINGS};
constexpr ItemMessages kComboBox{CB_GETLBTEXTLEN, CB_GETLBTEXT, CBS_OWNERDRAWFIXED | CBS_OWNERDRAWVARIABLE,
                                 CBS_HASSTRINGS};

// The text message does not know the size of its buffer, and the control's own program may replace a text
// between the two messages: this is the room for what such a text may gain.
constexpr std::size_t kRoomToGrow = 0x10000; // characters
// A control that claims more is not believed: room for its text could take all memory.
constexpr int kLongestText = 0x100000; // characters

// An extended combo box keeps strings whatever its style says: it draws the items of the combo box inside.
bool IsExtended(HWND control) {
    char name[32] = "";
    GetClassNameA(control, name, sizeof name);
    return std::string_view(name) == "ComboBoxEx32";
}

// A control without strings would hand out its item data, and its length as that of a text.
bool KeepsStrings(HWND control, const ItemMessages& messages) {
    const auto style = static_cast<std::uint32_t>(GetWindowLongPtrA(control, GWL_STYLE));
    return (style & messages.ownerDrawn) == 0 || (style & messages.hasStrings) != 0 || IsExtended(control);
}

std::string ToAnsi(const wchar_t* text, int length) {
    std::string ansi(
        static_cast<std::size_t>(WideCharToMultiByte(CP_ACP, 0, text, length, nullptr, 0, nullptr, nullptr)),
        '\0');
    WideCharToMultiByte(CP_ACP, 0, text, length, ansi.data(), static_cast<int>(ansi.size()), nullptr,
                        nullptr);
    return ansi;
}

// Fetches wide characters, which every platform carries from one process to another unharmed.
std::string ItemText(HWND control, int index, const ItemMessages& messages) {
    if (index < 0 || !KeepsStrings(control, messages))
        return {};
    const auto item = static_cast<WPARAM>(index);
    const int length = static_cast<int>(SendMessageW(control, messages.textLength, item, 0));
    if (length <= 0 || length > kLongestText)
        return {};
    const std::size_t capacity = static_cast<std::size_t>(length) + kRoomToGrow;
    const auto buffer = std::make_unique<wchar_t[]>(capacity);
    const LRESULT fetched =
        SendMessageW(control, messages.text, item, reinterpret_cast<LPARAM>(buffer.get()));
    if (static_cast<int>(fetched) < 0)
        return {};
    return ToAnsi(buffer.get(), static_cast<int>(wcsnlen(buffer.get(), capacity)));
}

} // namespace

namespace dkListHelpers {

std::string get_list_item(HWND listBox, int index, bool) {
    return ItemText(listBox, index, kListBox);
}

std::string get_combo_item(HWND comboBox, int index, bool) {
    return ItemText(comboBox, index, kComboBox);
}

} // namespace dkListHelpers

namespace dkGroupComboHelpers {

bool check_combo_type(HWND comboBox) {
    const LRESULT heading = SendMessageA(comboBox, ghosthand::host_contract::group_combo::kHeadingOfItem,
                                         static_cast<WPARAM>(-1), 0);
    return static_cast<std::int32_t>(heading) == -1;
}

} // namespace dkGroupComboHelpers
