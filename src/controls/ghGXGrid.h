// A grid of the host. Rows and columns count from 1. No operation activates the grid, waits or synchronises.
#pragma once

#include <string>

#include "engine/ghBaseWindow.h"

class ghGXGrid : public ghBaseWindow {
public:
    using ghBaseWindow::ghBaseWindow;

    // 0 for a window that is no grid.
    int RowsCount() const noexcept;
    int ColumnsCount() const noexcept;

    // Empty for a cell out of range.
    std::string CellText(int row, int column) const;
    // Whether the host took the text. Nothing is sent for a cell out of range and for a text of 1024 bytes
    // and more.
    bool SetCellText(int row, int column, const std::string& text) const;
    // Whether the cell is read-only or disabled; false for a cell out of range.
    bool IsReadOnly(int row, int column) const;

private:
    bool HasCell(int row, int column) const noexcept;
};
