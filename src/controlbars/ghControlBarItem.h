// An item of a menu or a button of a toolbar.
#pragma once

#include <windows.h>

#include <memory>

class ghControlBar;

class ghControlBarItem {
public:
    virtual bool IsValid() const = 0;
    virtual bool IsAvailable() const = 0;
    virtual bool Enabled() const = 0;
    // `x` and `y` are pixels inside the item, for the kinds of item that are clicked with the mouse.
    virtual void Click(int button, int x, int y) = 0;
    virtual bool IsCheckable() const = 0;
    virtual bool Checked() const = 0;
    virtual void SetChecked(bool checked) = 0;
    virtual bool HasSubItems() const = 0;
    // The menu or bar that the item opens; null if none opened.
    virtual std::unique_ptr<ghControlBar> Expand() = 0;
    // In seconds; a negative time counts as 0.
    virtual int EnabledTimeout() const = 0;
    virtual void SetEnabledTimeout(int seconds) = 0;
    virtual ~ghControlBarItem() = default;
    // That of the menu or bar that it belongs to.
    virtual HWND Window() const noexcept = 0;
};
