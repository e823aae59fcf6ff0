// What the adapters of the host's own controls add to the exchanges that reading cannot do without.

#include "bench.h"

#include "controls/ghGXGrid.h"
#include "controls/ghOptionTree.h"
#include "ghosthand/host_contract.h"
#include "hostlink/registered_messages.h"
#include "hostlink/remote_send.h"
#include "support/sample_host.h"

#include <stdexcept>

namespace {

namespace grid = ghosthand::host_contract::grid;
namespace option_tree = ghosthand::host_contract::option_tree;

constexpr int kCells = 100; // of the grid, each way
constexpr int kGroups = 10, kItemsOfGroup = 100;

// Each turn reads the next row.
class RowCounter {
public:
    int Next() { return m_row = m_row % kCells + 1; }

private:
    int m_row = 0;
};

void MeasureGrid(bench::Report& report, const support::SampleHost& host) {
    const ghGXGrid window(host.WaitForWindow("Large data.1130"));
    if (window.CellText(7, 12) != "7,12") {
        throw std::runtime_error("the large grid cannot be read");
    }
    const auto readBare = [&](int row, int column) {
        SendMessageA(window.Window(), hostlink::MSG_GX_RequestGridInformation, grid::kRowCount, 0);
        SendMessageA(window.Window(), hostlink::MSG_GX_RequestGridInformation, grid::kColumnCount, 0);
        grid::CellRequest cell = {row, column, {}};
        std::string text;
        hostlink::RemoteSendWithString(window.Host(), hostlink::MSG_GX_RequestGridInformation,
                                       grid::kGetCellText, hostlink::AsBlock(cell),
                                       offsetof(grid::CellRequest, buffer), text);
    };
    const auto readRow = [](int row, const auto& readCell) {
        for (int column = 1; column <= kCells; ++column) {
            readCell(row, column);
        }
    };
    RowCounter adapterRow, bareRow;
    report.Compare(
        {"row of a 100 x 100 grid, cell by cell",
         [&] { readRow(adapterRow.Next(), [&](int row, int column) { window.CellText(row, column); }); }},
        {"two counts and a remote send a cell", [&] { readRow(bareRow.Next(), readBare); }},
        {.aim = 1.1, .rounds = kCells});
}

// Each turn finds another item; a part of a thousand turns already meets near and far ones alike.
class ItemCounter {
public:
    void Next() { m_number = (m_number + kStride) % (kGroups * kItemsOfGroup); }
    int Group() const { return m_number % kGroups; }
    int Item() const { return m_number / kGroups; }

private:
    static constexpr int kStride = 7;

    int m_number = 0;
};

// The exchanges that one item takes: the root, its child, and on each level a label for every item up to
// the one that is meant, with a step between two of them.
class BareWalk {
public:
    explicit BareWalk(const ghOptionTree& tree) : m_tree(tree) {}

    void Find(int group, int item) const {
        const LRESULT root =
            hostlink::RemoteSend(m_tree.Host(), hostlink::MSG_OT_RequestInformation, option_tree::kRoot);
        LRESULT reached = Walk(Ask(option_tree::kFirstChild, root), group);
        Walk(Ask(option_tree::kFirstChild, reached), item);
    }

private:
    LRESULT Walk(LRESULT from, int steps) const {
        Label(from);
        for (int step = 0; step < steps; ++step) {
            from = Ask(option_tree::kNextSibling, from);
            Label(from);
        }
        return from;
    }
    LRESULT Ask(option_tree::Request request, LRESULT item) const {
        return SendMessageA(m_tree.Window(), hostlink::MSG_OT_RequestInformation, request, item);
    }
    void Label(LRESULT item) const {
        option_tree::TextRequest record = {static_cast<std::uint64_t>(item), {}};
        std::string text;
        hostlink::RemoteSendWithString(m_tree.Host(), hostlink::MSG_OT_RequestInformation,
                                       option_tree::kLabel, hostlink::AsBlock(record),
                                       offsetof(option_tree::TextRequest, buffer), text);
    }

    const ghOptionTree& m_tree;
};

void MeasureOptionTree(bench::Report& report, const support::SampleHost& host) {
    const ghOptionTree tree(host.WaitForWindow("Large data.1131"));
    if (tree.ItemByPath("Group 3|Item 42").Value() != "342") {
        throw std::runtime_error("the large option tree cannot be read");
    }
    const BareWalk bare(tree);
    ItemCounter adapterItem, bareItem;
    report.Compare({"option tree item by path, one of a thousand",
                    [&] {
                        adapterItem.Next();
                        tree.ItemByPath("Group " + std::to_string(adapterItem.Group()) + "|Item " +
                                        std::to_string(adapterItem.Item()));
                    }},
                   {"the labels and steps on the way",
                    [&] {
                        bareItem.Next();
                        bare.Find(bareItem.Group(), bareItem.Item());
                    }},
                   {.aim = 1.1, .rounds = 201});
}

void Measure(bench::Report& report) {
    const support::SampleHost host("--page large-data");
    MeasureGrid(report, host);
    MeasureOptionTree(report, host);
}

const bench::Registration kHostControls("host controls", Measure);

} // namespace
