// What the adapters of the host's own controls add to the exchanges that reading cannot do without.

#include "bench.h"

#include "controls/ghGXGrid.h"
#include "ghosthand/host_contract.h"
#include "hostlink/registered_messages.h"
#include "hostlink/remote_send.h"
#include "support/sample_host.h"

#include <stdexcept>

namespace {

namespace grid = ghosthand::host_contract::grid;

constexpr int kCells = 100; // of the grid, each way

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

void Measure(bench::Report& report) {
    const support::SampleHost host("--page large-data");
    MeasureGrid(report, host);
}

const bench::Registration kHostControls("host controls", Measure);

} // namespace
