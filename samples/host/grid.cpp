#include "grid.h"

#include "cell_edit.h"
#include "host_ids.h"
#include "host_text.h"

#include <map>
#include <windowsx.h>

namespace sample_host {
namespace {

namespace grid = ghosthand::host_contract::grid;

const UINT kGridRequest = RegisterWindowMessageA(ghosthand::host_contract::message_name::kGrid);

const UINT kItemAtPoint = RegisterWindowMessageA(ghosthand::host_contract::message_name::kItemAtPoint);

constexpr int kRowHeight = 20; // pixels

struct Cell {
    int row = 0, column = 0;
    bool operator==(const Cell&) const = default;
};

struct Grid {
    GridContent* content = nullptr;
    Cell selected;
};

std::map<HWND, Grid> grids;

bool HasCell(const GridContent& content, Cell cell) {
    return cell.row >= 1 && cell.row <= content.Rows() && cell.column >= 1 &&
           cell.column <= content.Columns();
}

bool SetCell(HWND window, Cell cell, const std::string& text) {
    GridContent& content = *grids[window].content;
    if (!HasCell(content, cell) || content.IsReadOnly(cell.row, cell.column) ||
        !content.SetText(cell.row, cell.column, text))
        return false;
    InvalidateRect(window, nullptr, TRUE);
    return true;
}

// Answers a request about one cell. The record lies in memory of this program: lParam can be used as it
// is, but what it says comes from another program and is checked.
LRESULT AnswerAboutCell(HWND window, WPARAM request, LPARAM lParam) {
    if (!lParam)
        return 0;
    auto& record = *reinterpret_cast<grid::CellRequest*>(lParam);
    const GridContent& content = *grids[window].content;
    const Cell cell{record.row, record.column};
    if (!HasCell(content, cell))
        return 0;
    switch (request) {
    case grid::kGetCellText:
        AnswerText(record.buffer, content.Text(cell.row, cell.column));
        return 1;
    case grid::kSetCellText:
        return SetCell(window, cell, ReadText(record.buffer));
    default:
        AnswerText(record.buffer, content.IsReadOnly(cell.row, cell.column) ? "1" : "0");
        return 1;
    }
}

LRESULT Answer(HWND window, WPARAM request, LPARAM lParam) {
    switch (request) {
    case grid::kProbe:
        return ghosthand::host_contract::kProbeAnswer;
    case grid::kColumnCount:
        return grids[window].content->Columns();
    case grid::kRowCount:
        return grids[window].content->Rows();
    case grid::kGetCellText:
    case grid::kSetCellText:
    case grid::kCellReadOnly:
        return AnswerAboutCell(window, request, lParam);
    default:
        return 0; // a request that a later version may know
    }
}

RECT AreaOf(const GridContent& content, Cell cell) {
    RECT area{0, cell.row * kRowHeight, 0, (cell.row + 1) * kRowHeight};
    for (int column = 1; column < cell.column; ++column)
        area.left += content.ColumnWidth(column);
    area.right = area.left + content.ColumnWidth(cell.column);
    return area;
}

Cell CellAt(const GridContent& content, POINT point) {
    for (int column = 1; column <= content.Columns(); ++column)
        if (const Cell cell{point.y / kRowHeight, column}; point.x < AreaOf(content, cell).right)
            return cell;
    return {};
}

// The record lies in memory of this program. A heading is no cell.
LRESULT AnswerItemAtPoint(HWND window, LPARAM lParam) {
    if (!lParam)
        return 0;
    auto& record = *reinterpret_cast<ghosthand::host_contract::ItemAtPoint*>(lParam);
    const GridContent& content = *grids[window].content;
    const Cell cell = CellAt(content, {record.x, record.y});
    if (!HasCell(content, cell))
        return 0;
    const RECT area = AreaOf(content, cell);
    record = {record.x, record.y, 0, cell.row, cell.column, area.left, area.top, area.right, area.bottom};
    return 1;
}

void DrawCell(HDC canvas, const Grid& shown, Cell cell) {
    const RECT area = AreaOf(*shown.content, cell);
    const bool isHeading = cell.row == 0;
    const bool readOnly = isHeading || shown.content->IsReadOnly(cell.row, cell.column);
    FillRect(canvas, &area, GetSysColorBrush(readOnly ? COLOR_3DFACE : COLOR_WINDOW));
    FrameRect(canvas, &area, GetSysColorBrush(COLOR_3DSHADOW));
    RECT inner = area;
    InflateRect(&inner, -4, -1);
    const std::string text = shown.content->Text(cell.row, cell.column);
    DrawTextA(canvas, text.c_str(), -1, &inner, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX | DT_END_ELLIPSIS);
    if (cell == shown.selected)
        DrawFocusRect(canvas, &area);
}

void Paint(HWND window) {
    PAINTSTRUCT painting;
    const HDC canvas = BeginPaint(window, &painting);
    const HGDIOBJ font = SelectObject(canvas, DialogFont());
    SetBkMode(canvas, TRANSPARENT);
    const Grid& shown = grids[window];
    for (int row = 0; row <= shown.content->Rows(); ++row)
        for (int column = 1; column <= shown.content->Columns(); ++column) {
            const RECT area = AreaOf(*shown.content, {row, column});
            if (RectVisible(canvas, &area))
                DrawCell(canvas, shown, {row, column});
        }
    SelectObject(canvas, font);
    EndPaint(window, &painting);
}

void Edit(HWND window, Cell cell) {
    const GridContent& content = *grids[window].content;
    if (HasCell(content, cell) && !content.IsReadOnly(cell.row, cell.column))
        OpenCellEdit(window, AreaOf(content, cell), content.Text(cell.row, cell.column),
                     [=](const std::string& text) { SetCell(window, cell, text); });
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto shown = grids.find(window);
    if (shown == grids.end()) // not filled yet
        return DefWindowProcA(window, message, wParam, lParam);
    if (message == kGridRequest)
        return Answer(window, wParam, lParam);
    if (message == kItemAtPoint)
        return AnswerItemAtPoint(window, lParam);
    const POINT point{GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)};
    switch (message) {
    case WM_PAINT:
        Paint(window);
        return 0;
    case WM_LBUTTONDOWN:
        SetFocus(window);
        shown->second.selected = CellAt(*shown->second.content, point);
        InvalidateRect(window, nullptr, TRUE);
        return 0;
    case WM_LBUTTONDBLCLK:
        Edit(window, CellAt(*shown->second.content, point));
        return 0;
    case WM_CHAR:
        if (wParam == VK_RETURN)
            Edit(window, shown->second.selected);
        return 0;
    case WM_NCDESTROY:
        grids.erase(shown);
        return 0;
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

} // namespace

HWND AddGrid(HWND parent, Area area, int id, GridContent& content) {
    RegisterHostClass(ids::kGridClass, Procedure, COLOR_WINDOW);
    const HWND window = AddControl(parent, {.className = ids::kGridClass,
                                            .style = WS_BORDER | WS_TABSTOP | WS_CLIPCHILDREN,
                                            .area = area,
                                            .id = id});
    grids[window].content = &content;
    return window;
}

} // namespace sample_host
