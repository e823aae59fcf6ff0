// What reading many items costs: against the bare messages that it takes, and against reading through memory
// that is allocated in the host.

#include "bench.h"
#include "host_memory.h"

#include "controls/ghListView.h"
#include "controls/ghTreeControl.h"
#include "controls/ghTreeItem.h"
#include "hostlink/remote_send.h"
#include "support/sample_host.h"

#include <cstring>
#include <stdexcept>

namespace {

namespace ids = sample_host::ids;

constexpr int kItems = 10000;
constexpr int kTexts = 1000;
constexpr double kEngineShare = 1.1; // the engine's own work may add a tenth to the messages
constexpr char kLastItem[] = "Item 9999";

HTREEITEM Next(HWND tree, UINT relation, HTREEITEM item) {
    return reinterpret_cast<HTREEITEM>(
        SendMessageA(tree, TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
}

// As a tool does that reads an item through memory of its own making in the host: the request and behind it
// the room for the text.
template <class Item>
void ReadThroughHostMemory(HANDLE process, HWND control, UINT message, WPARAM wParam, Item request) {
    constexpr int kCapacity = 1024;
    struct Exchange {
        Item request;
        char text[kCapacity];
    };
    const bench::HostMemory memory(process, sizeof(Exchange));
    auto* remote = static_cast<Exchange*>(memory.Address());
    request.pszText = remote->text;
    request.cchTextMax = kCapacity;
    WriteProcessMemory(process, remote, &request, sizeof request, nullptr);
    SendMessageA(control, message, wParam, reinterpret_cast<LPARAM>(remote));
    char text[kCapacity] = "";
    ReadProcessMemory(process, remote->text, text, sizeof text, nullptr);
    if (std::strncmp(text, "Item ", 5) != 0) {
        throw std::runtime_error("the host's memory does not carry the text");
    }
}

// Runs `act` on the first items of the tree, one after the other.
template <class Act>
void ForEachItem(HWND tree, int count, Act act) {
    HTREEITEM item = Next(tree, TVGN_ROOT, nullptr);
    for (int index = 0; index < count; ++index) {
        act(item);
        item = Next(tree, TVGN_NEXT, item);
    }
}

void MeasureTree(bench::Report& report) {
    const support::SampleHost host("--page trees");
    const ghTreeControl tree(host.WaitForWindow("Trees." + std::to_string(ids::kLargeTree)));
    const HWND window = tree.Window();
    const HANDLE process = OpenProcess(PROCESS_ALL_ACCESS, FALSE, host.ProcessId());
    report.Compare(
        {"read 1,000 texts of a tree",
         [&] { ForEachItem(window, kTexts, [&](HTREEITEM item) { ghTreeItem(tree, item).Text(); }); }},
        {"the same through allocated memory",
         [&] {
             ForEachItem(window, kTexts, [&](HTREEITEM item) {
                 TVITEMA request = {};
                 request.mask = TVIF_TEXT;
                 request.hItem = item;
                 ReadThroughHostMemory(process, window, TVM_GETITEMA, 0, request);
             });
         }},
        {.aim = 1.0, .rounds = 11});
    CloseHandle(process);
}

void MeasureListView(bench::Report& report) {
    const support::SampleHost host("--page list-views");
    const ghListView list(host.WaitForWindow("List views." + std::to_string(ids::kLargeList)));
    if (list.GetItem(kItems - 1) != kLastItem) {
        throw std::runtime_error("the sample host's large list is not there");
    }
    const HWND window = list.Window();
    const auto read = [&](int count) {
        for (int index = 0; index < count; ++index)
            list.GetItem(index);
    };
    report.Compare({"read 1,000 texts of a list view", [&] { read(kTexts); }},
                   {"its messages alone",
                    [&] {
                        for (int index = 0; index < kTexts; ++index) {
                            SendMessageA(window, LVM_GETITEMCOUNT, 0, 0);
                            LVITEMA request = {};
                            request.mask = LVIF_TEXT;
                            request.iItem = index;
                            std::string text;
                            hostlink::RemoteSendWithString(
                                list.Host(), LVM_GETITEMTEXTA, static_cast<WPARAM>(index),
                                hostlink::AsBlock(request), offsetof(LVITEMA, pszText), text);
                        }
                    }},
                   {.aim = kEngineShare, .rounds = 11});
    const HANDLE process = OpenProcess(PROCESS_ALL_ACCESS, FALSE, host.ProcessId());
    report.Compare({"read 1,000 texts of a list view", [&] { read(kTexts); }},
                   {"the same through allocated memory",
                    [&] {
                        for (int index = 0; index < kTexts; ++index) {
                            SendMessageA(window, LVM_GETITEMCOUNT, 0, 0);
                            LVITEMA request = {};
                            request.mask = LVIF_TEXT;
                            request.iItem = index;
                            ReadThroughHostMemory(process, window, LVM_GETITEMTEXTA,
                                                  static_cast<WPARAM>(index), request);
                        }
                    }},
                   {.aim = 1.0, .rounds = 11});
    CloseHandle(process);
}

const bench::Registration kTree("tree", MeasureTree);
const bench::Registration kListView("list view", MeasureListView);

} // namespace
