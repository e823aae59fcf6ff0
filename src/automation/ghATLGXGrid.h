// The GXGrid class.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"
#include "controls/ghGXGrid.h"

class ghATLGXGrid final : public ghATLBaseWindowImpl<ghATLGXGrid, IGXGrid, ghGXGrid, IBaseWindow> {
public:
    using ghATLBaseWindowImpl::ghATLBaseWindowImpl;

    HRESULT STDMETHODCALLTYPE get_RowsCount(LONG* result) override {
        return Get(result, [](const auto& grid) { return grid.RowsCount(); });
    }
    HRESULT STDMETHODCALLTYPE get_ColumnsCount(LONG* result) override {
        return Get(result, [](const auto& grid) { return grid.ColumnsCount(); });
    }
    HRESULT STDMETHODCALLTYPE GetText(LONG row, LONG column, BSTR* result) override {
        return Get(result, {row, column}, [&](const auto& grid) { return grid.CellText(row, column); });
    }
    // Deliberately silent about a cell out of range and the host's refusal.
    HRESULT STDMETHODCALLTYPE SetText(LONG row, LONG column, BSTR text) override {
        return Run({row, column, text},
                   [&](const auto& grid) { grid.SetCellText(row, column, automation::ToAnsi(text)); });
    }
    HRESULT STDMETHODCALLTYPE get_IsReadOnly(LONG row, LONG column, VARIANT_BOOL* result) override {
        return Get(result, {row, column}, [&](const auto& grid) { return grid.IsReadOnly(row, column); });
    }
};
