// A grid of text cells that answers the requests of the contract. A click selects a cell, a double click
// or Return edits it. Rows and columns count from 1; row 0 is the heading of the columns.
#pragma once

#include "control.h"

#include <string>

namespace sample_host {

// What a grid shows; lives as long as the grid.
class GridContent {
public:
    virtual int Rows() const = 0;
    virtual int Columns() const = 0;
    virtual int ColumnWidth(int column) const = 0; // in pixels
    virtual std::string Text(int row, int column) const = 0;
    virtual bool IsReadOnly(int row, int column) const = 0;
    // False when the text makes no sense there.
    virtual bool SetText(int row, int column, const std::string& text) = 0;

protected:
    ~GridContent() = default;
};

HWND AddGrid(HWND parent, Area area, int id, GridContent& content);

} // namespace sample_host
