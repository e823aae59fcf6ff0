// Walks over items in the control's own thread: slices, whoever ends on the way, what stands in the way.
#include "controls/ghListBox.h"
#include "controls/item_search.h"
#include "controls/tree_search.h"
#include "hostlink/host_locale.h"
#include "hostlink/shared_section.h"
#include "support/section.h"
#include "walked_control.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <new>
#include <random>
#include <string>
#include <thread>
#include <vector>

namespace {

using hostlink::HostWindow;
using support::GuiThread;
using walked::Control;
using walked::InsertTreeItem;
using walked::kNothing;
using walked::watch;

class WalkTest : public walked::ControlTest {};

std::vector<HTREEITEM> FillDeepTree(HWND window, int depth) {
    std::vector<HTREEITEM> items;
    for (int level = 0; level < depth; ++level) {
        items.push_back(InsertTreeItem(window, items.empty() ? nullptr : items.back(), "item"));
    }
    return items;
}

TEST_F(WalkTest, ComesUpFromABranchDeeperThanItKeeps) {
    constexpr int kDepth = static_cast<int>(controls::RunningNumberPosition::kKept) + 40;
    const GuiThread thread;
    const Control tree(thread, WC_TREEVIEWA);
    HTREEITEM behind = nullptr, low = nullptr;
    thread.Run([&] {
        const auto items = FillDeepTree(tree.Window(), kDepth);
        behind = InsertTreeItem(tree.Window(), nullptr, "behind");
        low = InsertTreeItem(tree.Window(), items[kDepth - 10], "one more at the bottom");
    });
    EXPECT_EQ(controls::FindByRunningNumber(tree.Host(), kDepth + 1), low);
    EXPECT_EQ(controls::FindByRunningNumber(tree.Host(), kDepth + 2), behind);
    EXPECT_EQ(controls::FindByRunningNumber(tree.Host(), kDepth + 3), nullptr);
}

void FillList(HWND window, int count) {
    for (int index = 0; index < count; ++index) {
        SendMessageA(window, LB_ADDSTRING, 0,
                     reinterpret_cast<LPARAM>(("Item " + std::to_string(index)).c_str()));
    }
}

TEST_F(WalkTest, LeavesTheProgramItsTurnBetweenSlices) {
    const GuiThread thread;
    const Control list(thread, "LISTBOX");
    static int turns = 0;
    turns = 0;
    thread.Run([&] {
        FillList(list.Window(), 30);
        watch.delay = 5;
        watch.isOn = true;
        SetTimer(list.Window(), 1, 10, [](HWND, UINT, UINT_PTR, DWORD) { ++turns; });
    });
    EXPECT_EQ(controls::FirstItemWithPrefix(ghListBox(list.Window()), "Item 29"), 29);
    thread.Run([] { EXPECT_GT(turns, 5); });
}

// The hook with which a script has read the program's language waits there until the next look-up of a main
// window.
TEST_F(WalkTest, PassesNoLocaleHookOfTheScriptsOwn) {
    using hostlink::shared;
    const GuiThread thread;
    const Control list(thread, "LISTBOX");
    std::uint64_t during = 0;
    thread.Run([&] {
        FillList(list.Window(), 20);
        watch.changesAt = 10;
        watch.change = [&] { during = shared.localeHook; };
    });
    const auto hookDuringWalk = [&] {
        thread.Run([] {
            watch.seen.clear();
            watch.isOn = true;
        });
        EXPECT_EQ(controls::FirstItemWithPrefix(ghListBox(list.Window()), "Item 19"), 19);
        return during;
    };

    hostlink::AdoptHostLocale(list.Host());
    EXPECT_EQ(hookDuringWalk(), 0u);
    shared.hostLocale = 0;
    SendMessageA(list.Window(), hostlink::MSG_GH_GET_LOCALE, 0, 0);
    EXPECT_EQ(shared.hostLocale, GetThreadLocale()) << "the hook is not back";

    std::thread([&] { hostlink::AdoptHostLocale(list.Host()); }).join();
    const std::uint64_t ofAnother = shared.localeHook;
    EXPECT_NE(ofAnother, 0u);
    EXPECT_EQ(hookDuringWalk(), ofAnother);
    EXPECT_EQ(shared.localeHook, ofAnother);
}

std::atomic<DWORD> failing = 0; // the thread in which the step fails

bool StepThatFailsThere(const HostWindow& control, std::string_view wanted,
                        controls::ListPosition& position) {
    if (GetCurrentThreadId() == failing && position.index == 7) {
        throw std::bad_alloc();
    }
    return controls::StepToPrefix<ghListBox>(control, wanted, position);
}

// Whatever keeps a slice from running: the rest is walked from here.
TEST_F(WalkTest, GoesOnFromHereWhereTheHostsSideDoesNotAnswer) {
    const GuiThread thread, other;
    const Control list(thread, "LISTBOX");
    thread.Run([&] { FillList(list.Window(), 20); });
    using Position = controls::ListPosition;
    Position position;
    // The hook waits in another thread than the window's.
    hostlink::Walk<Position, controls::StepToPrefix<ghListBox>>({list.Window(), other.Id()}, "Item 19",
                                                                position);
    EXPECT_EQ(position.found, 19);

    failing = thread.Id();
    position = {};
    hostlink::Walk<Position, StepThatFailsThere>(list.Host(), "Item 19", position);
    EXPECT_EQ(position.found, 19);
}

TEST_F(WalkTest, TakesANameThatIsLongerThanTheWayIsWide) {
    const GuiThread thread;
    const Control list(thread, "LISTBOX");
    const std::string name(hostlink::kWalkTextSize * 4, 'n');
    thread.Run([&] {
        FillList(list.Window(), 3);
        SendMessageA(list.Window(), LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(name.c_str()));
    });
    EXPECT_EQ(controls::FirstItemWithPrefix(ghListBox(list.Window()), name), 3);
    EXPECT_EQ(controls::FirstItemWithPrefix(ghListBox(list.Window()), name + "n"), kNothing);
}

TEST_F(WalkTest, EndsWithTheWindow) {
    const GuiThread thread;
    const Control tree(thread, WC_TREEVIEWA);
    thread.Run([&] {
        FillDeepTree(tree.Window(), 50);
        watch.changesAt = 40;
        watch.change = [&] { DestroyWindow(tree.Window()); };
        watch.isOn = true;
    });
    EXPECT_EQ(controls::FindByRunningNumber(tree.Host(), 50), nullptr);
}

// More of them than there are ways, on one control.
TEST_F(WalkTest, OfSeveralScriptsDoNotDisturbOneAnother) {
    const GuiThread thread;
    const Control list(thread, "LISTBOX");
    thread.Run([&] { FillList(list.Window(), 200); });
    std::atomic<int> wrong = 0;
    std::vector<std::thread> scripts;
    for (int script = 0; script < 6; ++script) {
        scripts.emplace_back([&, script] {
            for (int round = 0; round < 10; ++round) {
                const int index = 100 + 10 * script + round;
                const std::string name = "Item " + std::to_string(index);
                wrong += controls::FirstItemWithPrefix(ghListBox(list.Window()), name) == index ? 0 : 1;
            }
        });
    }
    for (std::thread& script : scripts) {
        script.join();
    }
    EXPECT_EQ(wrong, 0);
}

// Hooks of both wait in one thread for the same message.
TEST_F(WalkTest, OfDifferentKindsDoNotTakeEachOthersTurn) {
    const GuiThread thread;
    const Control tree(thread, WC_TREEVIEWA);
    std::vector<HTREEITEM> items;
    thread.Run([&] {
        for (int number = 60; number > 0; --number) { // the names count down
            items.push_back(InsertTreeItem(tree.Window(), nullptr, std::to_string(number)));
        }
    });
    std::atomic<int> wrong = 0;
    std::thread other([&] {
        for (int round = 0; round < 300; ++round) {
            wrong += controls::FindByNumbers(tree.Host(), "40") == items[39] ? 0 : 1;
        }
    });
    for (int round = 0; round < 300; ++round) {
        EXPECT_EQ(controls::FindByNames(tree.Host(), "40"), items[20]);
    }
    other.join();
    EXPECT_EQ(wrong, 0);
}

// Any process can write where a walk crosses: no other item is found for that, and no program harmed.
TEST_F(WalkTest, IsNotLedAstrayByWhatOthersWrite) {
    using Clock = std::chrono::steady_clock;
    const GuiThread thread;
    const Control tree(thread, WC_TREEVIEWA);
    HTREEITEM wanted = nullptr;
    thread.Run([&] { wanted = FillDeepTree(tree.Window(), 120)[99]; });
    const std::span<std::byte> section = support::SectionOf(GetModuleHandleA(nullptr), ".module");
    ASSERT_GT(section.size(), 4 * (hostlink::kWalkPositionSize + hostlink::kWalkTextSize));
    std::atomic<bool> ends = false;
    std::thread writer([&] {
        std::mt19937 random(1);
        while (!ends) {
            // Where something stands, and not all of it at once: one byte or so in each exchange.
            std::byte& place = section[random() % section.size()];
            if (place != std::byte{0}) {
                place = static_cast<std::byte>(random());
                for (const auto end = Clock::now() + std::chrono::microseconds(200); Clock::now() < end;) {
                }
            }
        }
    });
    for (int round = 0; round < 300; ++round) {
        EXPECT_EQ(controls::FindByRunningNumber(tree.Host(), 100), wanted);
    }
    ends = true;
    writer.join();
    std::ranges::fill(section, std::byte{0});
    EXPECT_EQ(controls::FindByRunningNumber(tree.Host(), 100), wanted);
}

} // namespace
