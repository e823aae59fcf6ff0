// Controls on another thread of the test's process, and what they see of a walk over their items.
#pragma once

#include "ghosthand/host_contract.h"
#include "hostlink/module_instance.h"
#include "hostlink/registered_messages.h"
#include "hostlink/walk.h"
#include "support/gui_thread.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <tuple>
#include <vector>

#include <commctrl.h>

namespace walked {

constexpr int kNothing = -1;

// What a control sees of a walk, and when it changes under way. Touched on the control's thread alone while a
// walk goes on.
struct Watch {
    std::vector<std::tuple<UINT, WPARAM>> seen;
    std::size_t changesAt = 0; // counted in messages; 0: never
    std::function<void()> change;
    DWORD delay = 0; // milliseconds before each answer
    WNDPROC original = nullptr;
    bool isOn = false;
};
inline Watch watch;

// Not the lengths of texts: for these the system asks by itself, on a text's way to another thread.
inline bool IsOfWalks(UINT message) {
    return message != LB_GETTEXTLEN && message != CB_GETLBTEXTLEN &&
           ((message >= WM_USER && message < 0x8000) || (message >= LB_ADDSTRING && message < LB_MSGMAX) ||
            (message >= CB_GETEDITSEL && message < CB_MSGMAX) ||
            message == hostlink::MSG_OT_RequestInformation);
}

inline LRESULT CALLBACK WatchProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (watch.isOn && IsOfWalks(message)) {
        watch.seen.emplace_back(message, wParam);
        if (watch.delay != 0) {
            Sleep(watch.delay);
        }
        if (watch.seen.size() == watch.changesAt) {
            watch.isOn = false;
            watch.change();
            watch.isOn = true;
        }
    }
    return CallWindowProcW(watch.original, window, message, wParam, lParam);
}

// A window of a GUI thread, filled there.
class Control {
public:
    Control(const support::GuiThread& thread, const char* windowClass, DWORD style = 0) : m_thread(thread) {
        thread.Run([&] {
            m_window = CreateWindowExA(0, windowClass, "", WS_POPUP | style, 0, 0, 100, 100, nullptr, nullptr,
                                       nullptr, nullptr);
            watch = {};
            watch.original = reinterpret_cast<WNDPROC>(
                SetWindowLongPtrW(m_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(WatchProcedure)));
        });
    }
    ~Control() {
        m_thread.Run([&] { DestroyWindow(m_window); });
    }
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    HWND Window() const { return m_window; }
    hostlink::HostWindow Host() const { return {m_window, m_thread.Id()}; }

private:
    const support::GuiThread& m_thread;
    HWND m_window = nullptr;
};

inline HTREEITEM InsertTreeItem(HWND tree, HTREEITEM parent, std::string text, HTREEITEM after = TVI_LAST,
                                LPARAM number = 0) {
    TVINSERTSTRUCTA insert = {};
    insert.hParent = parent;
    insert.hInsertAfter = after;
    insert.item.mask = TVIF_TEXT | TVIF_PARAM;
    insert.item.pszText = text.data();
    insert.item.lParam = number;
    return reinterpret_cast<HTREEITEM>(
        SendMessageA(tree, TVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&insert)));
}

class ControlTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        hostlink::SetModuleInstance(GetModuleHandleA(nullptr));
        InitCommonControls();
    }
};

} // namespace walked
