// Late-bound calls of the members whose default values the build adds to the type library.
#include <gmock/gmock.h>

#include <algorithm>
#include <chrono>
#include <future>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

#include "automation/interfaces.h"
#include "com/built_module.h"
#include "com/com_pointer.h"

namespace {

using support::BuiltModule;
using support::ComPointer;
using testing::ElementsAre;

constexpr UINT kMessage = WM_APP + 7;
constexpr LRESULT kAnswer = 4711;
constexpr wchar_t kClassName[] = L"Ghosthand late-bound calls";

struct Parameters {
    WPARAM first = 0;
    LPARAM second = 0;
    bool operator==(const Parameters&) const = default;
};

std::mutex recordMutex;
std::vector<Parameters> record;

std::vector<Parameters> TakeRecord() {
    const std::lock_guard lock(recordMutex);
    return std::exchange(record, {});
}

WNDPROC listBoxProcedure = nullptr;

bool Record(UINT message, WPARAM first, LPARAM second) {
    if (message != kMessage)
        return false;
    const std::lock_guard lock(recordMutex);
    record.push_back({first, second});
    return true;
}

LRESULT CALLBACK ListBoxProcedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    return Record(message, first, second) ? kAnswer
                                          : CallWindowProcW(listBoxProcedure, window, message, first, second);
}

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM first, LPARAM second) {
    if (message == WM_DESTROY)
        PostQuitMessage(0);
    return Record(message, first, second) ? kAnswer : DefWindowProcW(window, message, first, second);
}

// A window with a list box on a thread of its own, as the window of a driven program would be.
class DrivenWindow {
public:
    DrivenWindow() {
        std::promise<HWND> made;
        std::future<HWND> window = made.get_future();
        m_thread = std::thread(Run, std::move(made));
        m_window = window.get();
    }
    ~DrivenWindow() {
        PostMessageW(m_window, WM_CLOSE, 0, 0);
        m_thread.join();
    }
    DrivenWindow(const DrivenWindow&) = delete;
    DrivenWindow& operator=(const DrivenWindow&) = delete;

private:
    static void Run(std::promise<HWND> made) {
        WNDCLASSW windowClass = {};
        windowClass.lpfnWndProc = WindowProcedure;
        windowClass.hInstance = GetModuleHandleW(nullptr);
        windowClass.lpszClassName = kClassName;
        RegisterClassW(&windowClass);
        const HWND window = CreateWindowW(kClassName, kClassName, WS_OVERLAPPEDWINDOW | WS_VISIBLE, 10, 10,
                                          300, 200, nullptr, nullptr, windowClass.hInstance, nullptr);
        const HWND listBox = CreateWindowW(L"ListBox", L"", WS_CHILD | WS_VISIBLE, 0, 0, 100, 100, window,
                                           nullptr, windowClass.hInstance, nullptr);
        listBoxProcedure = reinterpret_cast<WNDPROC>(
            SetWindowLongPtrW(listBox, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(ListBoxProcedure)));
        made.set_value(window);
        MSG message;
        while (GetMessageW(&message, nullptr, 0, 0) > 0)
            DispatchMessageW(&message);
    }

    std::thread m_thread;
    HWND m_window = nullptr;
};

VARIANT Long(LONG value) {
    VARIANT argument;
    V_VT(&argument) = VT_I4;
    V_I4(&argument) = value;
    return argument;
}

VARIANT Double(double value) {
    VARIANT argument;
    V_VT(&argument) = VT_R8;
    V_R8(&argument) = value;
    return argument;
}

VARIANT Hyper(LONGLONG value) {
    VARIANT argument;
    V_VT(&argument) = VT_I8;
    V_I8(&argument) = value;
    return argument;
}

class LateBoundCalls : public testing::Test {
protected:
    LateBoundCalls() {
        CoInitialize(nullptr);
        TakeRecord();
        ComPointer<IClassFactory> factory;
        support::Require(m_module.GetClassObject(CLSID_Ghosthand, IID_IClassFactory, factory.ReceiveVoid()),
                         "DllGetClassObject");
        ComPointer<IGhosthand> entry;
        support::Require(factory->CreateInstance(nullptr, IID_IGhosthand, entry.ReceiveVoid()),
                         "CreateInstance");
        const BSTR program = SysAllocString(L"type_library_calls_test");
        const BSTR caption = SysAllocString(kClassName);
        EXPECT_EQ(entry->MainWindow(program, caption, nullptr, 0, 10, m_mainWindow.Receive()), S_OK);
        SysFreeString(program);
        SysFreeString(caption);
        if (m_mainWindow) {
            EXPECT_EQ(m_mainWindow->ListBox(0, 0, 10, m_listBox.Receive()), S_OK);
        }
    }
    ~LateBoundCalls() override {
        m_listBox.Reset();
        m_mainWindow.Reset();
        CoUninitialize();
    }

    void SetUp() override { ASSERT_TRUE(m_listBox); }

    // The arguments are in the order of the script. The result is that of the member.
    static LONG Call(IDispatch& object, const wchar_t* member, std::vector<VARIANT> arguments) {
        std::wstring name = member;
        LPOLESTR names[] = {name.data()};
        DISPID id = DISPID_UNKNOWN;
        support::Require(object.GetIDsOfNames(IID_NULL, names, 1, LOCALE_USER_DEFAULT, &id), "GetIDsOfNames");
        std::reverse(arguments.begin(), arguments.end());
        DISPPARAMS parameters = {arguments.data(), nullptr, static_cast<UINT>(arguments.size()), 0};
        VARIANT result;
        VariantInit(&result);
        support::Require(object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters,
                                       &result, nullptr, nullptr),
                         "Invoke");
        EXPECT_EQ(V_VT(&result), VT_I4);
        return V_I4(&result);
    }

    DrivenWindow m_driven;
    BuiltModule m_module{BuiltModule::DefaultPath()};
    ComPointer<IBaseWindow> m_mainWindow;
    ComPointer<IListBox> m_listBox;
};

TEST_F(LateBoundCalls, LeftOutMessageParametersAreZero) {
    for (IDispatch* object :
         {static_cast<IDispatch*>(m_mainWindow.Get()), static_cast<IDispatch*>(m_listBox.Get())}) {
        EXPECT_EQ(Call(*object, L"SendMessage", {Long(kMessage)}), kAnswer);
        EXPECT_EQ(Call(*object, L"SendMessage", {Long(kMessage), Long(-2)}), kAnswer);
        EXPECT_EQ(Call(*object, L"SendMessage", {Long(kMessage), Long(3), Long(-4)}), kAnswer);
        EXPECT_EQ(Call(*object, L"SendMessage", {Long(kMessage), Long(5), Double(1099511627776.0)}), kAnswer);
        EXPECT_EQ(Call(*object, L"SendMessage", {Long(kMessage), Long(6), Hyper(0x123456789ABCDEF0)}),
                  kAnswer);
        EXPECT_THAT(TakeRecord(),
                    ElementsAre(Parameters{0, 0}, Parameters{static_cast<WPARAM>(-2), 0}, Parameters{3, -4},
                                Parameters{5, 1099511627776}, Parameters{6, 0x123456789ABCDEF0}));
    }
}

TEST_F(LateBoundCalls, PostedMessagesToo) {
    for (const wchar_t* member : {L"PostMessage", L"PostMessageFocus"}) {
        EXPECT_NE(Call(*m_listBox, member, {Long(kMessage)}), 0);
        EXPECT_NE(Call(*m_listBox, member, {Long(kMessage), Long(1)}), 0);
        EXPECT_NE(Call(*m_listBox, member, {Long(kMessage), Long(2), Hyper(0x7FFFFFFFFFFFFFFF)}), 0);
        // A posted message may still be under way.
        std::vector<Parameters> arrived;
        const auto giveUp = std::chrono::steady_clock::now() + std::chrono::seconds(20);
        while (arrived.size() < 3 && std::chrono::steady_clock::now() < giveUp) {
            for (const Parameters& parameters : TakeRecord())
                arrived.push_back(parameters);
            Sleep(10);
        }
        EXPECT_THAT(arrived,
                    ElementsAre(Parameters{0, 0}, Parameters{1, 0}, Parameters{2, 0x7FFFFFFFFFFFFFFF}));
    }
}

} // namespace
