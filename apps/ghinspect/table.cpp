#include "ghinspect/table.h"

#include <algorithm>
#include <utility>

#include <windows.h>

#include <commctrl.h>

#include "ghinspect/control.h"

namespace inspector {

void Table::Create(HWND parent, int id, std::vector<Column> columns) {
    m_columns = std::move(columns);
    m_list = CreateControl(parent, WC_LISTVIEWW, L"",
                           WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER, id,
                           WS_EX_CLIENTEDGE);
    ListView_SetExtendedListViewStyle(m_list, LVS_EX_FULLROWSELECT | LVS_EX_DOUBLEBUFFER | LVS_EX_LABELTIP);
    for (const Column& column : m_columns) {
        LVCOLUMNW header{};
        header.mask = LVCF_TEXT | LVCF_WIDTH;
        header.pszText = const_cast<wchar_t*>(column.title);
        header.cx = column.width;
        SendMessageW(m_list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(&column - m_columns.data()),
                     reinterpret_cast<LPARAM>(&header));
    }
}

void Table::Set(const std::vector<Cells>& rows) {
    if (rows == m_rows) {
        return;
    }
    SendMessageW(m_list, WM_SETREDRAW, FALSE, 0);
    for (std::size_t index = m_rows.size(); index > rows.size(); --index) {
        ListView_DeleteItem(m_list, static_cast<int>(index - 1));
    }
    m_rows.resize(std::min(m_rows.size(), rows.size()));
    for (std::size_t index = 0; index < rows.size(); ++index) {
        const bool isNew = index >= m_rows.size();
        for (std::size_t column = 0; column < rows[index].size(); ++column) {
            if (!isNew && m_rows[index][column] == rows[index][column]) {
                continue;
            }
            LVITEMW item{};
            item.mask = LVIF_TEXT;
            item.iItem = static_cast<int>(index);
            item.iSubItem = static_cast<int>(column);
            item.pszText = const_cast<wchar_t*>(rows[index][column].c_str());
            SendMessageW(m_list, isNew && column == 0 ? LVM_INSERTITEMW : LVM_SETITEMW, 0,
                         reinterpret_cast<LPARAM>(&item));
        }
    }
    m_rows = rows;
    SendMessageW(m_list, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(m_list, nullptr, TRUE);
}

std::optional<std::size_t> Table::Selected() const {
    const int index = ListView_GetNextItem(m_list, -1, LVNI_SELECTED);
    return index < 0 ? std::nullopt : std::optional(static_cast<std::size_t>(index));
}

void Table::SizeColumns(Scale scale) const {
    RECT area;
    GetClientRect(m_list, &area);
    int left = area.right - GetSystemMetricsForDpi(SM_CXVSCROLL, static_cast<UINT>(scale.dpi));
    for (std::size_t index = 0; index < m_columns.size(); ++index) {
        const bool isLast = index + 1 == m_columns.size();
        const int width = std::max(scale(m_columns[index].width), isLast ? left : 0);
        ListView_SetColumnWidth(m_list, static_cast<int>(index), width);
        left -= width;
    }
}

} // namespace inspector
