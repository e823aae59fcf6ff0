// The CAD program: tree, view, material and parameters of one model.
#include "cad_model.h"
#include "cad_tree.h"
#include "cad_view.h"
#include "control.h"
#include "grid.h"
#include "group_combo.h"
#include "host_ids.h"
#include "mdi_page.h"

#include <string_view>

namespace sample_host {
namespace {

constexpr int kTreeWidth = 200, kSideWidth = 262, kMargin = 6;

class ParameterContent final : public GridContent {
public:
    int Rows() const override { return static_cast<int>(Parameters().size()); }
    int Columns() const override { return 3; }
    int ColumnWidth(int column) const override { return column == kUnit ? 46 : column == kValue ? 90 : 116; }
    std::string Text(int row, int column) const override {
        if (row == 0)
            return column == kName ? "Parameter" : column == kValue ? "Value" : "Unit";
        const Parameter& parameter = Parameters()[static_cast<std::size_t>(row) - 1];
        return column == kName ? parameter.name : column == kValue ? ParameterText(row - 1) : parameter.unit;
    }
    bool IsReadOnly(int row, int column) const override {
        return column != kValue || Parameters()[static_cast<std::size_t>(row) - 1].computed;
    }
    bool SetText(int row, int, const std::string& text) override { return SetParameter(row - 1, text); }

private:
    enum Column { kName = 1, kValue = 2, kUnit = 3 };
};

std::vector<GroupComboItem> MaterialItems() {
    std::vector<GroupComboItem> items;
    std::string_view heading;
    for (const Material& material : Materials()) {
        if (material.heading != heading)
            items.push_back({material.heading, true});
        heading = material.heading;
        items.push_back({material.name});
    }
    return items;
}

// The materials stand in the list in the order of the model, with the headings between them.
void TakeMaterial(HWND combo) {
    const auto selected = static_cast<int>(SendMessageA(combo, CB_GETCURSEL, 0, 0));
    const auto items = MaterialItems();
    if (selected < 0 || items[static_cast<std::size_t>(selected)].isHeading)
        return;
    std::size_t material = 0;
    for (int item = 0; item < selected; ++item)
        material += !items[static_cast<std::size_t>(item)].isHeading;
    SetMaterial(Materials()[material]);
}

void Build(HWND page) {
    static ParameterContent parameters;
    AddCadTree(page, {}, ids::kCadTree);
    AddCadView(page, {}, ids::kCadView);
    AddControl(page, {.className = "Static", .text = "Material:", .id = ids::kLabel});
    const HWND combo = AddGroupCombo(page, {}, ids::kMaterial, MaterialItems());
    SendMessageA(combo, CB_SETCURSEL, 3, 0); // steel
    ShowsModel(AddGrid(page, {}, ids::kParameterGrid, parameters));
}

void LayOut(HWND page, int width, int height) {
    const int side = width - kSideWidth;
    const auto move = [&](int id, Area area) {
        MoveWindow(GetDlgItem(page, id), area.x, area.y, area.width, area.height, TRUE);
    };
    move(ids::kCadTree, {0, 0, kTreeWidth, height});
    move(ids::kCadView, {kTreeWidth, 0, side - kTreeWidth, height});
    move(ids::kLabel, {side + kMargin, 10, 56, 18});
    move(ids::kMaterial, {side + 64, 6, kSideWidth - 64 - kMargin, 220});
    move(ids::kParameterGrid, {side + kMargin, 40, kSideWidth - 2 * kMargin, height - 40 - kMargin});
}

bool Handle(HWND page, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    switch (message) {
    case WM_SIZE:
        LayOut(page, LOWORD(lParam), HIWORD(lParam));
        return false; // DefMDIChildProcA needs to see it
    case WM_NOTIFY:
        return lParam && reinterpret_cast<const NMHDR*>(lParam)->idFrom == ids::kCadTree &&
               OnCadTreeNotify(*reinterpret_cast<const NMHDR*>(lParam), result);
    case WM_COMMAND:
        if (LOWORD(wParam) == ids::kMaterial && HIWORD(wParam) == CBN_SELCHANGE)
            TakeMaterial(reinterpret_cast<HWND>(lParam));
        return false;
    default:
        return false;
    }
}

} // namespace

void OpenCadPage() {
    OpenMdiPage(
        {.name = "CAD", .caption = "CAD", .width = 960, .height = 520, .build = Build, .handler = Handle});
}

} // namespace sample_host
