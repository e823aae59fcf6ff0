// A list view with rows of texts.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <windows.h>

#include "ghinspect/scale.h"

namespace inspector {

struct Column {
    const wchar_t* title;
    int width; // in pixels at 100 %; the last column takes what remains
};

class Table {
public:
    using Cells = std::vector<std::wstring>;

    void Create(HWND parent, int id, std::vector<Column> columns);
    HWND Window() const noexcept { return m_list; }

    // One text a column. Only what differs is touched: selection and position stay.
    void Set(const std::vector<Cells>& rows);
    std::optional<std::size_t> Selected() const;
    void SizeColumns(Scale scale) const;

private:
    HWND m_list = nullptr;
    std::vector<Column> m_columns;
    std::vector<Cells> m_rows;
};

} // namespace inspector
