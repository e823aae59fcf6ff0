#include "controls/ghGXGrid.h"

#include "controls/host_text_request.h"
#include "ghosthand/host_contract.h"
#include "hostlink/registered_messages.h"
#include "hostlink/remote_send.h"

namespace grid = ghosthand::host_contract::grid;

namespace {

int Count(HWND window, grid::Request request) noexcept {
    return static_cast<int>(SendMessageA(window, hostlink::MSG_GX_RequestGridInformation, request, 0));
}

std::string RequestCellText(const ghGXGrid& window, grid::Request request, int row, int column) {
    grid::CellRequest cell = {row, column, {}};
    return controls::RequestText(window, hostlink::MSG_GX_RequestGridInformation, request,
                                 hostlink::AsBlock(cell), offsetof(grid::CellRequest, buffer));
}

} // namespace

int ghGXGrid::RowsCount() const noexcept {
    return Count(Window(), grid::kRowCount);
}

int ghGXGrid::ColumnsCount() const noexcept {
    return Count(Window(), grid::kColumnCount);
}

std::string ghGXGrid::CellText(int row, int column) const {
    return HasCell(row, column) ? RequestCellText(*this, grid::kGetCellText, row, column) : std::string();
}

bool ghGXGrid::SetCellText(int row, int column, const std::string& text) const {
    if (!controls::FitsTextBuffer(text) || !HasCell(row, column)) {
        return false;
    }
    grid::CellRequest cell = {row, column, {}};
    return controls::SendText(*this, hostlink::MSG_GX_RequestGridInformation, grid::kSetCellText,
                              hostlink::AsBlock(cell), offsetof(grid::CellRequest, buffer), text) == 1;
}

bool ghGXGrid::IsReadOnly(int row, int column) const {
    return HasCell(row, column) && RequestCellText(*this, grid::kCellReadOnly, row, column) == "1";
}

// The counts are asked afresh each time: a grid grows and shrinks between two calls.
bool ghGXGrid::HasCell(int row, int column) const noexcept {
    return row >= 1 && row <= RowsCount() && column >= 1 && column <= ColumnsCount();
}
