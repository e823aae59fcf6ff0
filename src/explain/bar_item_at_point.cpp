#include <array>
#include <vector>

#include "controlbars/ghMenu.h"
#include "controlbars/ghMenuItem.h"
#include "controlbars/menu_item_info.h"
#include "controlbars/popup_menu.h"
#include "controlbars/toolbar_messages.h"
#include "engine/prefix_match.h"
#include "engine/window_relations.h"
#include "explain/item_finders.h"
#include "explain/utf8.h"
#include "hostlink/host_classes.h"
#include "hostlink/window_kind.h"

namespace explain {

namespace {

using hostlink::HostWindow;

// A text up to the key that menus show behind a tab: what begins so is found.
std::string WithoutKey(const std::string& text) {
    return text.substr(0, text.find('\t'));
}

// Arguments of GetItemByID. An id of 0 is left out.
Step ById(const std::string& caption, int id) {
    Step step = MakeStep("GetItemByID", AnsiToUtf8(caption));
    if (id != 0) {
        step.arguments.emplace_back(std::int64_t{id});
    }
    return step;
}

// The adapter of a tool bar cannot be asked: to make one takes a bar out of its customisation.
class ToolBar {
public:
    explicit ToolBar(const HostWindow& bar) : m_bar(bar) {}

    // The button that is no separator, and its rectangle in client coordinates.
    std::optional<std::pair<int, RECT>> HitButton(POINT client) const {
        const int count = static_cast<int>(SendMessageA(m_bar.window, TB_BUTTONCOUNT, 0, 0));
        for (int index = 0; index < count && !m_patience.IsOver(); ++index) {
            const auto rectangle = controlbars::ReadButtonRectangle(m_bar, index);
            if (rectangle && PtInRect(&*rectangle, client)) {
                const auto button = Button(index);
                return button ? std::optional(std::pair(index, *rectangle)) : std::nullopt;
            }
        }
        return std::nullopt;
    }

    std::string Text(int index) const {
        const auto button = Button(index);
        return button ? controlbars::ReadButtonText(m_bar, *button).value_or("") : std::string();
    }

    Step StepTo(int index) const {
        const int id = Button(index).value_or(controlbars::ButtonRecord{}).command;
        const std::string text = Text(index);
        const std::string caption = CanBeWritten(text) ? text : std::string();
        if (id != 0 && IsFirst(index, [&](const auto& button) { return button.command == id; })) {
            return ById(caption, id);
        }
        const auto beginsSo = [&](const auto& button) {
            const auto other = controlbars::ReadButtonText(m_bar, button);
            return other && engine::StartsWith(*other, caption);
        };
        return !caption.empty() && IsFirst(index, beginsSo) ? ById(caption, 0)
                                                            : MakeStep("GetItem", std::int64_t{index});
    }

private:
    std::optional<controlbars::ButtonRecord> Button(int index) const {
        const auto button = controlbars::ReadButton(m_bar, index);
        return button && (button->style & BTNS_SEP) == 0 ? button : std::nullopt;
    }

    template <class Test>
    bool IsFirst(int index, Test test) const {
        for (int before = 0; before < index; ++before) {
            const auto button = Button(before);
            if (m_patience.IsOver() || (button && test(*button))) {
                return false;
            }
        }
        return true;
    }

    HostWindow m_bar;
    Patience m_patience;
};

// The bar in an open popup is reached as the context menu of the program's outermost window.
HWND OwnerOfPopupBar(HWND bar) {
    if ((hostlink::WindowStyle(GetAncestor(bar, GA_ROOT)) & WS_POPUP) == 0) {
        return nullptr;
    }
    const HWND owner = engine::TopLevelAncestor(bar);
    return controlbars::FindCurrentPopup(ghBaseWindow(owner)) == bar ? owner : nullptr;
}

Step StepToMenuItem(const ghMenu& menu, int position) {
    const auto leadsHere = [&](const std::string& caption, int id) {
        const auto found = menu.GetItemByID(caption, id);
        return static_cast<const ghMenuItem&>(*found).Position() == position;
    };
    const auto item = controlbars::ReadMenuItem(menu.Menu(), position).value_or(controlbars::MenuItemInfo{});
    const std::string text = WithoutKey(item.text);
    const std::string caption = CanBeWritten(text) ? text : std::string();
    // What stands in the place of a submenu's id is not the same the next time.
    const int id = item.submenu == nullptr ? static_cast<int>(item.command) : 0;
    if (id > 0 && leadsHere(caption, id)) {
        return ById(caption, id);
    }
    return !caption.empty() && leadsHere(caption, 0) ? ById(caption, 0)
                                                     : MakeStep("GetItem", std::int64_t{position});
}

// The position of the item at the point, and its rectangle; separators are no items.
std::optional<std::pair<int, RECT>> HitMenuItem(HWND window, HMENU menu, POINT point) {
    const int count = GetMenuItemCount(menu);
    for (int position = 0; position < count; ++position) {
        RECT rectangle = {};
        if (GetMenuItemRect(window, menu, static_cast<UINT>(position), &rectangle) &&
            PtInRect(&rectangle, point)) {
            const auto item = controlbars::ReadMenuItem(menu, position);
            return item && (item->type & MFT_SEPARATOR) == 0 ? std::optional(std::pair(position, rectangle))
                                                             : std::nullopt;
        }
    }
    return std::nullopt;
}

// The positions of the submenus that lead from one menu to another; empty for a menu to itself. No menu is
// believed to be deeper, or to have more items in all.
class SubmenuSearch {
public:
    std::optional<std::vector<int>> Find(HMENU from, HMENU wanted) {
        std::vector<int> positions;
        return Descend(from, wanted, positions) ? std::optional(positions) : std::nullopt;
    }

private:
    bool Descend(HMENU from, HMENU wanted, std::vector<int>& positions) {
        constexpr std::size_t kMostLevels = 16;
        if (from == wanted) {
            return true;
        }
        const int count = positions.size() < kMostLevels ? GetMenuItemCount(from) : 0;
        for (int position = 0; position < count && m_left-- > 0; ++position) {
            if (const HMENU submenu = GetSubMenu(from, position)) {
                positions.push_back(position);
                if (Descend(submenu, wanted, positions)) {
                    return true;
                }
                positions.pop_back();
            }
        }
        return false;
    }

    int m_left = 10000;
};

// Opens each menu on the way.
Call StepsDown(HWND owner, HMENU menu, const std::vector<int>& positions) {
    Call steps;
    for (const int position : positions) {
        steps.push_back(StepToMenuItem(ghMenu(owner, menu), position));
        steps.push_back(MakeStep("Expand"));
        menu = GetSubMenu(menu, position);
    }
    return steps;
}

// The popup menu of the thread that was opened first: the others lie above it.
HMENU FirstPopupOf(DWORD threadId) noexcept {
    HMENU first = nullptr;
    for (HWND popup = nullptr;
         (popup = FindWindowExA(nullptr, popup, hostlink::kMenuClass.data(), nullptr)) != nullptr;) {
        if (GetWindowThreadProcessId(popup, nullptr) == threadId && IsWindowVisible(popup)) {
            first = controlbars::MenuShownBy(popup);
        }
    }
    return first;
}

// The window whose menu it is.
HWND OwnerOfMenu(HWND popup) noexcept {
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    GetGUIThreadInfo(GetWindowThreadProcessId(popup, nullptr), &info);
    const HWND owner = info.hwndMenuOwner;
    // Of a popup menu that no bar has opened, some systems name the menu's own window.
    return hostlink::IsMenuClass(hostlink::WindowClass(owner)) ? GetWindow(owner, GW_OWNER) : owner;
}

struct MenuWay {
    HWND owner = nullptr;
    Call steps; // to the menu
};

// From the menu bar, or as the context menu of the owner's thread.
MenuWay WayToPopup(HWND popup, HMENU menu) {
    const DWORD threadId = GetWindowThreadProcessId(popup, nullptr);
    const HWND owner = OwnerOfMenu(popup);
    if (owner == nullptr) {
        return {};
    }
    const ghMenu bar(owner);
    MenuWay way = {owner, {}};
    HMENU from = nullptr;
    std::optional<std::vector<int>> positions;
    if (bar.IsValid()) {
        positions = SubmenuSearch().Find(from = bar.Menu(), menu);
        way.steps.push_back(MakeStep("MainMenu"));
    }
    if (!positions) {
        way = {engine::TopLevelAncestor(owner), OneStep("CurrentContextMenu")};
        positions = SubmenuSearch().Find(from = FirstPopupOf(threadId), menu);
    }
    if (!positions) {
        return {owner, {}};
    }
    for (Step& step : StepsDown(owner, from, *positions)) {
        way.steps.push_back(std::move(step));
    }
    return way;
}

FoundItem DescribeMenuItem(const MenuWay& way, HMENU menu, std::pair<int, RECT> hit) {
    const auto item = controlbars::ReadMenuItem(menu, hit.first);
    if (!item) {
        return std::nullopt;
    }
    ItemAtPoint found = {"menu item", AnsiToUtf8(item->text), way.steps, hit.second, way.owner};
    if (!found.steps.empty()) {
        found.steps.push_back(StepToMenuItem(ghMenu(way.owner, menu), hit.first));
    }
    return found;
}

} // namespace

FoundItem ToolBarButtonAt(const HostWindow& host, POINT point) {
    const ToolBar bar(host);
    const auto hit = bar.HitButton(ToClient(host.window, point));
    if (!hit) {
        return std::nullopt;
    }
    ItemAtPoint found = {"tool bar button",
                         AnsiToUtf8(bar.Text(hit->first)),
                         {},
                         ToScreen(host.window, hit->second),
                         OwnerOfPopupBar(host.window)};
    if (found.window != nullptr) {
        found.steps.push_back(MakeStep("CurrentContextMenu"));
    }
    found.steps.push_back(bar.StepTo(hit->first));
    return found;
}

FoundItem PopupMenuItemAt(HWND popup, POINT point) {
    const HMENU menu = controlbars::MenuShownBy(popup);
    const auto hit = IsMenu(menu) ? HitMenuItem(popup, menu, point) : std::nullopt;
    return hit ? DescribeMenuItem(WayToPopup(popup, menu), menu, *hit) : std::nullopt;
}

FoundItem MenuBarItemAt(HWND window, POINT point) {
    const ghMenu bar(window);
    const auto hit = bar.IsValid() ? HitMenuItem(window, bar.Menu(), point) : std::nullopt;
    return hit ? DescribeMenuItem({window, OneStep("MainMenu")}, bar.Menu(), *hit) : std::nullopt;
}

} // namespace explain
