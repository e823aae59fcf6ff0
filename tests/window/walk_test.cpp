// Walks over items: what they find and what the control sees is the same in the control's own thread as from
// here, message by message. The controls are on another thread of this process.
#include "controlbars/ghToolbar.h"
#include "controls/ghComboBox.h"
#include "controls/ghListBox.h"
#include "controls/ghListView.h"
#include "controls/ghOptionTree.h"
#include "controls/ghTabControl.h"
#include "controls/item_search.h"
#include "controls/tree_search.h"
#include "ghosthand/host_contract.h"
#include "hostlink/module_instance.h"
#include "hostlink/registered_messages.h"
#include "hostlink/walk.h"
#include "support/code_page.h"
#include "support/gui_thread.h"
#include "support/section.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <map>
#include <memory>
#include <new>
#include <random>
#include <string>
#include <thread>
#include <tuple>
#include <vector>

#include <commctrl.h>

namespace {

namespace option_tree = ghosthand::host_contract::option_tree;
using hostlink::HostWindow;
using support::GuiThread;

constexpr int kNothing = -1;

int Below(std::mt19937& random, int end) {
    return static_cast<int>(random() % static_cast<unsigned>(end));
}

std::string RandomText(std::mt19937& random) {
    static const std::vector<std::string> texts = {
        "",
        "",
        "a",
        "a",
        "ab",
        "abc",
        "A",
        "Item 1",
        "Item 10",
        " a",
        "\xE4\xF6 \xDF",
        "\xE4",
        std::string(1023, 'x'),
        std::string(1024, 'x'),
        std::string(3000, 'x') + "y",
        "a b&c\t'\"",
    };
    return texts[static_cast<std::size_t>(Below(random, static_cast<int>(texts.size())))];
}

// What a control sees of a walk, and when it changes under way. Touched on the control's thread alone while a
// walk goes on.
struct Watch {
    std::vector<std::tuple<UINT, WPARAM>> seen;
    std::size_t changesAt = 0; // counted in messages; 0: never
    std::function<void()> change;
    DWORD delay = 0; // milliseconds before each answer
    WNDPROC original = nullptr;
    bool isOn = false;
};
Watch watch;

// Not the lengths of texts: for these the system asks by itself, on a text's way to another thread.
bool IsOfWalks(UINT message) {
    return message != LB_GETTEXTLEN && message != CB_GETLBTEXTLEN &&
           ((message >= WM_USER && message < 0x8000) || (message >= LB_ADDSTRING && message < LB_MSGMAX) ||
            (message >= CB_GETEDITSEL && message < CB_MSGMAX) ||
            message == hostlink::MSG_OT_RequestInformation);
}

LRESULT CALLBACK WatchProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (watch.isOn && IsOfWalks(message)) {
        watch.seen.emplace_back(message, wParam);
        if (watch.delay != 0) {
            Sleep(watch.delay);
        }
        if (watch.seen.size() == watch.changesAt) {
            watch.isOn = false;
            watch.change();
            watch.isOn = true;
        }
    }
    return CallWindowProcW(watch.original, window, message, wParam, lParam);
}

// A window of a GUI thread, filled there.
class Control {
public:
    Control(const GuiThread& thread, const char* windowClass, DWORD style = 0) : m_thread(thread) {
        thread.Run([&] {
            m_window = CreateWindowExA(0, windowClass, "", WS_POPUP | style, 0, 0, 100, 100, nullptr, nullptr,
                                       nullptr, nullptr);
            watch = {};
            watch.original = reinterpret_cast<WNDPROC>(
                SetWindowLongPtrW(m_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(WatchProcedure)));
        });
    }
    ~Control() {
        m_thread.Run([&] { DestroyWindow(m_window); });
    }
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    HWND Window() const { return m_window; }
    HostWindow Host() const { return {m_window, m_thread.Id()}; }

private:
    const GuiThread& m_thread;
    HWND m_window = nullptr;
};

template <class Position, hostlink::WalkStep<Position> step>
Position WalkInside(const HostWindow& control, std::string_view wanted, Position position) {
    if (wanted.size() > hostlink::kWalkTextSize) {
        hostlink::WalkAcross<Position, step>(control, wanted, position);
    } else if (step(control, wanted, position)) {
        EXPECT_TRUE(hostlink::WalkInHost(control, wanted, std::as_writable_bytes(std::span(&position, 1)),
                                         hostlink::WalkProcedure<Position, step>));
    }
    return position;
}

template <class Position, hostlink::WalkStep<Position> step>
Position WalkFromHere(const HostWindow& control, std::string_view wanted, Position position) {
    hostlink::WalkAcross<Position, step>(control, wanted, position);
    return position;
}

template <class Position, hostlink::WalkStep<Position> step>
Position Take(bool inside, const HostWindow& control, std::string_view wanted, Position position = {}) {
    return inside ? WalkInside<Position, step>(control, wanted, position)
                  : WalkFromHere<Position, step>(control, wanted, position);
}

// A kind of control: each is called on the control's thread but `walk`, which answers what tells the item
// found.
class Kind {
public:
    virtual ~Kind() = default;
    virtual const char* WindowClass() const = 0;
    virtual DWORD Style() const { return 0; }
    virtual void Fill(HWND window, std::mt19937& random) = 0;
    virtual void Change(HWND window, std::mt19937& random) = 0;
    virtual int Walk(const GuiThread& thread, const HostWindow& control, std::mt19937& random,
                     bool inside) const = 0;
};

HTREEITEM InsertTreeItem(HWND tree, HTREEITEM parent, std::string text, HTREEITEM after = TVI_LAST,
                         LPARAM number = 0) {
    TVINSERTSTRUCTA insert = {};
    insert.hParent = parent;
    insert.hInsertAfter = after;
    insert.item.mask = TVIF_TEXT | TVIF_PARAM;
    insert.item.pszText = text.data();
    insert.item.lParam = number;
    return reinterpret_cast<HTREEITEM>(
        SendMessageA(tree, TVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&insert)));
}

class Trees : public Kind {
public:
    const char* WindowClass() const override { return WC_TREEVIEWA; }
    void Fill(HWND window, std::mt19937& random) override {
        for (int left = Below(random, 15); left > 0; --left) {
            Insert(window, random);
        }
    }
    void Change(HWND window, std::mt19937& random) override {
        if (!m_items.empty() && random() % 2 == 0) {
            Delete(window, static_cast<std::size_t>(random() % m_items.size()));
        } else {
            Insert(window, random);
        }
    }

protected:
    int Number(const GuiThread& thread, HWND window, std::uint64_t item) const {
        TVITEMA request = {};
        request.mask = TVIF_PARAM;
        request.hItem = reinterpret_cast<HTREEITEM>(static_cast<std::uintptr_t>(item));
        request.lParam = kNothing;
        if (item != 0) {
            thread.Run([&] { SendMessageA(window, TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&request)); });
        }
        return static_cast<int>(request.lParam);
    }

private:
    struct Item {
        HTREEITEM handle;
        HTREEITEM parent;
    };
    void Insert(HWND window, std::mt19937& random) {
        const std::size_t above = static_cast<std::size_t>(random() % (m_items.size() + 1));
        const HTREEITEM parent = above < m_items.size() ? m_items[above].handle : nullptr;
        const std::string text = RandomText(random);
        const HTREEITEM after = random() % 2 == 0 ? TVI_FIRST : TVI_LAST;
        m_items.push_back({InsertTreeItem(window, parent, text, after, m_next++), parent});
    }
    void Delete(HWND window, std::size_t index) {
        SendMessageA(window, TVM_DELETEITEM, 0, reinterpret_cast<LPARAM>(m_items[index].handle));
        Forget(m_items[index].handle);
    }
    void Forget(HTREEITEM gone) {
        std::erase_if(m_items, [&](const Item& item) { return item.handle == gone; });
        for (std::size_t index = 0; index < m_items.size();) {
            if (m_items[index].parent == gone) {
                Forget(m_items[index].handle);
                index = 0;
            } else {
                ++index;
            }
        }
    }

    std::vector<Item> m_items;
    int m_next = 0;
};

class TreesByNames : public Trees {
    int Walk(const GuiThread& thread, const HostWindow& control, std::mt19937& random,
             bool inside) const override {
        std::string path = RandomText(random);
        for (int deeper = Below(random, 4); deeper > 0; --deeper) {
            path += '|';
            path += RandomText(random);
        }
        using Position = controls::TreePathPosition;
        return Number(thread, control.window,
                      Take<Position, controls::StepByNames>(inside, control, path).item);
    }
};

class TreesByNumbers : public Trees {
    int Walk(const GuiThread& thread, const HostWindow& control, std::mt19937& random,
             bool inside) const override {
        std::string path(1, '1');
        for (int deeper = Below(random, 4); deeper > 0; --deeper) {
            path += '.';
            path += std::to_string(Below(random, 4));
        }
        using Position = controls::TreePathPosition;
        return Number(thread, control.window,
                      Take<Position, controls::StepByNumbers>(inside, control, path).item);
    }
};

class TreesByRunningNumber : public Trees {
    int Walk(const GuiThread& thread, const HostWindow& control, std::mt19937& random,
             bool inside) const override {
        using Position = controls::RunningNumberPosition;
        Position position;
        position.left = Below(random, 18);
        return Number(thread, control.window,
                      Take<Position, controls::StepByRunningNumber>(inside, control, {}, position).item);
    }
};

// A list of any kind: messages that insert and delete an item.
template <class List>
class Lists : public Kind {
public:
    Lists(const char* windowClass, DWORD style) : m_class(windowClass), m_style(style) {}
    const char* WindowClass() const override { return m_class; }
    DWORD Style() const override { return m_style; }
    void Fill(HWND window, std::mt19937& random) override {
        for (int left = Below(random, 12); left > 0; --left) {
            Insert(window, 0, RandomText(random));
        }
    }
    void Change(HWND window, std::mt19937& random) override {
        const int count = List(window).ItemsCount();
        const int index = count > 0 ? Below(random, count) : 0;
        if (count > 0 && random() % 2 == 0) {
            SendMessageA(window, DeleteMessage(), static_cast<WPARAM>(index), 0);
        } else {
            Insert(window, index, RandomText(random));
        }
    }
    int Walk(const GuiThread&, const HostWindow& control, std::mt19937& random, bool inside) const override {
        std::string name = RandomText(random);
        if (random() % 2 == 0) {
            name.resize(name.size() / 2);
        }
        return Take<controls::ListPosition, controls::StepToPrefix<List>>(inside, control, name).found;
    }

private:
    static UINT DeleteMessage();
    static void Insert(HWND window, int index, std::string text);

    const char* m_class;
    DWORD m_style;
};

template <>
UINT Lists<ghListView>::DeleteMessage() {
    return LVM_DELETEITEM;
}
template <>
void Lists<ghListView>::Insert(HWND window, int index, std::string text) {
    LVITEMA item = {};
    item.mask = LVIF_TEXT;
    item.iItem = index;
    item.pszText = text.data();
    SendMessageA(window, LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
}
template <>
UINT Lists<ghTabControl>::DeleteMessage() {
    return TCM_DELETEITEM;
}
template <>
void Lists<ghTabControl>::Insert(HWND window, int index, std::string text) {
    TCITEMA item = {};
    item.mask = TCIF_TEXT;
    item.pszText = text.data();
    SendMessageA(window, TCM_INSERTITEMA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
}
template <>
UINT Lists<ghListBox>::DeleteMessage() {
    return LB_DELETESTRING;
}
template <>
void Lists<ghListBox>::Insert(HWND window, int index, std::string text) {
    SendMessageA(window, LB_INSERTSTRING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.c_str()));
}
template <>
UINT Lists<ghComboBox>::DeleteMessage() {
    return CB_DELETESTRING;
}
template <>
void Lists<ghComboBox>::Insert(HWND window, int index, std::string text) {
    SendMessageA(window, CB_INSERTSTRING, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.c_str()));
}

class Bars : public Kind {
public:
    const char* WindowClass() const override { return TOOLBARCLASSNAMEA; }
    DWORD Style() const override { return CCS_NOPARENTALIGN | CCS_NORESIZE; }
    void Fill(HWND window, std::mt19937& random) override {
        SendMessageA(window, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
        SendMessageA(window, TB_ADDSTRINGA, 0, reinterpret_cast<LPARAM>("first\0second\0a third\0"));
        for (int left = Below(random, 12); left > 0; --left) {
            Insert(window, 0, random);
        }
    }
    void Change(HWND window, std::mt19937& random) override {
        const int count = static_cast<int>(SendMessageA(window, TB_BUTTONCOUNT, 0, 0));
        const int index = count > 0 ? Below(random, count) : 0;
        if (count > 0 && random() % 2 == 0) {
            SendMessageA(window, TB_DELETEBUTTON, static_cast<WPARAM>(index), 0);
        } else {
            Insert(window, index, random);
        }
    }
    int Walk(const GuiThread&, const HostWindow& control, std::mt19937& random, bool inside) const override {
        using Position = controlbars::ButtonPosition;
        if (random() % 2 == 0) {
            return Take<Position, controlbars::StepToId>(inside, control, {}, {{}, Below(random, 14)}).found;
        }
        const std::string caption = random() % 4 == 0 ? "second" : RandomText(random);
        return Take<Position, controlbars::StepToCaption>(inside, control, caption).found;
    }

private:
    static void Insert(HWND window, int index, std::mt19937& random) {
        const std::string text = RandomText(random);
        TBBUTTON button = {};
        button.idCommand = Below(random, 12); // 0: its text is that of its string index
        button.fsState = TBSTATE_ENABLED;
        button.fsStyle = static_cast<BYTE>(random() % 5 == 0 ? BTNS_SEP : BTNS_BUTTON);
        button.iString = random() % 2 == 0 ? Below(random, 3) : reinterpret_cast<INT_PTR>(text.c_str());
        SendMessageA(window, TB_INSERTBUTTONA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&button));
    }
};

// An option tree whose answers are those of this table.
struct OptionItem {
    std::string label;
    std::uint64_t child = 0, sibling = 0;
};
std::map<std::uint64_t, OptionItem> options;
constexpr char kOptionClass[] = "WalkTestOptionTree";
constexpr std::uint64_t kOptionRoot = 1;

LRESULT CALLBACK OptionProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != hostlink::MSG_OT_RequestInformation) {
        return DefWindowProcA(window, message, wParam, lParam);
    }
    switch (wParam) {
    case option_tree::kRoot:
        return kOptionRoot;
    case option_tree::kFirstChild:
        return static_cast<LRESULT>(options[static_cast<std::uint64_t>(lParam)].child);
    case option_tree::kNextSibling:
        return static_cast<LRESULT>(options[static_cast<std::uint64_t>(lParam)].sibling);
    case option_tree::kLabel: {
        const auto& request = *reinterpret_cast<const option_tree::TextRequest*>(lParam);
        ghosthand::host_contract::WriteText(request.buffer, options[request.item].label, GetACP(),
                                            [](unsigned char byte) { return IsDBCSLeadByte(byte) != FALSE; });
        return 0;
    }
    default:
        return 0;
    }
}

class OptionTrees : public Kind {
public:
    OptionTrees() {
        WNDCLASSA windowClass{};
        windowClass.lpfnWndProc = OptionProcedure;
        windowClass.lpszClassName = kOptionClass;
        RegisterClassA(&windowClass);
    }
    const char* WindowClass() const override { return kOptionClass; }
    void Fill(HWND window, std::mt19937& random) override {
        options = {{kOptionRoot, {}}};
        for (int left = Below(random, 15); left > 0; --left) {
            Change(window, random);
        }
    }
    // Adds an item, sometimes takes one out, and sometimes has the last one lead back in a circle.
    void Change(HWND, std::mt19937& random) override {
        const std::uint64_t above = 1 + random() % options.size();
        const std::uint64_t item = options.size() + 1;
        options[item] = {RandomText(random), 0, options[above].child};
        options[above].child = item;
        if (random() % 4 == 0) {
            options[item].sibling = options[options[item].sibling].sibling;
        }
        if (random() % 8 == 0 && options[item].sibling != 0) {
            options[options[item].sibling].sibling = item;
        }
    }
    int Walk(const GuiThread&, const HostWindow& control, std::mt19937& random, bool inside) const override {
        std::string path = RandomText(random);
        for (int deeper = Below(random, 3); deeper > 0; --deeper) {
            path += '|';
            path += RandomText(random);
        }
        using Position = ghOptionTree::PathPosition;
        return static_cast<int>(Take<Position, ghOptionTree::StepAlongPath>(inside, control, path).item);
    }
};

struct NamedKind {
    const char* name;
    std::unique_ptr<Kind> (*make)();
};
const NamedKind kKinds[] = {
    {"TreeByNames", [] { return std::unique_ptr<Kind>(new TreesByNames); }},
    {"TreeByNumbers", [] { return std::unique_ptr<Kind>(new TreesByNumbers); }},
    {"TreeByRunningNumber", [] { return std::unique_ptr<Kind>(new TreesByRunningNumber); }},
    {"ListView", [] { return std::unique_ptr<Kind>(new Lists<ghListView>(WC_LISTVIEWA, LVS_REPORT)); }},
    {"Tab", [] { return std::unique_ptr<Kind>(new Lists<ghTabControl>(WC_TABCONTROLA, 0)); }},
    {"ListBox", [] { return std::unique_ptr<Kind>(new Lists<ghListBox>("LISTBOX", 0)); }},
    {"ComboBox", [] { return std::unique_ptr<Kind>(new Lists<ghComboBox>("COMBOBOX", CBS_DROPDOWNLIST)); }},
    {"Bar", [] { return std::unique_ptr<Kind>(new Bars); }},
    {"OptionTree", [] { return std::unique_ptr<Kind>(new OptionTrees); }},
};

class WalkTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        hostlink::SetModuleInstance(GetModuleHandleA(nullptr));
        InitCommonControls();
    }
};

class RandomWalk : public WalkTest, public testing::WithParamInterface<NamedKind> {};
INSTANTIATE_TEST_SUITE_P(Walk, RandomWalk, testing::ValuesIn(kKinds),
                         [](const auto& testCase) { return std::string(testCase.param.name); });

struct Outcome {
    int found = kNothing;
    std::vector<std::tuple<UINT, WPARAM>> seen;

    bool operator==(const Outcome&) const = default;
};

// A control that the seed determines, changes under way included.
Outcome OneWalk(const GuiThread& thread, Kind& kind, unsigned seed, bool inside) {
    std::mt19937 random(seed);
    const Control control(thread, kind.WindowClass(), kind.Style());
    thread.Run([&] {
        kind.Fill(control.Window(), random);
        watch.changesAt = random() % 3 == 0 ? 1 + random() % 12 : 0;
        watch.delay = random() % 64 == 0 ? 3 : 0; // several slices
        watch.change = [&, changes = std::mt19937(seed + 1)]() mutable {
            kind.Change(control.Window(), changes);
        };
        watch.isOn = true;
    });
    Outcome outcome;
    outcome.found = kind.Walk(thread, control.Host(), random, inside);
    thread.Run([&] {
        watch.isOn = false;
        outcome.seen = watch.seen;
    });
    return outcome;
}

// GHOSTHAND_WALKS: how many a kind, for a long run.
TEST_P(RandomWalk, FindsAndSendsTheSameOnBothSides) {
    if (!support::HasCharacterPerByte()) {
        GTEST_SKIP() << support::kNoCharacterPerByte;
    }
    const char* const asked = std::getenv("GHOSTHAND_WALKS");
    const unsigned walks = asked != nullptr ? static_cast<unsigned>(std::atoi(asked)) : 40;
    const GuiThread thread;
    int hits = 0;
    for (unsigned seed = 1; seed <= walks && !HasFailure(); ++seed) {
        const auto here = GetParam().make();
        const auto inside = GetParam().make();
        const Outcome fromHere = OneWalk(thread, *here, seed, false);
        const Outcome fromInside = OneWalk(thread, *inside, seed, true);
        EXPECT_EQ(fromInside, fromHere) << "seed " << seed;
        hits += fromHere.found > 0 ? 1 : 0;
    }
    EXPECT_GT(hits, 0) << "nothing is ever found: nothing was tested";
}

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
