// A GUI thread of the test's own: its windows are driven as those of a host are, without a second process.
#pragma once

#include <windows.h>

#include <functional>
#include <future>
#include <memory>
#include <thread>
#include <utility>

namespace support {

// Runs a message loop for the lifetime of the object; windows that are left then go with the thread.
class GuiThread {
public:
    GuiThread() {
        std::promise<HWND> started;
        m_thread = std::thread([&] { Loop(started); });
        m_receiver = started.get_future().get();
    }
    ~GuiThread() {
        PostMessageA(m_receiver, kEnd, 0, 0);
        m_thread.join();
    }
    GuiThread(const GuiThread&) = delete;
    GuiThread& operator=(const GuiThread&) = delete;

    DWORD Id() const { return GetWindowThreadProcessId(m_receiver, nullptr); }

    // Runs `work` on the thread, between two messages of its loop or of the menu that it shows, and waits
    // for it.
    void Run(const std::function<void()>& work) const {
        SendMessageA(m_receiver, kRun, 0, reinterpret_cast<LPARAM>(&work));
    }
    // The same for work that comes back only later, as a menu that is to be shown.
    void Start(std::function<void()> work) const {
        PostMessageA(
            m_receiver, kStart, 0,
            reinterpret_cast<LPARAM>(std::make_unique<std::function<void()>>(std::move(work)).release()));
    }

private:
    static constexpr UINT kRun = WM_APP, kStart = WM_APP + 1, kEnd = WM_APP + 2;

    static void Loop(std::promise<HWND>& started) {
        WNDCLASSA windowClass{};
        windowClass.lpfnWndProc = Procedure;
        windowClass.lpszClassName = "TestGuiThread";
        RegisterClassA(&windowClass);
        const HWND receiver =
            CreateWindowExA(0, "TestGuiThread", "", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
        started.set_value(receiver);
        MSG message;
        while (GetMessageA(&message, nullptr, 0, 0) > 0) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        switch (message) {
        case kRun:
            (*reinterpret_cast<const std::function<void()>*>(lParam))();
            return 0;
        case kStart: {
            const std::unique_ptr<std::function<void()>> work(
                reinterpret_cast<std::function<void()>*>(lParam));
            (*work)();
            return 0;
        }
        case kEnd:
            PostQuitMessage(0);
            return 0;
        default:
            return DefWindowProcA(window, message, wParam, lParam);
        }
    }

    std::thread m_thread;
    HWND m_receiver = nullptr;
};

} // namespace support
