// Much of what is read item by item, and a tree that answers nothing but what the system's own does.
#include "grid.h"
#include "host_ids.h"
#include "mdi_page.h"
#include "option_tree.h"

namespace sample_host {
namespace {

constexpr int kCells = 100; // each way
constexpr int kGroups = 10, kItemsOfGroup = 100;

class LargeContent final : public GridContent {
public:
    int Rows() const override { return kCells; }
    int Columns() const override { return kCells; }
    int ColumnWidth(int) const override { return 56; }
    std::string Text(int row, int column) const override {
        return std::to_string(row) + "," + std::to_string(column);
    }
    bool IsReadOnly(int, int) const override { return true; }
    bool SetText(int, int, const std::string&) override { return false; }
};

Option LargeTree() {
    Option root{"Root"};
    for (int group = 0; group < kGroups; ++group) {
        Option& added = root.children.emplace_back(Option{"Group " + std::to_string(group)});
        for (int item = 0; item < kItemsOfGroup; ++item)
            added.children.push_back(
                {"Item " + std::to_string(item), Option::Kind::Text, std::to_string(group * 100 + item)});
    }
    root.children.push_back(
        {"Group 3", Option::Kind::Group, "", false, {{"Never reached by path"}}}); // a namesake
    return root;
}

void Build(HWND page) {
    static LargeContent content;
    AddGrid(page, {10, 10, 400, 300}, ids::kLargeGrid, content);
    AddOptionTree(page, {420, 10, 280, 300}, ids::kLargeOptionTree, LargeTree());
    const HWND tree = AddControl(page, {.className = WC_TREEVIEWA,
                                        .style = TVS_HASLINES | TVS_LINESATROOT | WS_BORDER | WS_TABSTOP,
                                        .area = {710, 10, 150, 300},
                                        .id = ids::kPlainTree});
    TVINSERTSTRUCTA item{};
    item.hParent = TVI_ROOT;
    item.item.mask = TVIF_TEXT;
    item.item.pszText = const_cast<char*>("Plain item");
    TreeView_InsertItem(tree, &item);
}

} // namespace

void OpenLargeDataPage() {
    OpenMdiPage({.name = "Large data", .caption = "Large data", .width = 880, .height = 350, .build = Build});
}

} // namespace sample_host
