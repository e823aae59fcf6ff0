// What it saves to walk over the items of a control in the control's own thread: against the same walk
// message by message, and against the same walk written into the program.

#include "bench.h"

#include "controlbars/ghToolbar.h"
#include "controls/ghComboBox.h"
#include "controls/ghListBox.h"
#include "controls/ghListView.h"
#include "controls/ghOptionTree.h"
#include "controls/ghTreeControl.h"
#include "controls/item_search.h"
#include "controls/tree_search.h"
#include "hostlink/host_locale.h"
#include "hostlink/walk.h"
#include "support/gui_thread.h"
#include "support/sample_host.h"

#include <algorithm>
#include <atomic>
#include <stdexcept>
#include <string>
#include <thread>

namespace {

namespace ids = sample_host::ids;

constexpr int kItems = 10000;
constexpr char kLastItem[] = "Item 9999";
constexpr int kButtons = 200;
constexpr int kLastButton = static_cast<int>(ids::kFirstManyButton) + kButtons - 1;
// The button before the last one, whose text is too long to be read.
constexpr char kLastReadableText[] = "Button 198";

void Require(bool found) {
    if (!found) {
        throw std::runtime_error("what is looked for is not found");
    }
}

template <class Position, hostlink::WalkStep<Position> step>
Position Across(const hostlink::HostWindow& control, std::string_view wanted, Position position = {}) {
    hostlink::WalkAcross<Position, step>(control, wanted, position);
    return position;
}

controls::RunningNumberPosition RunningNumber(int number) {
    controls::RunningNumberPosition position;
    position.left = number;
    return position;
}

void MeasureTree(bench::Report& report) {
    const support::SampleHost host("--page trees");
    const hostlink::HostWindow tree =
        ghTreeControl(host.WaitForWindow("Trees." + std::to_string(ids::kLargeTree))).Host();
    const auto byNames = [&](const std::string& path) {
        Require(controls::FindByNames(tree, path) != nullptr);
    };
    const auto byNamesAcross = [&](const std::string& path) {
        Require(Across<controls::TreePathPosition, controls::StepByNames>(tree, path).item != 0);
    };
    report.Compare({"tree: the last of 10,000 by name path", [&] { byNames(kLastItem); }},
                   {"message by message", [&] { byNamesAcross(kLastItem); }}, {.aim = 0.03, .rounds = 3});
    report.Compare({"tree: the last of 10,000 by running number",
                    [&] { Require(controls::FindByRunningNumber(tree, kItems) != nullptr); }},
                   {"message by message",
                    [&] {
                        Across<controls::RunningNumberPosition, controls::StepByRunningNumber>(
                            tree, {}, RunningNumber(kItems));
                    }},
                   {.aim = 0.03, .rounds = 3});
    report.Compare(
        {"tree: the last of 10,000 by number path",
         [&] { Require(controls::FindByNumbers(tree, std::to_string(kItems)) != nullptr); }},
        {"message by message",
         [&] { Across<controls::TreePathPosition, controls::StepByNumbers>(tree, std::to_string(kItems)); }},
        {.rounds = 3});
    for (const int number : {1, 2, 3, 5}) {
        const std::string name = "Item " + std::to_string(number - 1);
        report.Compare({"tree: item " + std::to_string(number) + " by name path", [&] { byNames(name); }},
                       {"message by message", [&] { byNamesAcross(name); }}, {.aim = 1.1});
    }
    for (const int number : {1, 2, 3, 4, 5, 8}) {
        const std::string path = std::to_string(number);
        report.Compare({"tree: item " + path + " by number path",
                        [&] { Require(controls::FindByNumbers(tree, path) != nullptr); }},
                       {"message by message",
                        [&] { Across<controls::TreePathPosition, controls::StepByNumbers>(tree, path); }},
                       {.aim = 1.1});
    }
    report.Compare({"tree: item 1 by running number",
                    [&] { Require(controls::FindByRunningNumber(tree, 1) != nullptr); }},
                   {"message by message",
                    [&] {
                        Across<controls::RunningNumberPosition, controls::StepByRunningNumber>(
                            tree, {}, RunningNumber(1));
                    }},
                   {.aim = 1.1});
}

template <class List>
void MeasureList(bench::Report& report, const List& list, const std::string& name, const std::string& wanted,
                 double aim, int rounds) {
    report.Compare(
        {name, [&] { Require(controls::FirstItemWithPrefix(list, wanted) >= 0); }},
        {"message by message",
         [&] { Across<controls::ListPosition, controls::StepToPrefix<List>>(list.Host(), wanted); }},
        {.aim = aim, .rounds = rounds});
}

void MeasureLists(bench::Report& report) {
    const support::SampleHost host("--page list-views");
    const ghListView list(host.WaitForWindow("List views." + std::to_string(ids::kLargeList)));
    MeasureList(report, list, "list view: the last of 10,000 by text", kLastItem, 0.05, 3);
    MeasureList(report, list, "list view: the first item by text", "Item 0", 1.1, 101);
    // With the click: each turn selects another item than the one before.
    report.Compare(
        {"list view: SelectItemByName, the last of 10,000",
         [&] {
             list.SelectItem(0);
             Require(list.SelectItemByName(kLastItem));
         }},
        {"message by message",
         [&] {
             using Position = controls::ListPosition;
             list.SelectItem(0);
             list.SelectItem(
                 Across<Position, controls::StepToPrefix<ghListView>>(list.Host(), kLastItem).found);
         }},
        {.rounds = 3});

    const support::GuiThread thread;
    HWND boxes[2] = {};
    thread.Run([&] {
        constexpr DWORD kStyle = WS_POPUP;
        boxes[0] =
            CreateWindowExA(0, "LISTBOX", "", kStyle, 0, 0, 100, 100, nullptr, nullptr, nullptr, nullptr);
        boxes[1] = CreateWindowExA(0, "COMBOBOX", "", kStyle | CBS_DROPDOWNLIST, 0, 0, 100, 100, nullptr,
                                   nullptr, nullptr, nullptr);
        for (int index = 0; index < 1000; ++index) {
            const std::string text = "Item " + std::to_string(index);
            SendMessageA(boxes[0], LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
            SendMessageA(boxes[1], CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
        }
    });
    MeasureList(report, ghListBox(boxes[0]), "list box: the first item by text", "Item 0", 1.1, 101);
    MeasureList(report, ghListBox(boxes[0]), "list box: the last of 1,000 by text", "Item 999", 0.1, 5);
    MeasureList(report, ghComboBox(boxes[1]), "combo box: the last of 1,000 by text", "Item 999", 0.1, 5);
}

void MeasureBars(bench::Report& report) {
    const support::SampleHost host("--page many-items");
    const ghToolbar toolbar(host.WaitForWindow("Many items.1088"));
    using controlbars::ButtonPosition;
    const auto byId = [&](int id) { Require(toolbar.GetItemByID("", id)->IsValid()); };
    const auto byIdAcross = [&](int id) {
        Across<ButtonPosition, controlbars::StepToId>(toolbar.Host(), {}, {{}, id});
        toolbar.ItemsCount(); // which the item's object asks for
        toolbar.ItemsCount();
    };
    report.Compare({"tool bar: the last of 200 buttons by id", [&] { byId(kLastButton); }},
                   {"message by message", [&] { byIdAcross(kLastButton); }}, {.aim = 0.1, .rounds = 21});
    report.Compare(
        {"tool bar: the 199th of 200 buttons by caption",
         [&] { Require(toolbar.GetItemByID(kLastReadableText, 0)->IsValid()); }},
        {"message by message",
         [&] { Across<ButtonPosition, controlbars::StepToCaption>(toolbar.Host(), kLastReadableText); }},
        {.aim = 0.1, .rounds = 21});
    report.Compare({"tool bar: the first button by id", [&] { byId(ids::kFirstManyButton); }},
                   {"message by message", [&] { byIdAcross(ids::kFirstManyButton); }}, {.aim = 1.1});
}

void MeasureOptionTree(bench::Report& report) {
    const support::SampleHost host("--page large-data");
    const ghOptionTree tree(host.WaitForWindow("Large data.1131"));
    const auto measure = [&](const char* name, const std::string& path, double aim) {
        using Position = ghOptionTree::PathPosition;
        report.Compare(
            {name, [&] { Require(tree.ItemByPath(path).IsValidItem()); }},
            {"message by message", [&] { Across<Position, ghOptionTree::StepAlongPath>(tree.Host(), path); }},
            {.aim = aim, .rounds = 21});
    };
    measure("option tree: the last of a thousand by path", "Group 9|Item 99", 0.1);
    measure("option tree: the first item by path", "Group 0", 1.1);
}

// With the hook that a script's MainWindow leaves in the program's thread, and that the way message by
// message passes.
void MeasureAfterMainWindow(bench::Report& report) {
    const support::SampleHost host("--page trees");
    const hostlink::HostWindow tree =
        ghTreeControl(host.WaitForWindow("Trees." + std::to_string(ids::kLargeTree))).Host();
    hostlink::AdoptHostLocale({host.Frame(), tree.threadId});
    const auto measure = [&](const char* name, const char* item, double aim, int rounds) {
        report.Compare({name, [&] { Require(controls::FindByNames(tree, item) != nullptr); }},
                       {"message by message",
                        [&] { Across<controls::TreePathPosition, controls::StepByNames>(tree, item); }},
                       {.aim = aim, .rounds = rounds});
    };
    measure("after MainWindow, tree: the last of 10,000 by name path", kLastItem, 0.03, 3);
    measure("after MainWindow, tree: the tenth item by name path", "Item 9", 1.1, 101);
    measure("after MainWindow, tree: the first item by name path", "Item 0", 1.1, 101);
}

// The same walk by a program that looks through its own tree.
void MeasureLimit(bench::Report& report) {
    const support::GuiThread thread;
    HWND window = nullptr;
    thread.Run([&] {
        window = CreateWindowExA(0, WC_TREEVIEWA, "", WS_POPUP, 0, 0, 100, 100, nullptr, nullptr, nullptr,
                                 nullptr);
        TVINSERTSTRUCTA item = {};
        item.item.mask = TVIF_TEXT;
        for (int index = 0; index < kItems; ++index) {
            std::string text = "Item " + std::to_string(index);
            item.item.pszText = text.data();
            item.hInsertAfter = TVI_LAST;
            SendMessageA(window, TVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
        }
    });
    const ghTreeControl tree(window);
    const auto walkInside = [&] {
        char text[1024];
        TVITEMA item = {};
        item.mask = TVIF_TEXT;
        item.pszText = text;
        item.cchTextMax = sizeof text;
        item.hItem = reinterpret_cast<HTREEITEM>(SendMessageA(window, TVM_GETNEXTITEM, TVGN_ROOT, 0));
        while (item.hItem != nullptr) {
            SendMessageA(window, TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&item));
            if (std::string_view(text) == kLastItem) {
                return;
            }
            item.hItem = reinterpret_cast<HTREEITEM>(
                SendMessageA(window, TVM_GETNEXTITEM, TVGN_NEXT, reinterpret_cast<LPARAM>(item.hItem)));
        }
        throw std::runtime_error("the last item is not found");
    };
    report.Compare({"tree: the last of 10,000 by name path",
                    [&] { Require(controls::FindByNames(tree.Host(), kLastItem) != nullptr); }},
                   {"the same walk written into the program", [&] { thread.Run(walkInside); }},
                   {.rounds = 11});
}

// How long another message to the program has to wait, at most, while a walk goes on.
void MeasureHold(bench::Report& report) {
    const support::SampleHost host("--page trees");
    const ghTreeControl tree(host.WaitForWindow("Trees." + std::to_string(ids::kLargeTree)));
    std::atomic<bool> ends = false;
    double longest = 0;
    std::thread asking([&] {
        LARGE_INTEGER frequency, before, after;
        QueryPerformanceFrequency(&frequency);
        while (!ends) {
            QueryPerformanceCounter(&before);
            SendMessageA(host.Frame(), WM_NULL, 0, 0);
            QueryPerformanceCounter(&after);
            longest = std::max(longest, static_cast<double>(after.QuadPart - before.QuadPart) * 1000 /
                                            static_cast<double>(frequency.QuadPart));
        }
    });
    for (int round = 0; round < 20; ++round) {
        controls::FindByNames(tree.Host(), kLastItem);
    }
    ends = true;
    asking.join();
    report.Fact("longest wait of another message to the program while 20 walks go on",
                std::to_string(longest) + " ms");
}

void Measure(bench::Report& report) {
    MeasureTree(report);
    MeasureLists(report);
    MeasureBars(report);
    MeasureOptionTree(report);
    MeasureAfterMainWindow(report);
    MeasureLimit(report);
    MeasureHold(report);
}

const bench::Registration kWalk("walk", Measure);

} // namespace
