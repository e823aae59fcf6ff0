#include "page_table.h"

#include "host_ids.h"

#include <algorithm>

namespace sample_host {

void OpenAboutDialog();
void OpenCadPage();
void OpenCheckBoxesPage();
void OpenComboBoxesPage();
void OpenContextMenusPage();
void OpenDocument();
void OpenDrawingDialog();
void OpenFindDialog();
void OpenLargeDataPage();
void OpenLateDialog();
void OpenListBoxesPage();
void OpenListViewsPage();
void OpenManyItemsPage();
void OpenOptionsDialog();
void OpenPaletteDialog();
void OpenPanelsPage();
void OpenPeersWindow();
void OpenRibbonDialog();
void OpenSaveDrawingDialog();
void OpenSettingsDialog();
void OpenTabsPage();
void OpenTrackBarsPage();
void OpenTreesPage();
void OpenTwinsDialog();

namespace {

constexpr Page kPages[] = {
    {"document", ids::kPageDocument, "&Document", OpenDocument},
    {"settings", ids::kPageSettings, "&Settings...", OpenSettingsDialog},
    {"find", ids::kPageFind, "&Find", OpenFindDialog},
    {"palette", ids::kPagePalette, "&Palette", OpenPaletteDialog},
    {"twins", ids::kPageTwins, "&Twins", OpenTwinsDialog},
    {"late", ids::kPageLate, "&Late...", OpenLateDialog},
    {"about", ids::kPageAbout, "&About...", OpenAboutDialog},
    {"panels", ids::kPagePanels, "Pa&nels", OpenPanelsPage},
    {"context-menus", ids::kPageContextMenus, "&Context menus", OpenContextMenusPage},
    {"many-items", ids::kPageManyItems, "&Many items", OpenManyItemsPage},
    {"cad", ids::kPageCad, "C&AD", OpenCadPage},
    {"options", ids::kPageOptions, "&Options", OpenOptionsDialog},
    {"ribbon", ids::kPageRibbon, "Customise &ribbon", OpenRibbonDialog},
    {"large-data", ids::kPageLargeData, "Lar&ge data", OpenLargeDataPage},
    {"peers", ids::kPagePeers, "Pee&rs", OpenPeersWindow},
    {"trees", ids::kPageTrees, "&Trees", OpenTreesPage},
    {"list-views", ids::kPageListViews, "List &views", OpenListViewsPage},
    {"list-boxes", ids::kPageListBoxes, "List &boxes", OpenListBoxesPage},
    {"combo-boxes", ids::kPageComboBoxes, "Comb&o boxes", OpenComboBoxesPage},
    {"tabs", ids::kPageTabs, "Ta&bs", OpenTabsPage},
    {"track-bars", ids::kPageTrackBars, "Trac&k bars", OpenTrackBarsPage},
    {"check-boxes", ids::kPageCheckBoxes, "C&heck boxes", OpenCheckBoxesPage},
    {"save-drawing", ids::kPageSaveDrawing, "Sa&ve drawing", OpenSaveDrawingDialog},
    {"open-drawing", ids::kPageOpenDrawing, "Op&en drawing", OpenDrawingDialog},
};

bool Open(const Page* page) {
    if (page == std::end(kPages))
        return false;
    page->open();
    return true;
}

} // namespace

std::span<const Page> Pages() {
    return kPages;
}

bool OpenPage(std::string_view name) {
    return Open(std::ranges::find(kPages, name, &Page::name));
}

bool OpenPage(unsigned command) {
    return Open(std::ranges::find(kPages, command, &Page::command));
}

} // namespace sample_host
