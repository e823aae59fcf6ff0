// What a host program and Ghosthand say to each other: registered message names, request codes and
// the byte layout of every record. A host includes this header alone; it never links the server.
//
// All records are little endian and travel through memory that the host's GUI thread can address.
// Texts are ANSI (the system code page) and NUL-terminated. Every request is sent, on the host's GUI
// thread, to the control that it concerns; a host answers 0 to a request that it does not know.
// The header needs C++11 and nothing of Windows.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>

namespace ghosthand {
namespace host_contract {

// The answer to an identification probe (the control's message with wParam 0 and lParam 0) of a grid,
// a CAD tree or a ribbon customisation widget. Any other answer means another kind of window.
constexpr std::intptr_t kProbeAnswer = 165;

// Capacity in bytes, terminator included, of the text buffer that a text request points at.
constexpr std::uint32_t kTextCapacity = 1024;

// A text buffer of the host's address space. On entry `text` points at a buffer of `capacity` bytes
// that holds the text to set, or an empty text. To answer, the host writes into that buffer, or
// replaces `text` by a pointer to a text of its own, which must stay readable until the next message.
struct TextBuffer {
    std::uint64_t text;
    std::uint32_t capacity;
    std::uint32_t reserved; // not initialised by the sender
};
static_assert(sizeof(TextBuffer) == 16, "layout of the exchange");
static_assert(offsetof(TextBuffer, text) == 0 && offsetof(TextBuffer, capacity) == 8,
              "layout of the exchange");

// The code page UTF-8, which GetACP() answers where it is the system's.
constexpr std::uint32_t kUtf8CodePage = 65001;

inline bool IsUtf8TrailByte(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// The length in bytes, at most `limit`, to which a text of `length` bytes is cut without parting a
// character. A Windows program passes GetACP() and IsDBCSLeadByte; `isLeadByte` says of an unsigned char
// whether it is the first of a character's two bytes, and is not asked in UTF-8.
template <class IsLeadByte>
std::size_t CutLength(const char* text, std::size_t length, std::size_t limit, std::uint32_t codePage,
                      IsLeadByte isLeadByte) {
    if (length <= limit) {
        return length;
    }
    if (codePage == kUtf8CodePage) {
        // A character has no more trail bytes: a longer run of them is damage, and all of it would be lost.
        const std::size_t mostTrailBytes = 3;
        std::size_t cut = limit;
        while (cut > 0 && limit - cut < mostTrailBytes && IsUtf8TrailByte(text[cut])) {
            --cut;
        }
        return IsUtf8TrailByte(text[cut]) ? limit : cut;
    }
    // From the beginning: a byte alone does not tell whether it is the second one of a character.
    std::size_t cut = 0;
    while (cut < limit) {
        const std::size_t end = cut + (isLeadByte(static_cast<unsigned char>(text[cut])) ? 2 : 1);
        if (end > limit) {
            break;
        }
        cut = end;
    }
    return cut;
}

// Answers with a text: copies it into the buffer, cut as CutLength() does to leave room for the terminator.
// Writes at most `capacity` bytes.
template <class IsLeadByte>
void WriteText(const TextBuffer& buffer, const std::string& text, std::uint32_t codePage,
               IsLeadByte isLeadByte) {
    char* const copy = reinterpret_cast<char*>(static_cast<std::uintptr_t>(buffer.text));
    if (copy == nullptr || buffer.capacity == 0) {
        return;
    }
    const std::size_t length = CutLength(text.data(), text.size(), buffer.capacity - 1, codePage, isLeadByte);
    std::memcpy(copy, text.data(), length);
    copy[length] = '\0';
}

// The text to set. Reads at most `capacity` bytes: what comes from another program need not have an end.
inline std::string ReadText(const TextBuffer& buffer) {
    const char* const text = reinterpret_cast<const char*>(static_cast<std::uintptr_t>(buffer.text));
    if (text == nullptr) {
        return std::string();
    }
    const void* const end = std::memchr(text, '\0', buffer.capacity);
    return end == nullptr ? std::string(text, buffer.capacity)
                          : std::string(text, static_cast<const char*>(end));
}

// Registered by RegisterWindowMessageA under exactly these names.
namespace message_name {
// Posted to a window of the host, wParam 0, lParam 0; never answered. Ghosthand watches it leave the
// queue: let it pass through the message loop like any other message.
constexpr char kSync[] = "MSG_GH_SYNC";
// Sent to a window of the host, wParam 0, lParam 0; the work is done by a hook, the host ignores it.
constexpr char kSendRemotely[] = "MSG_GH_SEND_REMOTELY";
// Sent to a control, wParam a small number, lParam 0; handled by a hook, which walks over the control's
// items.
constexpr char kWalk[] = "MSG_GH_WALK";
// Sent to a window, wParam = (state byte << 8) | virtual key, lParam 0; handled by a hook.
constexpr char kSetKeyState[] = "MSG_GH_SET_KEY_STATE";
// Sent to the main window, wParam 0, lParam 0; handled by a hook.
constexpr char kGetLocale[] = "MSG_GH_GET_LOCALE";
// Sent to a top-level window: wParam = global atom of a window's name (the sender deletes it),
// lParam 0. Answer: the HWND that the host gives that name, 0 if none. Names have at most 255 bytes and
// are compared without regard to case, as atoms are.
constexpr char kGetWindowByName[] = "MSG_HA_GetWindoHWND";
// Sent to a CAD view. wParam 1: answer 1. wParam 0: answer a global atom that holds the camera text
// (at most 255 bytes, the first of them no '#'); the caller deletes it.
constexpr char kGetViewPosition[] = "MSG_HA_GetViewPosition";
// Sent to a CAD view: wParam = global atom of the camera text to adopt (the sender deletes it).
constexpr char kSetViewPosition[] = "MSG_HA_SetViewPosition";
// Sent to a grid: wParam = grid::Request.
constexpr char kGrid[] = "MSG_GX_RequestGridInformation";
// Sent to an option tree: wParam = option_tree::Request.
constexpr char kOptionTree[] = "MSG_OT_RequestInformation";
// Sent to a ribbon customisation widget: wParam = ribbon_widget::Request.
constexpr char kRibbonWidget[] = "MSG_REQUEST_RIB_CUSTOMISATION_WIDGET_DATA";
// Sent to a tool bar, wParam 0, lParam 0: leave the customisation mode.
constexpr char kToolbarCustomizeMode[] = "BCGTOOLBAR_SET_CUSTOMIZE_MODE";
// Sent to a CAD tree: wParam = cad_tree::Request.
constexpr char kCadTree[] = "hlWM_REQUEST_CAD_TREE_INFORMATION";
// Sent to a grid or an option tree, wParam 0, lParam: ItemAtPoint. Answer 1 if an item lies there. Only tools
// that show what lies below the mouse ask it: a host need not know it.
constexpr char kItemAtPoint[] = "MSG_GH_ITEM_AT_POINT";
} // namespace message_name

// The item of a grid or an option tree below a point. All coordinates are client coordinates in pixels.
struct ItemAtPoint {
    std::int32_t x;
    std::int32_t y;
    std::uint64_t item;  // an option tree's answer: the item's identifier
    std::int32_t row;    // a grid's answer: 1-based, headings are not counted
    std::int32_t column; // 1-based
    std::int32_t left;   // the item's rectangle; right and bottom are not part of it
    std::int32_t top;
    std::int32_t right;
    std::int32_t bottom;
};
static_assert(sizeof(ItemAtPoint) == 40 && offsetof(ItemAtPoint, item) == 8 &&
                  offsetof(ItemAtPoint, row) == 16 && offsetof(ItemAtPoint, left) == 24,
              "layout of the exchange");

namespace grid {
enum Request : std::uint32_t {
    kProbe = 0,        // answer kProbeAnswer
    kColumnCount = 1,  // answer the number of columns
    kRowCount = 2,     // answer the number of rows
    kGetCellText = 3,  // lParam: CellRequest; write the cell's text
    kSetCellText = 4,  // lParam: CellRequest; set the cell's text, answer 1 on success
    kCellReadOnly = 6, // lParam: CellRequest; write "1" when the cell is read-only or disabled
};
struct CellRequest {
    std::int32_t row;    // 1-based
    std::int32_t column; // 1-based
    TextBuffer buffer;
};
static_assert(sizeof(CellRequest) == 24 && offsetof(CellRequest, buffer) == 8, "layout of the exchange");
} // namespace grid

namespace option_tree {
enum Request : std::uint32_t {
    kLabel = 1,      // lParam: TextRequest; write the item's label
    kRoot = 2,       // answer the root item's identifier; lParam is not relied on
    kFirstChild = 3, // lParam: item identifier; answer an identifier, 0 if none
    kNextSibling = 4,
    kParent = 5,
    kItemKind = 6, // lParam: item identifier; answer kCheckBoxKind for a check box
    kReadOnly = 7, // lParam: item identifier; answer non-zero for a read-only item
    kGetText = 8,  // lParam: TextRequest; write the item's text value ("1" or "0" for a check box)
    kSetText = 9,  // lParam: TextRequest; set the item's text value
};
constexpr std::intptr_t kCheckBoxKind = 2;
struct TextRequest {
    std::uint64_t item; // opaque identifier that the host chose; 0 means no item
    TextBuffer buffer;
};
static_assert(sizeof(TextRequest) == 24 && offsetof(TextRequest, buffer) == 8, "layout of the exchange");
} // namespace option_tree

namespace cad_tree {
// lParam: the tree item's HTREEITEM, except for kSetColor.
enum Request : std::uint32_t {
    kProbe = 0, // answer kProbeAnswer
    kGetVisible = 1,
    kShow = 2,
    kHide = 3,
    kGetChecked = 4,
    kCheck = 5,
    kUncheck = 6,
    kGetColor = 7,
    kSetColor = 8, // lParam: ColorRequest
    kGetStarred = 10,
    kStar = 11,
    kUnstar = 12,
};
struct ColorRequest {
    std::uint64_t item;     // HTREEITEM
    std::int32_t color;     // the host's own colour value
    std::uint32_t reserved; // not initialised by the sender
};
static_assert(sizeof(ColorRequest) == 16 && offsetof(ColorRequest, color) == 8, "layout of the exchange");
} // namespace cad_tree

namespace ribbon_widget {
// lParam: TextBuffer, except for kProbe.
enum Request : std::uint32_t {
    kProbe = 0,       // answer kProbeAnswer
    kGetSelected = 1, // write the selected form's name
    kSetSelected = 2, // select the form of that name, answer 1 on success
};
} // namespace ribbon_widget

namespace group_combo {
// Messages of the application range, sent to the combo box.
enum Message : std::uint32_t {
    // wParam = byte length of the query, lParam = the query: heading name, NUL, item name, NUL in the
    // ANSI code page. Both names are matched whole and case-sensitively. Answer the item's index, -1
    // when there is none.
    kFindByNames = 0x8002,
    // wParam = 0-based item index. Answer the index of the heading that the item belongs to (a heading
    // answers its own), -1 when there is none.
    kHeadingOfItem = 0x8003,
};
} // namespace group_combo

} // namespace host_contract
} // namespace ghosthand
