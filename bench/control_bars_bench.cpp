// What finding an item of a large toolbar or menu costs, against the bare messages and calls that it takes.

#include "bench.h"

#include "controlbars/ghMenu.h"
#include "controlbars/ghToolbar.h"
#include "controlbars/toolbar_messages.h"
#include "hostlink/remote_send.h"
#include "support/sample_host.h"

#include <stdexcept>
#include <vector>

namespace {

namespace ids = sample_host::ids;

constexpr int kButtons = 200;
constexpr int kItems = 500;
constexpr double kEngineShare = 1.1; // the engine's own work may add a tenth to the messages
constexpr int kLastButton = static_cast<int>(ids::kFirstManyButton) + kButtons - 1;
// The button before the last one, whose text is too long to be read.
constexpr char kLastReadableText[] = "Button 198";

void Require(const std::unique_ptr<ghControlBarItem>& item) {
    if (!item->IsValid()) {
        throw std::runtime_error("the item is not found");
    }
}

controlbars::ButtonRecord ReadRecord(const hostlink::HostWindow& bar, int index) {
    controlbars::ButtonRecord button;
    hostlink::RemoteSend(bar, TB_GETBUTTON, static_cast<WPARAM>(index), hostlink::AsBlock(button));
    return button;
}

void ReadText(const hostlink::HostWindow& bar, int command) {
    const auto wParam = static_cast<WPARAM>(command);
    const LRESULT length = SendMessageA(bar.window, TB_GETBUTTONTEXTA, wParam, 0);
    std::vector<std::byte> block(static_cast<std::size_t>(length) + 2);
    hostlink::RemoteSend(bar, TB_GETBUTTONTEXTA, wParam, block);
}

void MeasureToolbar(bench::Report& report) {
    const support::SampleHost host("--page many-items");
    const ghToolbar toolbar(host.WaitForWindow("Many items.1088"));
    const hostlink::HostWindow& bar = toolbar.Host();

    report.Compare(
        {"toolbar: the last of 200 buttons by id", [&] { Require(toolbar.GetItemByID("", kLastButton)); }},
        {"its 200 remote sends",
         [&] {
             for (int index = 0; index < kButtons; ++index) {
                 ReadRecord(bar, index);
             }
         }},
        {.aim = kEngineShare, .rounds = 21});
    report.Compare({"toolbar: the 199th of 200 buttons by caption",
                    [&] { Require(toolbar.GetItemByID(kLastReadableText, 0)); }},
                   {"its messages and remote sends",
                    [&] {
                        for (int index = 0; index < kButtons - 1; ++index) {
                            ReadText(bar, ReadRecord(bar, index).command);
                        }
                    }},
                   {.aim = kEngineShare, .rounds = 21});
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

const bench::Registration kToolbar("toolbar", MeasureToolbar);
const bench::Registration kMenu("menu", MeasureMenu);

} // namespace
