// What test programs ask for first, for C++17, early bound. Copy it beside your programs and change it.
//
// Times are in seconds. Ghosthand_idl.h comes from the interface definition; with Visual Studio alone,
//     #import "ghosthand.dll" raw_interfaces_only no_namespace
// makes the same interfaces of the registered server.
#pragma once

#include <windows.h>

// Members of the objects have these names.
#undef SendMessage
#undef PostMessage

#include <oleacc.h>

#include "Ghosthand_idl.h"

#include <cstdio>
#include <initializer_list>
#include <stdexcept>
#include <string>
#include <tuple>
#include <type_traits>
#include <utility>

namespace helpers {

// A text for a member, or from one. Texts of programs are in the system's code page.
class Text {
public:
    Text(const char* text) : Text(std::string(text)) {}
    Text(const std::string& text) {
        const int size = static_cast<int>(text.size());
        const int length = MultiByteToWideChar(CP_ACP, 0, text.data(), size, nullptr, 0);
        m_text = SysAllocStringLen(nullptr, static_cast<UINT>(length));
        MultiByteToWideChar(CP_ACP, 0, text.data(), size, m_text, length);
    }
    ~Text() { SysFreeString(m_text); }
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    operator BSTR() const { return m_text; }

    static std::string Take(BSTR text) {
        const int size = static_cast<int>(SysStringLen(text));
        const int length = WideCharToMultiByte(CP_ACP, 0, text, size, nullptr, 0, nullptr, nullptr);
        std::string result(static_cast<std::size_t>(length), '\0');
        WideCharToMultiByte(CP_ACP, 0, text, size, &result[0], length, nullptr, nullptr);
        SysFreeString(text);
        return result;
    }

private:
    BSTR m_text = nullptr;
};

// A reference to an object, empty where nothing was found.
template <class Interface>
class Object {
public:
    Object() = default;
    explicit Object(Interface* owned) : m_object(owned) {}
    Object(Object&& other) noexcept : m_object(std::exchange(other.m_object, nullptr)) {}
    Object(const Object&) = delete;
    Object& operator=(const Object&) = delete;
    ~Object() {
        if (m_object != nullptr)
            m_object->Release();
    }
    explicit operator bool() const { return m_object != nullptr; }
    Interface* operator->() const {
        if (m_object == nullptr)
            throw std::runtime_error("nothing was found");
        return m_object;
    }
    // The same object by another of its interfaces: items of a CAD tree come as ITreeItem.
    template <class Other>
    Object<Other> As() const {
        Other* other = nullptr;
        (*this)->QueryInterface(__uuidof(Other), reinterpret_cast<void**>(&other));
        return Object<Other>(other);
    }

private:
    Interface* m_object = nullptr;
};

inline void Check(HRESULT result) {
    if (FAILED(result)) {
        char code[16];
        std::snprintf(code, sizeof code, "0x%08lX", static_cast<unsigned long>(result));
        throw std::runtime_error(std::string("a member failed: ") + code);
    }
}

inline bool FromMember(VARIANT_BOOL value) {
    return value != VARIANT_FALSE;
}
inline long FromMember(long value) {
    return value;
}
inline int FromMember(int value) {
    return value;
}
inline std::string FromMember(BSTR text) {
    return Text::Take(text);
}
template <class Interface>
Object<Interface> FromMember(Interface* object) {
    return Object<Interface>(object);
}

// Calls a member and returns its result: Get(window, &IBaseWindow::ActiveDialog, 10) is an
// Object<IBaseWindow>, Get(window, &IBaseWindow::get_Text) a std::string. C++ knows no defaults here: give
// every argument.
template <class Interface, class Owner, class... Parameters, class... Arguments>
auto Get(const Object<Interface>& object, HRESULT (STDMETHODCALLTYPE Owner::*member)(Parameters...),
         Arguments&&... arguments) {
    using Receiver = std::tuple_element_t<sizeof...(Parameters) - 1, std::tuple<Parameters...>>;
    std::remove_pointer_t<Receiver> result{};
    Check((object.operator->()->*member)(arguments..., &result));
    return FromMember(result);
}

// Begins with COM, ends with it. The objects of a program go before.
class Com {
public:
    Com() { Check(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED)); }
    ~Com() { CoUninitialize(); }
    Com(const Com&) = delete;
    Com& operator=(const Com&) = delete;
};

inline Object<IGhosthand> CreateGhosthand() {
    CLSID id;
    IGhosthand* ghosthand = nullptr;
    Check(CLSIDFromProgID(L"Ghosthand.Ghosthand", &id));
    Check(CoCreateInstance(id, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IGhosthand),
                           reinterpret_cast<void**>(&ghosthand)));
    return Object<IGhosthand>(ghosthand);
}

// The main window of a running program; throws if there is none.
inline Object<IBaseWindow> MainWindow(const char* program, long seconds = 60) {
    auto window =
        Get(CreateGhosthand(), &IGhosthand::MainWindow, Text(program), Text(""), Text(""), 0, seconds);
    if (!window)
        throw std::runtime_error(std::string("start this program first: ") + program);
    return window;
}

// Whether the window still exists, shown or not: the client area of a living one is at least one pixel.
template <class Window>
bool IsAlive(const Object<Window>& window) {
    return Get(window, &IBaseWindow::get_Width) > 0;
}

// Waits for a second, or until the window no longer exists: a search ends early then.
template <class Window>
void WaitASecond(const Object<Window>& window) {
    Get(window, &IBaseWindow::ChildWindow, Text("(no such window)"), Text("(no such window)"), 0, 0, 1);
}

// Waits until the window is closed or hidden. False if it is still there.
template <class Window>
bool WaitUntilGone(const Object<Window>& window, unsigned seconds = 10) {
    const ULONGLONG end = GetTickCount64() + seconds * 1000;
    while (Get(window, &IBaseWindow::get_Visible) && GetTickCount64() < end)
        WaitASecond(window);
    WaitASecond(window); // a dialog that is closed is hidden first, and then its owner takes input again
    return !Get(window, &IBaseWindow::get_Visible);
}

// Runs a menu command by its id and returns the dialog that it opens. Command returns when the program is
// idle again, also while the dialog is open: it never blocks.
inline Object<IBaseWindow> OpenDialog(const Object<IBaseWindow>& window, long command, long seconds = 10) {
    Get(window, &IBaseWindow::Command, command);
    auto dialog = Get(window, &IBaseWindow::ActiveDialog, seconds);
    if (!dialog)
        throw std::runtime_error("a command opened no dialog: " + std::to_string(command));
    return dialog;
}

// Types a text into the window, a character at a time, and waits until it has arrived.
inline void TypeText(const Object<IBaseWindow>& window, const std::string& text) {
    Get(window, &IBaseWindow::SetFocus);
    for (const char character : text)
        Get(window, &IBaseWindow::PostMessageFocus, WM_CHAR, static_cast<unsigned char>(character), 0);
    Get(window, &IBaseWindow::PostMessage, WM_NULL, 0, 0); // waits, which PostMessageFocus does not
}

// Presses keys together: PressKeys(window, {VK_CONTROL, 'A'}). Real key strokes, which reach what is in
// front.
inline void PressKeys(const Object<IBaseWindow>& window, std::initializer_list<WORD> keys) {
    Get(window, &IBaseWindow::SetFocus);
    const auto press = [](WORD key, DWORD flags) {
        INPUT input = {};
        input.type = INPUT_KEYBOARD;
        input.ki.wVk = key;
        input.ki.dwFlags = flags;
        SendInput(1, &input, sizeof input);
    };
    for (const WORD key : keys)
        press(key, 0);
    for (auto key = keys.end(); key != keys.begin();)
        press(*--key, KEYEVENTF_KEYUP);
    Sleep(50); // until the system has passed them on
    Get(window, &IBaseWindow::PostMessage, WM_NULL, 0, 0);
}

// The window's handle, for the system's own functions.
template <class Window>
HWND HandleOf(const Object<Window>& window) {
    HWND handle = nullptr;
    const auto accessible = Get(window, &IBaseWindow::get_AccessibleObject).template As<IAccessible>();
    Check(WindowFromAccessibleObject(accessible.operator->(), &handle));
    return handle;
}

// The window's whole text; Text ends after 259 bytes.
template <class Window>
std::string LongText(const Object<Window>& window) {
    const HWND handle = HandleOf(window);
    std::string text(static_cast<std::size_t>(SendMessageA(handle, WM_GETTEXTLENGTH, 0, 0)) + 1, '\0');
    text.resize(static_cast<std::size_t>(
        SendMessageA(handle, WM_GETTEXT, text.size(), reinterpret_cast<LPARAM>(&text[0]))));
    return text;
}

inline void Expect(const char* what, const std::string& got, const std::string& wanted) {
    std::printf("%-15s %s\n", what, got.c_str());
    if (got != wanted)
        throw std::runtime_error(std::string(what) + " is not '" + wanted + "'");
}
inline void Expect(const char* what, long got, long wanted) {
    Expect(what, std::to_string(got), std::to_string(wanted));
}

// Runs a story and says how it went; the exit code of the program.
inline int Run(void (*story)()) {
    try {
        const Com com;
        story();
        std::puts("Done");
        return 0;
    } catch (const std::exception& error) {
        std::printf("FAILED: %s\n", error.what());
        return 1;
    }
}

} // namespace helpers
