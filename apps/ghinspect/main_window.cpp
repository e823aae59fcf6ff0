// The window itself: its controls, messages and keys. What it does with them is in main_window_actions.cpp.
#include "ghinspect/main_window.h"

#include <algorithm>
#include <system_error>

#include <windows.h>

#include <commctrl.h>

#include "ghinspect/arrange.h"
#include "ghinspect/control.h"
#include "ghinspect/control_ids.h"
#include "ghinspect/window_messages.h"

namespace inspector {

namespace {

constexpr wchar_t kClass[] = L"GhosthandInspector";
constexpr wchar_t kTitle[] = L"Ghosthand Inspector";
constexpr SIZE kFirstArea = {1120, 760}; // in pixels at 100 %
constexpr wchar_t kKeys[] = L"Ctrl+C copies the call   F3 next match   F5 refresh   F7 frame it   "
                            L"F8 pick in 3 s   Ctrl+Tab other page";

constexpr ACCEL kAccelerators[] = {{FVIRTKEY | FCONTROL, 'C', ids::kCopy},
                                   {FVIRTKEY | FCONTROL, 'F', ids::kGoToFind},
                                   {FVIRTKEY, VK_F3, ids::kFindNext},
                                   {FVIRTKEY | FSHIFT, VK_F3, ids::kFindPrevious},
                                   {FVIRTKEY, VK_F5, ids::kRefresh},
                                   {FVIRTKEY, VK_F7, ids::kShow},
                                   {FVIRTKEY, VK_F8, ids::kPick},
                                   {FVIRTKEY | FCONTROL, VK_TAB, ids::kNextPage},
                                   {FVIRTKEY | FCONTROL, VK_F6, ids::kNextPage}};

// Out-of-context events arrive by the message loop of the thread that has the window.
MainWindow* s_window = nullptr;

bool IsEdit(HWND control) {
    wchar_t name[16] = L"";
    GetClassNameW(control, name, 16);
    return lstrcmpiW(name, WC_EDITW) == 0;
}

bool HasSelectedText(HWND edit) {
    DWORD begin = 0;
    DWORD end = 0;
    SendMessageW(edit, EM_GETSEL, reinterpret_cast<WPARAM>(&begin), reinterpret_cast<LPARAM>(&end));
    return begin != end;
}

} // namespace

MainWindow::MainWindow() : m_settings(LoadSettings()) {
    s_window = this;
}

MainWindow::~MainWindow() {
    s_window = nullptr;
    DestroyAcceleratorTable(m_accelerators);
}

void MainWindow::Open(int showCommand) {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = Procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hIcon = LoadIconW(windowClass.hInstance, MAKEINTRESOURCEW(1));
    windowClass.hbrBackground = GetSysColorBrush(COLOR_BTNFACE);
    windowClass.lpszClassName = kClass;
    RegisterClassW(&windowClass);
    m_accelerators = CreateAcceleratorTableW(const_cast<ACCEL*>(kAccelerators),
                                             static_cast<int>(std::size(kAccelerators)));
    if (CreateWindowExW(WS_EX_CONTROLPARENT, kClass, kTitle, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                        CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, CW_USEDEFAULT, nullptr, nullptr,
                        windowClass.hInstance, this) == nullptr) {
        throw std::system_error(static_cast<int>(GetLastError()), std::system_category(),
                                "The window could not be made");
    }
    const SIZE room = RoomOnScreen();
    SetWindowPos(m_window, nullptr, 0, 0, std::min(m_scale(kFirstArea.cx), static_cast<int>(room.cx)),
                 std::min(m_scale(kFirstArea.cy), static_cast<int>(room.cy)),
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    ShowWindow(m_window, showCommand);
    UpdateWindow(m_window);
    SetFocus(m_tree.Window());
}

SIZE MainWindow::RoomOnScreen() const {
    MONITORINFO monitor{};
    monitor.cbSize = sizeof monitor;
    GetMonitorInfoW(MonitorFromWindow(m_window, MONITOR_DEFAULTTONEAREST), &monitor);
    return {monitor.rcWork.right - monitor.rcWork.left, monitor.rcWork.bottom - monitor.rcWork.top};
}

LRESULT CALLBACK MainWindow::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* const self =
            static_cast<MainWindow*>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
        self->m_window = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    auto* const self = reinterpret_cast<MainWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return self != nullptr ? self->OnMessage(message, wParam, lParam)
                           : DefWindowProcW(window, message, wParam, lParam);
}

LRESULT MainWindow::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        OnCreate();
        return 0;
    case WM_SIZE:
        ArrangeAll();
        return 0;
    case WM_DPICHANGED: {
        const RECT& suggested = *reinterpret_cast<const RECT*>(lParam);
        Rescale(HIWORD(wParam));
        SetWindowPos(m_window, nullptr, suggested.left, suggested.top, suggested.right - suggested.left,
                     suggested.bottom - suggested.top, SWP_NOZORDER | SWP_NOACTIVATE);
        ArrangeAll();
        return 0;
    }
    case WM_GETMINMAXINFO: {
        const SIZE smallest = SmallestArea(m_scale);
        RECT area = {0, 0, smallest.cx, smallest.cy};
        AdjustWindowRectExForDpi(&area, WS_OVERLAPPEDWINDOW, FALSE, 0, static_cast<UINT>(m_scale.dpi));
        const SIZE room = RoomOnScreen();
        reinterpret_cast<MINMAXINFO*>(lParam)->ptMinTrackSize = {std::min(area.right - area.left, room.cx),
                                                                 std::min(area.bottom - area.top, room.cy)};
        return 0;
    }
    case WM_SETTINGCHANGE:
    case WM_SYSCOLORCHANGE:
        Rescale(m_scale.dpi);
        ArrangeAll();
        return 0;
    case WM_ACTIVATE:
        if (LOWORD(wParam) == WA_INACTIVE) {
            m_lastFocus = IsChild(m_window, GetFocus()) ? GetFocus() : m_lastFocus;
        }
        return DefWindowProcW(m_window, message, wParam, lParam);
    case WM_SETFOCUS:
        SetFocus(m_lastFocus != nullptr ? m_lastFocus : m_tree.Window());
        return 0;
    case WM_COMMAND:
        OnCommand(LOWORD(wParam), HIWORD(wParam));
        return 0;
    case WM_NOTIFY:
        return OnNotify(*reinterpret_cast<NMHDR*>(lParam));
    case WM_TIMER:
        OnTimer(wParam);
        return 0;
    case kReplyMessage:
        RunReply(lParam);
        return 0;
    case WM_DESTROY:
        UnhookWinEvent(m_events);
        UnhookWinEvent(m_nameEvents);
        PostQuitMessage(0);
        return 0;
    default:
        return DefWindowProcW(m_window, message, wParam, lParam);
    }
}

// In the order of the Tab key.
void MainWindow::OnCreate() {
    CreateControl(m_window, WC_STATICW, L"&Find", SS_LEFT, ids::kFindLabel);
    const HWND find =
        CreateControl(m_window, WC_EDITW, L"", WS_TABSTOP | ES_AUTOHSCROLL, ids::kFind, WS_EX_CLIENTEDGE);
    SendMessageW(find, EM_SETCUEBANNER, TRUE,
                 reinterpret_cast<LPARAM>(L"Class, caption or id, or a script's call"));
    CreateControl(m_window, WC_BUTTONW, L"&Next (F3)", WS_TABSTOP | BS_PUSHBUTTON, ids::kFindNext);
    CreateControl(m_window, WC_BUTTONW, L"&Hidden too", WS_TABSTOP | BS_AUTOCHECKBOX, ids::kHiddenWindows);
    CreateControl(m_window, WC_BUTTONW, L"&Refresh (F5)", WS_TABSTOP | BS_PUSHBUTTON, ids::kRefresh);
    CheckDlgButton(m_window, ids::kHiddenWindows, m_settings.showHidden ? BST_CHECKED : BST_UNCHECKED);
    CreateControl(m_window, WC_STATICW, L"&Programs", SS_LEFT, ids::kTreeLabel);
    m_tree.Create(m_window, ids::kTree);
    m_crosshair.Create(m_window, ids::kCrosshair,
                       {[this](POINT point) { Pick(point, false); },
                        [this](POINT point) { Pick(point, true); },
                        [this] {
                            m_nextPick.reset();
                            m_frame.Hide();
                        },
                        [this] { PickUnderCursor(); }});
    CreateControl(m_window, WC_STATICW, L"Drag this onto a control or item. By key: F8, then point at it.",
                  SS_LEFT, ids::kPickLabel);
    CreateControl(m_window, WC_BUTTONW, L"Pic&k (F8)", WS_TABSTOP | BS_PUSHBUTTON, ids::kPick);
    CreateControl(m_window, WC_BUTTONW, L"&Show (F7)", WS_TABSTOP | BS_PUSHBUTTON, ids::kShow);
    m_callBox.Create(m_window, m_settings.language);
    const HWND pages =
        CreateControl(m_window, WC_TABCONTROLW, L"", WS_TABSTOP | WS_CLIPSIBLINGS, ids::kPages);
    for (const wchar_t* const title : {L"Facts", L"Members"}) {
        TCITEMW page{};
        page.mask = TCIF_TEXT;
        page.pszText = const_cast<wchar_t*>(title);
        SendMessageW(pages, TCM_INSERTITEMW, static_cast<WPARAM>(TabCtrl_GetItemCount(pages)),
                     reinterpret_cast<LPARAM>(&page));
    }
    m_facts.Create(m_window, ids::kFacts);
    m_members.Create(m_window);
    CreateControl(m_window, STATUSCLASSNAMEW, kKeys, SBARS_SIZEGRIP, ids::kStatus);
    // The tab control lies below what its pages show.
    SetWindowPos(pages, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    m_frame.Create(m_window);

    Rescale(static_cast<int>(GetDpiForWindow(m_window)));
    m_members.ShowMessage(L"Select a window or an item.");
    ShowPage();

    m_watcher = std::make_unique<Worker>(m_window, kReplyMessage);
    m_worker = std::make_unique<Worker>(m_window, kReplyMessage);
    constexpr UINT kFlags = WINEVENT_OUTOFCONTEXT | WINEVENT_SKIPOWNPROCESS;
    m_events = SetWinEventHook(EVENT_OBJECT_CREATE, EVENT_OBJECT_HIDE, nullptr, OnWindowEvent, 0, 0, kFlags);
    m_nameEvents = SetWinEventHook(EVENT_OBJECT_NAMECHANGE, EVENT_OBJECT_NAMECHANGE, nullptr, OnWindowEvent,
                                   0, 0, kFlags);
    SetTimer(m_window, kTickTimer, kTickMilliseconds, nullptr);
    Refresh();
}

void CALLBACK MainWindow::OnWindowEvent(HWINEVENTHOOK, DWORD, HWND, LONG object, LONG child, DWORD, DWORD) {
    if (s_window != nullptr && object == OBJID_WINDOW && child == CHILDID_SELF) {
        s_window->RefreshSoon();
    }
}

void MainWindow::Rescale(int dpi) {
    m_scale.dpi = dpi;
    auto fonts = std::make_unique<Fonts>(m_scale);
    const auto setFont = [](HWND control, LPARAM font) -> BOOL {
        SendMessageW(control, WM_SETFONT, static_cast<WPARAM>(font), TRUE);
        return TRUE;
    };
    EnumChildWindows(m_window, setFont, reinterpret_cast<LPARAM>(fonts->Text()));
    setFont(GetDlgItem(m_window, ids::kName), reinterpret_cast<LPARAM>(fonts->Bold()));
    setFont(GetDlgItem(m_window, ids::kCall), reinterpret_cast<LPARAM>(fonts->Fixed()));
    m_fonts = std::move(fonts); // the controls have let go of the previous ones
}

void MainWindow::ArrangeAll() {
    if (m_fonts == nullptr) {
        return;
    }
    Arrange(m_window, m_scale, *m_fonts);
    m_facts.List().SizeColumns(m_scale);
    m_members.List().SizeColumns(m_scale);
}

bool MainWindow::TranslateKey(MSG& message) {
    if (message.hwnd != m_window && !IsChild(m_window, message.hwnd)) {
        return false;
    }
    const HWND focus = GetFocus();
    if (message.message == WM_KEYDOWN && GetCapture() == nullptr) {
        const bool isControl = GetKeyState(VK_CONTROL) < 0;
        if (message.wParam == 'C' && isControl && IsEdit(focus) && HasSelectedText(focus)) {
            return false; // the edit control copies what is selected in it
        }
        // An edit control of several lines would keep both for itself.
        if (message.wParam == VK_TAB && !isControl && focus == GetDlgItem(m_window, ids::kCall)) {
            SetFocus(GetNextDlgTabItem(m_window, focus, GetKeyState(VK_SHIFT) < 0));
            return true;
        }
        if (message.wParam == VK_ESCAPE && focus == GetDlgItem(m_window, ids::kCall)) {
            OnCommand(IDCANCEL, 0);
            return true;
        }
    }
    return TranslateAcceleratorW(m_window, m_accelerators, &message) || IsDialogMessageW(m_window, &message);
}

void MainWindow::OnReturn() {
    switch (const HWND focus = GetFocus(); GetDlgCtrlID(focus)) {
    case ids::kFind:
        Find(false);
        break;
    case ids::kTree:
        FrameSelected();
        break;
    case ids::kFacts:
        if (const auto link = m_facts.LinkOfSelected()) {
            GoTo(*link, {});
        }
        break;
    case ids::kMembers:
    case ids::kArguments:
        DoMember();
        break;
    default:
        SendMessageW(focus, BM_CLICK, 0, 0);
        break;
    }
}

void MainWindow::OnCommand(int id, int code) {
    switch (id) {
    case IDOK:
        OnReturn();
        break;
    case IDCANCEL:
        m_countdown = 0;
        KillTimer(m_window, kCountdownTimer);
        m_frame.Hide();
        ShowStatus(kKeys);
        break;
    case ids::kFindNext:
        Find(false);
        break;
    case ids::kFindPrevious:
        Find(true);
        break;
    case ids::kGoToFind: {
        const HWND find = GetDlgItem(m_window, ids::kFind);
        SetFocus(find);
        SendMessageW(find, EM_SETSEL, 0, -1);
        break;
    }
    case ids::kHiddenWindows:
        m_settings.showHidden = IsDlgButtonChecked(m_window, id) == BST_CHECKED;
        SaveSettings(m_settings);
        Refresh();
        break;
    case ids::kRefresh:
        Refresh();
        if (m_selection) {
            Select(m_selection->target, m_selection->item);
        }
        break;
    case ids::kPick:
        PickUnderCursor();
        break;
    case ids::kShow:
        FrameSelected();
        break;
    case ids::kLanguage:
        if (code == CBN_SELCHANGE) {
            m_callBox.ReadLanguage();
            m_settings.language = m_callBox.Language();
            SaveSettings(m_settings);
        }
        break;
    case ids::kCopy:
        ShowStatus(m_callBox.Copy() ? L"The call is on the clipboard." : L"There is no call to copy.");
        break;
    case ids::kNextPage: {
        const HWND pages = GetDlgItem(m_window, ids::kPages);
        TabCtrl_SetCurSel(pages, 1 - TabCtrl_GetCurSel(pages));
        ShowPage();
        break;
    }
    case ids::kDo:
        DoMember();
        break;
    default:
        break;
    }
}

LRESULT MainWindow::OnNotify(NMHDR& header) {
    switch (header.idFrom) {
    case ids::kTree:
        if (header.code == TVN_SELCHANGEDW && !m_tree.IsChanging()) {
            if (const auto target = m_tree.Selected()) {
                Select(*target, {});
            }
            return 0;
        }
        return m_tree.OnNotify(header);
    case ids::kPages:
        if (header.code == TCN_SELCHANGE) {
            ShowPage();
        }
        return 0;
    case ids::kFacts:
        if (header.code == NM_DBLCLK) {
            OnReturn();
        }
        return 0;
    case ids::kMembers:
        if (header.code == LVN_ITEMCHANGED) {
            m_members.OnSelection();
        } else if (header.code == NM_DBLCLK) {
            DoMember();
        }
        return 0;
    default:
        return 0;
    }
}

void MainWindow::ShowStatus(const std::wstring& text) {
    SetText(GetDlgItem(m_window, ids::kStatus), text);
}

} // namespace inspector
