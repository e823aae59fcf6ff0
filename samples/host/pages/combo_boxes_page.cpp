// Combo boxes of every kind, two of them built around another combo box, one in panels that want no
// notifications.
#include "control.h"
#include "host_ids.h"
#include "mdi_page.h"
#include "owner_drawn.h"

#include <commctrl.h>
#include <string>
#include <windowsx.h>

namespace sample_host {
namespace {

constexpr const char* kLayers[] = {"Axes",       "Contour, hidden", "Contour",
                                   "Dimensions", "R&D notes",       "Symbols"};
constexpr DWORD kComboStyle = WS_VSCROLL | WS_TABSTOP;

// A combo box of the host's own, as hosts have them: it answers the messages of a combo box by handing
// them to the one inside, and notifies with its own handle.
LRESULT CALLBACK CompositeProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const HWND inner = GetWindow(window, GW_CHILD);
    if (message >= CB_GETEDITSEL && message < CB_MSGMAX)
        return SendMessageA(inner, message, wParam, lParam);
    switch (message) {
    case WM_COMMAND:
        return SendMessageA(GetParent(window), WM_COMMAND, wParam, reinterpret_cast<LPARAM>(window));
    case WM_SETFOCUS:
        SetFocus(inner);
        return 0;
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

void Fill(HWND combo) {
    for (const char* layer : kLayers)
        ComboBox_AddString(combo, layer);
}

HWND AddCombo(HWND parent, DWORD style, Area area, int id) {
    const HWND combo =
        AddControl(parent, {.className = "ComboBox", .style = style | kComboStyle, .area = area, .id = id});
    Fill(combo);
    return combo;
}

void AddCaption(HWND page, const char* text, int x, int y) {
    AddControl(page, {.className = "Static", .text = text, .area = {x, y, 150, 18}});
}

void AddComposite(HWND page) {
    RegisterHostClass(ids::kCompositeComboClass, CompositeProcedure);
    const HWND outer = AddControl(page, {.className = ids::kCompositeComboClass,
                                         .style = WS_CLIPCHILDREN,
                                         .exStyle = WS_EX_CONTROLPARENT,
                                         .area = {170, 90, 150, 24},
                                         .id = ids::kCompositeCombo});
    AddCombo(outer, CBS_DROPDOWNLIST, {0, 0, 150, 120}, ids::kCompositeCombo);
}

void AddExtended(HWND page) {
    const HWND combo = AddControl(page, {.className = WC_COMBOBOXEXA,
                                         .style = CBS_DROPDOWNLIST | kComboStyle,
                                         .area = {170, 150, 150, 120},
                                         .id = ids::kExtendedCombo});
    for (const char* layer : kLayers) {
        std::string text = layer;
        COMBOBOXEXITEMA item{};
        item.mask = CBEIF_TEXT;
        item.iItem = -1; // at the end
        item.pszText = text.data();
        SendMessageA(combo, CBEM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
    }
}

void AddInQuietPanels(HWND page) {
    const HWND outer = AddPanel(page, {.className = "",
                                       .exStyle = WS_EX_NOPARENTNOTIFY | WS_EX_CONTROLPARENT,
                                       .area = {330, 90, 160, 40},
                                       .id = ids::kQuietPanel});
    const HWND inner = AddPanel(outer, {.className = "",
                                        .exStyle = WS_EX_NOPARENTNOTIFY | WS_EX_CONTROLPARENT,
                                        .area = {2, 2, 156, 36},
                                        .id = ids::kInnerQuietPanel});
    AddCombo(inner, CBS_DROPDOWNLIST, {2, 2, 150, 120}, ids::kQuietCombo);
}

void Build(HWND page) {
    AddCaption(page, "Simple", 10, 10);
    AddCombo(page, CBS_SIMPLE, {10, 30, 150, 120}, ids::kSimpleCombo);
    AddCaption(page, "Drop-down", 170, 10);
    AddCombo(page, CBS_DROPDOWN | CBS_AUTOHSCROLL, {170, 30, 150, 120}, ids::kDropDown);
    AddCaption(page, "Drop-down list", 330, 10);
    AddCombo(page, CBS_DROPDOWNLIST, {330, 30, 150, 120}, ids::kDropDownList);
    AddCaption(page, "One inside another", 170, 70);
    AddComposite(page);
    AddCaption(page, "ComboBoxEx32", 170, 130);
    AddExtended(page);
    AddCaption(page, "In quiet panels", 330, 70);
    AddInQuietPanels(page);
    AddCaption(page, "Owner-drawn", 10, 160);
    AddCombo(page, CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | CBS_HASSTRINGS, {10, 180, 150, 120},
             ids::kOwnerDrawnCombo);
    AddCaption(page, "Without strings", 330, 130);
    const HWND bare = AddControl(page, {.className = "ComboBox",
                                        .style = CBS_DROPDOWNLIST | CBS_OWNERDRAWFIXED | kComboStyle,
                                        .area = {330, 150, 150, 120},
                                        .id = ids::kBareCombo});
    for (const char* layer : kLayers)
        SendMessageA(bare, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(layer)); // the item's data
    AddControl(page, {.className = "Static", .area = {170, 184, 310, 18}, .id = ids::kLabel});
}

std::string ItemText(const DRAWITEMSTRUCT& item) {
    if (item.CtlID == ids::kBareCombo)
        return reinterpret_cast<const char*>(item.itemData);
    std::string text(static_cast<std::size_t>(ComboBox_GetLBTextLen(item.hwndItem, item.itemID)), '\0');
    ComboBox_GetLBText(item.hwndItem, item.itemID, text.data());
    return text;
}

// What the host makes of a choice: the label tells which box and which item.
void ReportChoice(HWND page, HWND combo, unsigned id) {
    const std::string text =
        "Box " + std::to_string(id) + " shows item " + std::to_string(ComboBox_GetCurSel(combo));
    SetDlgItemTextA(page, ids::kLabel, text.c_str());
}

bool Handle(HWND page, UINT message, WPARAM wParam, LPARAM lParam, LRESULT&) {
    switch (message) {
    case WM_COMMAND:
        if (HIWORD(wParam) == CBN_SELCHANGE)
            ReportChoice(page, reinterpret_cast<HWND>(lParam), LOWORD(wParam));
        return false;
    case WM_MEASUREITEM:
        MeasureItemText(*reinterpret_cast<MEASUREITEMSTRUCT*>(lParam));
        return true;
    case WM_DRAWITEM: {
        const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        if (item.itemID != static_cast<UINT>(-1))
            DrawItemText(item, ItemText(item).c_str());
        return true;
    }
    default:
        return false;
    }
}

} // namespace

void OpenComboBoxesPage() {
    OpenMdiPage({.name = "Combo boxes",
                 .caption = "Combo boxes",
                 .width = 520,
                 .height = 260,
                 .build = Build,
                 .handler = Handle});
}

} // namespace sample_host
