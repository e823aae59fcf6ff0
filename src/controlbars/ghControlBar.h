// A menu or a toolbar.
#pragma once

#include <memory>
#include <string>

#include "controlbars/ghControlBarItem.h"
#include "engine/ghBaseWindow.h"

class ghControlBar : public ghBaseWindow {
public:
    using ghBaseWindow::ghBaseWindow;

    // The first item with that command id, else, where the id does not decide, whose text begins with the
    // caption; an item that is not valid when nothing matches.
    virtual std::unique_ptr<ghControlBarItem> GetItemByID(const std::string& caption, int id) const = 0;
    // `index` is 0-based; an item that is not valid when it is out of range.
    virtual std::unique_ptr<ghControlBarItem> GetItem(int index) const = 0;
    virtual int ItemsCount() const = 0;
    virtual void CloseMenu() = 0;
};
