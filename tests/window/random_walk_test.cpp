// What walks over items find and what the control sees is the same in the control's own thread as from here,
// message by message: random controls that change under way.
#include "controlbars/ghToolbar.h"
#include "controls/ghComboBox.h"
#include "controls/ghListBox.h"
#include "controls/ghListView.h"
#include "controls/ghOptionTree.h"
#include "controls/ghTabControl.h"
#include "controls/item_search.h"
#include "controls/tree_search.h"
#include "support/code_page.h"
#include "walked_control.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <memory>
#include <random>
#include <string>
#include <tuple>
#include <vector>

namespace {

namespace option_tree = ghosthand::host_contract::option_tree;
using hostlink::HostWindow;
using support::GuiThread;
using walked::Control;
using walked::kNothing;
using walked::watch;

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

// Of names, at most `most` of them.
std::string RandomPath(std::mt19937& random, int most) {
    std::string path = RandomText(random);
    for (int deeper = Below(random, most); deeper > 0; --deeper) {
        path += '|';
        path += RandomText(random);
    }
    return path;
}

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
        m_items.push_back({walked::InsertTreeItem(window, parent, text, after, m_next++), parent});
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
        const std::string path = RandomPath(random, 4);
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
        const std::string path = RandomPath(random, 3);
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

class RandomWalk : public walked::ControlTest, public testing::WithParamInterface<NamedKind> {};
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

} // namespace
