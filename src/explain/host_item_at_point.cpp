#include <cstddef>
#include <vector>

#include "controls/ghGXGrid.h"
#include "controls/host_text_request.h"
#include "engine/path_tokens.h"
#include "explain/item_finders.h"
#include "explain/utf8.h"
#include "ghosthand/host_contract.h"
#include "hostlink/registered_messages.h"
#include "hostlink/remote_send.h"

namespace explain {

namespace {

namespace contract = ghosthand::host_contract;
namespace option_tree = contract::option_tree;

// Registered when it is first asked: of what maps the module, only the tools ask.
std::optional<contract::ItemAtPoint> Ask(const hostlink::HostWindow& control, POINT point) {
    static const UINT message = RegisterWindowMessageA(contract::message_name::kItemAtPoint);
    const POINT client = ToClient(control.window, point);
    contract::ItemAtPoint record = {};
    record.x = client.x;
    record.y = client.y;
    return hostlink::RemoteSend(control, message, 0, hostlink::AsBlock(record)) == 1 ? std::optional(record)
                                                                                     : std::nullopt;
}

RECT RectangleOf(HWND control, const contract::ItemAtPoint& record) noexcept {
    return ToScreen(control, {record.left, record.top, record.right, record.bottom});
}

// An item of an option tree as a script finds it from its parent.
struct Level {
    std::string label;
    int siblingsBefore = 0;
    bool isFoundByName = false; // no namesake comes before it
};

class OptionTree {
public:
    explicit OptionTree(HWND window) : m_window(window) {}

    std::string Label(std::uint64_t item) const {
        option_tree::TextRequest record = {item, {}};
        return controls::RequestText(m_window, hostlink::MSG_OT_RequestInformation, option_tree::kLabel,
                                     hostlink::AsBlock(record), offsetof(option_tree::TextRequest, buffer));
    }

    // From below the root down to the item; empty where the item is not found again from its parent, or not
    // in time.
    std::vector<Level> LevelsOf(std::uint64_t item) const {
        constexpr std::size_t kMostLevels = 100; // a host that answers nonsense can lead in a circle
        std::vector<Level> levels;
        for (std::uint64_t parent = Related(option_tree::kParent, item); parent != 0;
             parent = Related(option_tree::kParent, item = parent)) {
            const auto level = LevelOf(item, parent);
            if (!level || levels.size() == kMostLevels) {
                return {};
            }
            levels.insert(levels.begin(), *level);
        }
        return levels;
    }

private:
    std::uint64_t Related(std::uint32_t relation, std::uint64_t item) const noexcept {
        return static_cast<std::uint64_t>(SendMessageA(m_window.Window(), hostlink::MSG_OT_RequestInformation,
                                                       relation, static_cast<LPARAM>(item)));
    }

    std::optional<Level> LevelOf(std::uint64_t item, std::uint64_t parent) const {
        Level level = {Label(item), 0, false};
        level.isFoundByName =
            CanBeWritten(level.label) &&
            level.label.find_first_of(engine::kOptionTreePath.separators) == std::string::npos;
        for (std::uint64_t sibling = Related(option_tree::kFirstChild, parent); sibling != item;
             sibling = Related(option_tree::kNextSibling, sibling)) {
            if (sibling == 0 || m_patience.IsOver()) {
                return std::nullopt;
            }
            ++level.siblingsBefore;
            level.isFoundByName =
                level.isFoundByName && !m_patience.IsOverForNames() && Label(sibling) != level.label;
        }
        return level;
    }

    ghBaseWindow m_window;
    Patience m_patience;
};

// By name as far as names lead, from there on child by child.
Call StepsAlong(const std::vector<Level>& levels) {
    constexpr std::size_t kMostSteps = 50;
    Call steps;
    std::string path;
    std::size_t named = 0;
    for (; named < levels.size() && levels[named].isFoundByName; ++named) {
        path.append(path.empty() ? "" : "|").append(levels[named].label);
    }
    steps.push_back(named == 0 ? MakeStep("Root") : MakeStep("GetItemByPath", AnsiToUtf8(path)));
    for (std::size_t level = named; level < levels.size(); ++level) {
        steps.push_back(MakeStep("Child"));
        for (int sibling = 0; sibling < levels[level].siblingsBefore; ++sibling) {
            steps.push_back(MakeStep("Sibling"));
            if (steps.size() > kMostSteps) {
                return {};
            }
        }
    }
    return path.size() <= engine::kOptionTreePath.longest ? steps : Call();
}

} // namespace

FoundItem GridCellAt(const hostlink::HostWindow& host, POINT point) {
    const auto hit = Ask(host, point);
    const ghGXGrid grid(host.window);
    if (!hit || hit->row < 1 || hit->row > grid.RowsCount() || hit->column < 1 ||
        hit->column > grid.ColumnsCount()) {
        return std::nullopt;
    }
    return ItemAtPoint{"grid cell", AnsiToUtf8(grid.CellText(hit->row, hit->column)),
                       OneStep("GetText", std::int64_t{hit->row}, std::int64_t{hit->column}),
                       RectangleOf(host.window, *hit)};
}

FoundItem OptionTreeItemAt(const hostlink::HostWindow& host, POINT point) {
    const auto hit = Ask(host, point);
    if (!hit || hit->item == 0) {
        return std::nullopt;
    }
    const OptionTree tree(host.window);
    const auto levels = tree.LevelsOf(hit->item);
    return ItemAtPoint{"option tree item", AnsiToUtf8(tree.Label(hit->item)),
                       levels.empty() ? Call() : StepsAlong(levels), RectangleOf(host.window, *hit)};
}

} // namespace explain
