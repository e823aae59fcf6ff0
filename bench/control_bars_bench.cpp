// What finding an item of a large menu costs, against the bare calls that it takes.

#include "bench.h"

#include "controlbars/ghMenu.h"
#include "host_ids.h"

#include <stdexcept>

namespace {

namespace ids = sample_host::ids;

constexpr int kItems = 500;
constexpr double kEngineShare = 1.1; // the engine's own work may add a tenth to the messages

void Require(const std::unique_ptr<ghControlBarItem>& item) {
    if (!item->IsValid()) {
        throw std::runtime_error("the item is not found");
    }
}

// In this process: a menu handle may be good in its own process only.
void MeasureMenu(bench::Report& report) {
    const HMENU handle = CreatePopupMenu();
    for (int number = 0; number < kItems; ++number) {
        AppendMenuA(handle, MF_STRING, ids::kFirstManyItem + static_cast<UINT_PTR>(number),
                    ("Item " + std::to_string(number)).c_str());
    }
    const ghMenu menu(GetDesktopWindow(), handle);
    const bench::Contender bare = {"500 calls of GetMenuItemInfoA", [&] {
                                       for (int position = 0; position < kItems; ++position) {
                                           char text[1024];
                                           MENUITEMINFOA info = {};
                                           info.cbSize = sizeof info;
                                           info.fMask = 0x147;
                                           info.dwTypeData = text;
                                           info.cch = sizeof text;
                                           GetMenuItemInfoA(handle, static_cast<UINT>(position), TRUE, &info);
                                       }
                                   }};
    const int last = static_cast<int>(ids::kFirstManyItem) + kItems - 1;
    report.Compare({"menu: the last of 500 items by id", [&] { Require(menu.GetItemByID("", last)); }}, bare,
                   {.aim = kEngineShare});
    report.Compare(
        {"menu: the last of 500 items by caption", [&] { Require(menu.GetItemByID("Item 499", 0)); }}, bare,
        {.aim = kEngineShare});
    DestroyMenu(handle);
}

const bench::Registration kMenu("menu", MeasureMenu);

} // namespace
