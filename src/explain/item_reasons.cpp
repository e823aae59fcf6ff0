// The items of trees, lists and bars that were not found, and what is written on those beside them.
#include <algorithm>
#include <functional>

#include <windows.h>

#include <commctrl.h>

#include "controlbars/menu_item_info.h"
#include "controlbars/popup_menu.h"
#include "controlbars/toolbar_messages.h"
#include "controls/ghComboBox.h"
#include "controls/ghGroupCombo.h"
#include "controls/ghListBox.h"
#include "controls/ghListView.h"
#include "controls/ghOptionTree.h"
#include "controls/ghTabControl.h"
#include "controls/list_view_messages.h"
#include "controls/tree_view_messages.h"
#include "engine/path_tokens.h"
#include "explain/failed_call.h"
#include "explain/utf8.h"
#include "explain/window_facts.h"
#include "hostlink/host_text.h"
#include "hostlink/window_class.h"

namespace explain {

namespace {

constexpr std::size_t kMostMisses = 5;
constexpr char kThereByNow[] = "is there by now";

std::string ToAnsi(const std::string& text) {
    return hostlink::ToAnsi(ToUtf16(text));
}

RECT OnScreen(HWND window, RECT rectangle) noexcept {
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&rectangle), 2);
    return rectangle;
}

// Bounds a walk over items: by time, and by what a program bears that may stop answering at any item.
class Patience {
public:
    Patience(HWND window, ULONGLONG end) noexcept : m_window(window), m_end(end) {}

    bool Lasts() {
        const ULONGLONG now = GetTickCount64();
        if (m_lasts && now - m_asked >= kAskedEvery) {
            m_lasts = now < m_end && Answers(m_window);
            m_asked = now;
        }
        return m_lasts;
    }

private:
    static constexpr ULONGLONG kAskedEvery = 20; // milliseconds

    HWND m_window;
    ULONGLONG m_end;
    ULONGLONG m_asked = 0;
    bool m_lasts = true;
};

Miss ItemMiss(std::string name, std::string reason) {
    Miss miss;
    miss.name = std::move(name);
    miss.reasons.push_back(std::move(reason));
    return miss;
}

using RectangleOf = std::function<RECT(std::size_t index)>; // in client coordinates

// The items whose texts come nearest. Gives the index of the nearest; `texts` must not be empty.
std::size_t AddNearest(Explanation& explanation, const FailedCall& call, const std::string& wanted,
                       const std::vector<std::string>& texts, TextTest test, const RectangleOf& rectangleOf) {
    const auto nearest = NearestTexts(wanted, texts, test, kMostMisses);
    for (const std::size_t index : nearest) {
        const bool passes = Compare(wanted, texts[index], test).difference == TextDifference::None;
        Miss& miss = explanation.misses.emplace_back(
            ItemMiss("item " + Quoted(texts[index]),
                     passes ? kThereByNow : TextReason("text", texts[index], wanted, test)));
        if (rectangleOf) {
            miss.rectangle = OnScreen(call.window, rectangleOf(index));
        }
    }
    return nearest.front();
}

std::string CountReason(HWND window, int count, int first, std::int64_t wanted) {
    if (count < 1) {
        return NameOf(window) + " has no items";
    }
    const std::string last = std::to_string(count - 1 + first);
    return NameOf(window) + " has " + std::to_string(count) + (count == 1 ? " item, " : " items, ") +
           std::to_string(first) + " to " + last + "; " + std::to_string(wanted) +
           (wanted < first || wanted >= count + first ? " is none of them" : " is one of them by now");
}

// Trees

// What both kinds of tree have in common: items with a text, siblings and children.
template <class Item>
struct TreeWalk {
    std::function<Item(const Item* parent)> firstChild; // null for the first item of all
    std::function<Item(const Item&)> next;
    std::function<bool(const Item&)> exists;
    std::function<std::string(const Item&)> text;
    std::function<RECT(const Item&)> rectangle; // in client coordinates
};

template <class Item>
struct Siblings {
    std::vector<Item> items;
    std::vector<std::string> texts;
};

template <class Item>
Siblings<Item> Children(const TreeWalk<Item>& tree, const Item* parent, Patience& patience) {
    Siblings<Item> siblings;
    for (Item item = tree.firstChild(parent); tree.exists(item) && patience.Lasts(); item = tree.next(item)) {
        siblings.items.push_back(item);
        siblings.texts.push_back(AnsiToUtf8(tree.text(item)));
    }
    return siblings;
}

// The place of the first token that leads to no item, and the siblings among which it was looked for.
template <class Item>
struct PathEnd {
    std::size_t place = 0;
    std::string above; // the text of the last item found
    Siblings<Item> siblings;
};

template <class Item>
PathEnd<Item> Follow(const TreeWalk<Item>& tree, const std::vector<std::string>& tokens, Patience& patience) {
    PathEnd<Item> end;
    std::optional<Item> parent;
    for (const std::string& token : tokens) {
        end.siblings = Children(tree, parent ? &*parent : nullptr, patience);
        const auto found = std::ranges::find(end.siblings.texts, token);
        if (found == end.siblings.texts.end()) {
            break;
        }
        parent = end.siblings.items[static_cast<std::size_t>(found - end.siblings.texts.begin())];
        end.above = token;
        ++end.place;
    }
    return end;
}

std::string Joined(const std::vector<std::string>& tokens) {
    std::string path;
    for (const std::string& token : tokens) {
        path.append(path.empty() ? "" : "|").append(token);
    }
    return path;
}

template <class Item>
Explanation ExplainPath(const FailedCall& call, const TreeWalk<Item>& tree, const engine::PathKind& kind,
                        ULONGLONG end) {
    const std::string path = TextAt(call, 0);
    Explanation explanation;
    explanation.wanted = "the item " + Quoted(path) + " of " + NameOf(call.window);
    auto tokens = engine::PathTokens(ToAnsi(path), kind).value_or(std::vector<std::string>());
    std::ranges::transform(tokens, tokens.begin(),
                           [](const std::string& token) { return AnsiToUtf8(token); });
    if (tokens.empty()) {
        explanation.reason = "the path is empty or too long";
        return explanation;
    }
    Patience patience(call.window, end);
    const PathEnd<Item> last = Follow(tree, tokens, patience);
    if (last.place == tokens.size()) {
        explanation.reason = "the item is there by now";
        return explanation;
    }
    const std::string& token = tokens[last.place];
    const std::string above = last.place == 0 ? "the tree" : Quoted(last.above);
    if (last.siblings.items.empty()) {
        explanation.reason = above + " has no items below it" +
                             (last.place == 0 ? "" : ", so " + Quoted(token) + " is none of them");
        return explanation;
    }
    explanation.reason = "no item " + Quoted(token) + " stands directly below " + above;
    if (const auto separator = token.find_first_of("/\\"); separator != std::string::npos) {
        if (std::ranges::find(last.siblings.texts, token.substr(0, separator)) != last.siblings.texts.end()) {
            explanation.reason += "; names are parted by |";
            std::ranges::replace_if(
                tokens[last.place], [](char c) { return c == '/' || c == '\\'; }, '|');
            explanation.line = LineWith(call, 0, Joined(tokens));
            return explanation;
        }
    }
    const std::size_t nearest =
        AddNearest(explanation, call, token, last.siblings.texts, TextTest::Equal, [&](std::size_t index) {
            return tree.rectangle ? tree.rectangle(last.siblings.items[index]) : RECT{};
        });
    tokens[last.place] = last.siblings.texts[nearest];
    // The rest of the path must lead on from there.
    if (Follow(tree, tokens, patience).place == tokens.size()) {
        explanation.line = LineWith(call, 0, Joined(tokens));
    }
    return explanation;
}

TreeWalk<HTREEITEM> TreeViewWalk(HWND window) {
    const hostlink::HostWindow tree = {window, GetWindowThreadProcessId(window, nullptr)};
    return {[window](const HTREEITEM* parent) {
                return parent == nullptr ? controls::RelatedItem(window, TVGN_ROOT)
                                         : controls::RelatedItem(window, TVGN_CHILD, *parent);
            },
            [window](HTREEITEM item) { return controls::RelatedItem(window, TVGN_NEXT, item); },
            [](HTREEITEM item) { return item != nullptr; },
            [tree](HTREEITEM item) { return controls::ItemText(tree, item); },
            [tree](HTREEITEM item) { return controls::ItemTextRectangle(tree, item).value_or(RECT{}); }};
}

TreeWalk<ghOptionTree> OptionTreeWalk(HWND window) {
    return {[window](const ghOptionTree* parent) {
                return (parent == nullptr ? ghOptionTree(window).RootItem() : *parent).ChildItem();
            },
            [](const ghOptionTree& item) { return item.SiblingItem(); },
            [](const ghOptionTree& item) { return item.IsValidItem(); },
            [](const ghOptionTree& item) { return item.Label(); },
            {}};
}

Explanation ExplainTreeNumbers(const FailedCall& call, ULONGLONG end) {
    Explanation explanation;
    const std::string path = TextAt(call, 0);
    explanation.wanted = "the item " + Quoted(path) + ", by numbers, of " + NameOf(call.window);
    const auto tokens = engine::PathTokens(ToAnsi(path), engine::kTreeNumberPath);
    if (path.empty() || !tokens) {
        explanation.reason = "the path is empty or too long";
        return explanation;
    }
    Patience patience(call.window, end);
    const TreeWalk<HTREEITEM> tree = TreeViewWalk(call.window);
    HTREEITEM parent = nullptr;
    for (const std::string& token : *tokens) {
        const int number = std::max(engine::PathNumber(token), 1);
        int count = 0;
        HTREEITEM item = tree.firstChild(parent == nullptr ? nullptr : &parent);
        HTREEITEM last = nullptr;
        for (; item != nullptr && patience.Lasts(); item = tree.next(item)) {
            last = item;
            if (++count == number) {
                break;
            }
        }
        if (count != number) {
            const std::string above = parent == nullptr ? "the tree" : Quoted(AnsiToUtf8(tree.text(parent)));
            explanation.reason = above + " has only " + std::to_string(count) +
                                 " items directly below it, not " + std::to_string(number);
            return explanation;
        }
        parent = last;
    }
    explanation.reason = "the item is there by now";
    return explanation;
}

Explanation ExplainTree(const FailedCall& call, ULONGLONG end) {
    if (call.member == "ItemByPath" || call.member == "SelectItemByPath") {
        return ExplainPath(call, TreeViewWalk(call.window), engine::kTreeNamePath, end);
    }
    if (call.member == "ItemByNumPath" || call.member == "SelectItem") {
        return ExplainTreeNumbers(call, end);
    }
    Explanation explanation;
    if (call.member == "SelectedItem") {
        explanation.reason = "no item of " + NameOf(call.window) + " is selected";
    } else { // ItemByNum, SelectItemByNum
        const int count = static_cast<int>(SendMessageA(call.window, TVM_GETCOUNT, 0, 0));
        explanation.wanted = "item number " + std::to_string(NumberAt(call, 0));
        explanation.reason = CountReason(call.window, count, 1, NumberAt(call, 0));
    }
    return explanation;
}

Explanation ExplainOptionTree(const FailedCall& call, ULONGLONG end) {
    return ExplainPath(call, OptionTreeWalk(call.window), engine::kOptionTreePath, end);
}

// Lists

template <class List>
Explanation ExplainList(const FailedCall& call, ULONGLONG end, const List& list,
                        const RectangleOf& rectangleOf = {}) {
    Explanation explanation;
    const int count = list.ItemsCount();
    if (!call.member.ends_with("ByName")) {
        explanation.wanted = "item " + std::to_string(NumberAt(call, 0)) + " of " + NameOf(call.window);
        explanation.reason = CountReason(call.window, count, 0, NumberAt(call, 0));
        return explanation;
    }
    const std::string wanted = TextAt(call, 0);
    explanation.wanted = "an item of " + NameOf(call.window) + " whose text begins with " + Quoted(wanted);
    std::vector<std::string> texts;
    Patience patience(call.window, end);
    for (int index = 0; index < count && patience.Lasts(); ++index) {
        texts.push_back(AnsiToUtf8(list.GetItem(index)));
    }
    if (texts.empty()) {
        explanation.reason = NameOf(call.window) + " has no items";
        return explanation;
    }
    const std::size_t nearest =
        AddNearest(explanation, call, wanted, texts, TextTest::BeginsWith, rectangleOf);
    if (!texts[nearest].empty()) {
        explanation.line = LineWith(call, 0, texts[nearest]);
    }
    return explanation;
}

Explanation ExplainListBox(const FailedCall& call, ULONGLONG end) {
    return ExplainList(call, end, ghListBox(call.window), [&](std::size_t index) {
        RECT rectangle = {};
        SendMessageA(call.window, LB_GETITEMRECT, index, reinterpret_cast<LPARAM>(&rectangle));
        return rectangle;
    });
}

Explanation ExplainListView(const FailedCall& call, ULONGLONG end) {
    const ghListView list(call.window);
    const LRESULT style = SendMessageA(call.window, LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0);
    if (call.member.find("heckItem") != std::string::npos && (style & LVS_EX_CHECKBOXES) == 0) {
        Explanation explanation;
        explanation.reason = NameOf(call.window) + " has no check boxes";
        return explanation;
    }
    return ExplainList(call, end, list, [&](std::size_t index) {
        return controls::ListItemLabel(list.Host(), static_cast<int>(index));
    });
}

Explanation ExplainComboBox(const FailedCall& call, ULONGLONG end) {
    return ExplainList(call, end, ghComboBox(call.window));
}

Explanation ExplainTabControl(const FailedCall& call, ULONGLONG end) {
    return ExplainList(call, end, ghTabControl(call.window));
}

Explanation ExplainGroupCombo(const FailedCall& call, ULONGLONG end) {
    Explanation explanation;
    const ghGroupCombo combo(call.window);
    const int count = combo.ItemsCount();
    if (call.member != "SelectItemByName") {
        const auto index = static_cast<int>(NumberAt(call, 0));
        const bool exists = index >= 0 && index < count;
        explanation.wanted = "item " + std::to_string(index) + " of " + NameOf(call.window);
        explanation.reason = exists ? "item " + std::to_string(index) + " is a heading"
                                    : CountReason(call.window, count, 0, index);
        return explanation;
    }
    const std::string heading = TextAt(call, 0);
    const std::string item = TextAt(call, 1);
    explanation.wanted =
        "the item " + Quoted(item) + " below the heading " + Quoted(heading) + " of " + NameOf(call.window);
    struct Entry {
        std::string text;
        std::string heading;
    };
    std::vector<Entry> entries;
    NearestList nearest(kMostMisses, 2000);
    Patience patience(call.window, end);
    for (int index = 0; index < count && patience.Lasts(); ++index) {
        Entry entry{AnsiToUtf8(combo.ItemText(index)), AnsiToUtf8(combo.HeadingOfItem(index))};
        if (entry.text != entry.heading) { // a heading is no item
            nearest.Add(Compare(item, entry.text, TextTest::Equal).distance +
                            Compare(heading, entry.heading, TextTest::Equal).distance,
                        entries.size());
            entries.push_back(std::move(entry));
        }
    }
    for (const std::size_t index : nearest.Nearest()) {
        const Entry& entry = entries[index];
        Miss& miss = explanation.misses.emplace_back();
        miss.name = "item " + Quoted(entry.text) + " below " + Quoted(entry.heading);
        if (entry.text != item) {
            miss.reasons.push_back(TextReason("text", entry.text, item, TextTest::Equal));
        }
        if (entry.heading != heading) {
            miss.reasons.push_back(TextReason("heading", entry.heading, heading, TextTest::Equal));
        }
    }
    if (!entries.empty()) {
        const Entry& entry = entries[nearest.Nearest().front()];
        explanation.line = LineOf(call, {Step{call.member, {entry.heading, entry.text}}});
    }
    return explanation;
}

// Bars

struct BarItem {
    std::string text;
    std::int64_t command = 0;
    bool isEnabled = true;
    bool isSeparator = false;
    RECT rectangle = {}; // on the screen
};

std::optional<BarItem> ReadToolbarItem(const hostlink::HostWindow& toolbar, int index) {
    const auto button = controlbars::ReadButton(toolbar, index);
    if (!button) {
        return std::nullopt;
    }
    BarItem item;
    item.isSeparator = (button->style & BTNS_SEP) != 0;
    item.command = button->command;
    // As for ghToolbarButton: on the host's own bars the bit means disabled.
    item.isEnabled = ((button->state & TBSTATE_ENABLED) != 0) != controlbars::IsHostBar(toolbar.window);
    if (!item.isSeparator) {
        item.text = AnsiToUtf8(controlbars::ReadButtonText(toolbar, *button).value_or(""));
    }
    return item;
}

std::optional<BarItem> ReadMenuBarItem(HMENU menu, int index) {
    const auto info = controlbars::ReadMenuItem(menu, index);
    if (!info) {
        return std::nullopt;
    }
    BarItem item;
    item.text = AnsiToUtf8(info->text);
    item.command = info->submenu != nullptr ? 0 : info->command;
    item.isEnabled = (info->state & (MFS_GRAYED | MFS_DISABLED)) == 0;
    item.isSeparator = (info->type & MFT_SEPARATOR) != 0;
    return item;
}

// The toolbar, or the menu that the window shows: a popup that is open goes before the menu bar.
class Bar {
public:
    explicit Bar(HWND window) : m_window{window, GetWindowThreadProcessId(window, nullptr)} {
        const hostlink::WindowClass name(window);
        m_isToolbar = controlbars::IsHostBar(window) || name.Name() == TOOLBARCLASSNAMEA;
        if (!m_isToolbar) {
            const HWND popup = controlbars::FindPopupMenu(m_window.threadId);
            m_menu = popup != nullptr ? controlbars::MenuShownBy(popup) : GetMenu(window);
        }
    }

    int Count() const {
        return m_isToolbar ? static_cast<int>(SendMessageA(m_window.window, TB_BUTTONCOUNT, 0, 0))
                           : GetMenuItemCount(m_menu);
    }
    std::optional<BarItem> Read(int index) const {
        return m_isToolbar ? ReadToolbarItem(m_window, index) : ReadMenuBarItem(m_menu, index);
    }
    RECT RectangleOf(int index) const {
        if (m_isToolbar) {
            const auto rectangle = controlbars::ReadButtonRectangle(m_window, index);
            return rectangle ? OnScreen(m_window.window, *rectangle) : RECT{};
        }
        RECT rectangle = {};
        GetMenuItemRect(m_window.window, m_menu, static_cast<UINT>(index), &rectangle);
        return rectangle;
    }

private:
    hostlink::HostWindow m_window;
    bool m_isToolbar = false;
    HMENU m_menu = nullptr;
};

std::string NameOf(const BarItem& item) {
    std::string name = "item";
    if (!item.text.empty()) {
        name.append(" ").append(Quoted(item.text));
    }
    return item.command != 0 ? name + " id " + std::to_string(item.command) : name;
}

// The nearer of the two ways to name an item; 0 for one that passes.
int DistanceOf(const BarItem& item, const std::string& caption, std::int64_t id) {
    int distance = 1000;
    if (!caption.empty()) {
        distance = Compare(caption, item.text, TextTest::BeginsWith).distance;
    }
    if (id != 0) {
        const int difference =
            Compare(std::to_string(id), std::to_string(item.command), TextTest::Equal).distance;
        distance = std::min(distance, difference);
    }
    return distance;
}

Explanation ExplainBarItem(const FailedCall& call, ULONGLONG end) {
    const Bar bar(call.window);
    const std::string caption = TextAt(call, 0);
    const std::int64_t id = NumberAt(call, 1);
    Explanation explanation;
    explanation.wanted = "an item of " + explain::NameOf(call.window) +
                         (caption.empty() ? "" : " whose text begins with " + Quoted(caption)) +
                         (id == 0 ? "" : " with id " + std::to_string(id));
    const int count = bar.Count();
    std::vector<std::pair<int, BarItem>> items;
    NearestList nearest(kMostMisses, 999);
    Patience patience(call.window, end);
    for (int index = 0; index < count && patience.Lasts(); ++index) {
        auto item = bar.Read(index);
        if (item && !item->isSeparator) {
            nearest.Add(DistanceOf(*item, caption, id), items.size());
            items.emplace_back(index, *std::move(item));
        }
    }
    if (items.empty()) {
        explanation.reason = count < 0 ? "the menu is gone or cannot be read from here" : "it has no items";
    }
    for (const std::size_t place : nearest.Nearest()) {
        const auto& [index, item] = items[place];
        Miss& miss = explanation.misses.emplace_back();
        miss.name = NameOf(item);
        if (id != 0 && item.command != id) {
            miss.reasons.push_back("id " + std::to_string(item.command) + " is not " + std::to_string(id));
        }
        if (!caption.empty() &&
            Compare(caption, item.text, TextTest::BeginsWith).difference != TextDifference::None) {
            miss.reasons.push_back(TextReason("text", item.text, caption, TextTest::BeginsWith));
        }
        if (miss.reasons.empty()) {
            miss.reasons.emplace_back(kThereByNow);
        }
        miss.rectangle = bar.RectangleOf(index);
        const std::int64_t command = item.command > 0 ? item.command : 0;
        if (!item.text.empty() || command != 0) {
            Step step{call.member, {item.text}};
            if (item.text.empty()) {
                step.arguments.emplace_back(command);
            }
            miss.line = LineOf(call, {step});
        }
    }
    if (!explanation.misses.empty()) {
        explanation.line = explanation.misses.front().line;
    }
    return explanation;
}

// The item that the object of a call stands for, by the step that reached it; -1 if that cannot be told.
int IndexOf(const Bar& bar, const Call& reached, Patience& patience) {
    if (reached.empty() || reached.back().arguments.empty()) {
        return -1;
    }
    FailedCall step;
    step.arguments = reached.back().arguments;
    if (reached.back().member == "GetItem") {
        return static_cast<int>(NumberAt(step, 0));
    }
    const std::string caption = TextAt(step, 0);
    const std::int64_t id = NumberAt(step, 1);
    const int count = bar.Count();
    for (int index = 0; index < count && patience.Lasts(); ++index) {
        const auto item = bar.Read(index);
        if (item && !item->isSeparator && DistanceOf(*item, caption, id) == 0) {
            return index;
        }
    }
    return -1;
}

Explanation ExplainBarItemAction(const FailedCall& call, ULONGLONG end) {
    const Bar bar(call.window);
    Patience patience(call.window, end);
    Explanation explanation;
    const int index = IndexOf(bar, call.reached, patience);
    const auto item = index < 0 ? std::nullopt : bar.Read(index);
    if (!item) {
        explanation.reason = "the item is disabled or gone";
        return explanation;
    }
    explanation.wanted = NameOf(*item) + " of " + explain::NameOf(call.window);
    Miss miss = ItemMiss(NameOf(*item), item->isEnabled ? "opened nothing" : "is disabled");
    miss.rectangle = bar.RectangleOf(index);
    miss.hint = item->isEnabled ? "" : "a greater EnabledTimeout waits longer for it";
    explanation.reason =
        miss.name + (item->isEnabled ? " is enabled, but opened nothing" : " stayed disabled");
    explanation.misses.push_back(std::move(miss));
    return explanation;
}

Explanation ExplainBar(const FailedCall& call, ULONGLONG end) {
    if (call.member == "GetItemByID") {
        return ExplainBarItem(call, end);
    }
    Explanation explanation; // GetItem
    explanation.wanted = "item " + std::to_string(NumberAt(call, 0)) + " of " + explain::NameOf(call.window);
    explanation.reason = CountReason(call.window, Bar(call.window).Count(), 0, NumberAt(call, 0));
    return explanation;
}

struct Kind {
    std::string_view name;
    std::initializer_list<std::string_view> members;
    Explanation (*explain)(const FailedCall&, ULONGLONG end);
};

const Kind kKinds[] = {
    {"TreeControl",
     {"ItemByPath", "ItemByNumPath", "ItemByNum", "SelectItem", "SelectItemByPath", "SelectItemByNum",
      "SelectedItem"},
     ExplainTree},
    {"OptionTree", {"GetItemByPath"}, ExplainOptionTree},
    {"ListBox", {"SelectItem", "SelectItemByName", "UnselectItem", "UnselectItemByName"}, ExplainListBox},
    {"ListView",
     {"SelectItem", "SelectItemByName", "UnselectItem", "UnselectItemByName", "AddToSelection",
      "AddToSelectionByName", "CheckItem", "CheckItemByName", "UncheckItem", "UncheckItemByName"},
     ExplainListView},
    {"ComboBox", {"SelectItem", "SelectItemByName"}, ExplainComboBox},
    {"GroupCombo", {"SelectItem", "SelectItemByName"}, ExplainGroupCombo},
    {"TabControl", {"SelectItem", "SelectItemByName"}, ExplainTabControl},
    {"ControlBar", {"GetItem", "GetItemByID"}, ExplainBar},
    {"ControlBarItem", {"Click", "Checked", "Expand"}, ExplainBarItemAction}};

} // namespace

std::optional<Explanation> ExplainItem(const FailedCall& call, ULONGLONG end) {
    // A CAD tree has the members of a tree.
    const std::string_view name = call.kind == "CADTree" ? "TreeControl" : std::string_view(call.kind);
    const auto kind = std::ranges::find(kKinds, name, &Kind::name);
    if (kind == std::end(kKinds) || std::ranges::find(kind->members, call.member) == kind->members.end()) {
        return std::nullopt;
    }
    return kind->explain(call, end);
}

} // namespace explain
