// Automation objects of the built module while they drive the sample host: by vtable and by name.
#include <gmock/gmock.h>

#include <windows.h>

#include <oleacc.h>

#include <functional>
#include <string>
#include <thread>

#include "com/driven_host.h"
#include "com/failing_memory.h"
#include "com/late_bound.h"

namespace {

using sample_host::Misbehaviour;
using support::Arguments;
using support::Ask;
using support::Bstr;
using support::CallByName;
using support::ComPointer;
using support::Eventually;
using support::PutByName;
using support::Variant;

class AutomationObject : public support::DrivenHost {
protected:
    static std::wstring TextOf(IBaseWindow& window) {
        BSTR text = nullptr;
        support::Require(window.get_Text(&text), "get_Text");
        Variant owner;
        V_VT(&owner.Value()) = VT_BSTR;
        V_BSTR(&owner.Value()) = text;
        return owner.Text();
    }
};

TEST_F(AutomationObject, AnswersAlikeByVtableAndByName) {
    const auto main = MainWindow();
    const auto edit = Edit();
    VARIANT_BOOL truth = VARIANT_FALSE;
    LONG number = 0;
    int id = 0;

    ASSERT_EQ(main->get_Visible(&truth), S_OK);
    EXPECT_EQ(truth, VARIANT_TRUE);
    EXPECT_TRUE(Ask(*main.Get(), L"Visible").Bool());
    ASSERT_EQ(main->get_Width(&number), S_OK);
    EXPECT_EQ(Ask(*main.Get(), L"Width").Long(), number);
    ASSERT_EQ(main->get_Left(&number), S_OK);
    EXPECT_EQ(Ask(*main.Get(), L"left").Long(), number); // letter case does not matter
    EXPECT_EQ(Ask(*main.Get(), L"Text").Text(), TextOf(*main));
    ASSERT_EQ(edit->get_ControlID(&id), S_OK);
    EXPECT_EQ(id, 1001);
    const Variant lateId = Ask(*edit.Get(), L"ControlID");
    EXPECT_EQ(lateId.Type(), VT_I4);
    EXPECT_EQ(lateId.Long(), 1001);

    PutByName(*main.Get(), L"EnabledTimeout", LONG{-4});
    ASSERT_EQ(main->get_EnabledTimeout(&number), S_OK);
    EXPECT_EQ(number, 0);
    PutByName(*main.Get(), L"Synchronization", LONG{5});
    ASSERT_EQ(main->get_Synchronization(&truth), S_OK);
    EXPECT_EQ(truth, VARIANT_TRUE);

    ComPointer<IBaseWindow> parent;
    ASSERT_EQ(edit->Parent(parent.Receive()), S_OK);
    const Variant lateParent = Ask(*edit.Get(), L"Parent");
    ASSERT_NE(lateParent.Object(), nullptr);
    EXPECT_EQ(Ask(*lateParent.Object(), L"Text").Text(), TextOf(*parent));
}

TEST_F(AutomationObject, TakesDefaultsAndNames) {
    const auto main = MainWindow();
    // The id is left out; 0x40 is "any descendant".
    std::vector<support::Argument> named = Arguments(L"", LONG{0x40}, L"Edit", LONG{5});
    named[1].name = L"a_flags";
    named[2].name = L"a_class_name";
    named[3].name = L"a_timeout";
    Variant edit;
    ASSERT_EQ(CallByName(*main.Get(), L"ChildWindow", std::move(named), edit), S_OK);
    ASSERT_NE(edit.Object(), nullptr);
    EXPECT_EQ(Ask(*edit.Object(), L"ControlID").Long(), 1001);

    const Variant sameEdit = Ask(*main.Get(), L"Edit", LONG{1001}, LONG{0x40});
    ASSERT_NE(sameEdit.Object(), nullptr);
    EXPECT_NE(sameEdit.Object(), edit.Object()); // objects are never shared

    // As a script writes it with nothing between two commas.
    std::vector<support::Argument> leftOut = Arguments(LONG{0}, LONG{0x40}, LONG{5});
    V_VT(&leftOut[0].value.Value()) = VT_ERROR;
    V_ERROR(&leftOut[0].value.Value()) = DISP_E_PARAMNOTFOUND;
    Variant anyEdit;
    ASSERT_EQ(CallByName(*main.Get(), L"Edit", std::move(leftOut), anyEdit), S_OK);
    ASSERT_NE(anyEdit.Object(), nullptr);
    EXPECT_EQ(Ask(*anyEdit.Object(), L"ControlID").Long(), 1001);

    Variant unused;
    std::vector<support::Argument> unknown = Arguments(LONG{1});
    unknown[0].name = L"a_nonsense";
    EXPECT_EQ(CallByName(*main.Get(), L"Edit", std::move(unknown), unused), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(CallByName(*main.Get(), L"Nonsense", {}, unused), DISP_E_UNKNOWNNAME);
    EXPECT_EQ(CallByName(*main.Get(), L"Edit", Arguments(L"no number"), unused), DISP_E_TYPEMISMATCH);
}

TEST_F(AutomationObject, GivesNothingWithoutAnErrorWhenNothingIsFound) {
    const auto main = MainWindow();
    SetErrorInfo(0, nullptr);
    auto* untouched = reinterpret_cast<IBaseWindow*>(1);
    EXPECT_EQ(main->ChildWindow(Bstr(L"no such window"), nullptr, 0, 0, 0, &untouched), S_FALSE);
    EXPECT_EQ(untouched, nullptr);
    const Variant none = Ask(*main.Get(), L"TreeCtrl", LONG{9999}, LONG{0}, LONG{-7});
    EXPECT_EQ(none.Type(), VT_DISPATCH);
    EXPECT_EQ(none.Object(), nullptr);
    EXPECT_EQ(Ask(*main.Get(), L"Parent").Object(), nullptr);
    EXPECT_EQ(Ask(*main.Get(), L"WindowByID", L"", LONG{0}).Object(), nullptr);
    EXPECT_EQ(Ask(*main.Get(), L"WindowByID", std::wstring(300, L'n').c_str(), LONG{0}).Object(), nullptr);
    ComPointer<IErrorInfo> error;
    EXPECT_EQ(GetErrorInfo(0, error.Receive()), S_FALSE);
}

TEST_F(AutomationObject, FindsAWindowThatComesWhileItWaits) {
    const auto main = MainWindow();
    const HWND document = host->WaitForWindow("document 1");
    ASSERT_NE(document, nullptr);
    support::SampleHost::Misbehave(document, Misbehaviour::CreateLater, 500);
    const Variant late = Ask(*main.Get(), L"Edit", LONG{sample_host::kLateEdit}, LONG{0x40}, LONG{60});
    ASSERT_NE(late.Object(), nullptr);
    EXPECT_EQ(Ask(*late.Object(), L"Text").Text(), L"late");
}

TEST_F(AutomationObject, TestsOnlySomeOutPointers) {
    const auto main = MainWindow();
    EXPECT_EQ(main->get_Left(nullptr), E_POINTER);
    EXPECT_EQ(main->get_Top(nullptr), E_POINTER);
    EXPECT_EQ(main->get_ControlID(nullptr), E_POINTER);
    EXPECT_EQ(main->GroupCombo(1, 0, 60, nullptr), E_POINTER);
    EXPECT_EQ(main->ComboBoxByID(nullptr, 60, nullptr), E_POINTER);
    EXPECT_EQ(main->GroupComboByID(nullptr, 60, nullptr), E_POINTER);
    EXPECT_EQ(main->RibCustomisationWidgetByID(nullptr, 60, nullptr), E_POINTER);
    EXPECT_EQ(Create<ITreeControl>(CLSID_TreeControl)->SelectItemByPath(Bstr(L"x"), nullptr), E_FAIL);
    EXPECT_EQ(main->GetTypeInfoCount(nullptr), E_POINTER);
    EXPECT_EQ(main->GetTypeInfo(0, 0, nullptr), E_POINTER);
    auto* information = reinterpret_cast<ITypeInfo*>(1);
    EXPECT_EQ(main->GetTypeInfo(1, 0, &information), DISP_E_BADINDEX);
    EXPECT_EQ(information, nullptr);
}

std::wstring DescriptionOf(IErrorInfo& error) {
    BSTR text = nullptr;
    support::Require(error.GetDescription(&text), "GetDescription");
    const std::wstring description(text, SysStringLen(text));
    SysFreeString(text);
    return description;
}

TEST_F(AutomationObject, TellsItsCallerWhatFailed) {
    const auto main = MainWindow();
    Ask(*main.Get(), L"Command", LONG{sample_host::ids::kPageOpenDrawing});
    ComPointer<IOpenSaveDialog> dialog;
    ASSERT_EQ(main->OpenSaveDialog(60, dialog.Receive()), S_OK);
    ASSERT_EQ(dialog->Close(), S_OK); // takes the field for the name with it
    constexpr wchar_t kNoField[] = L"Expected to find edit control";
    ComPointer<IErrorInfo> error, none;
    // By vtable
    EXPECT_EQ(dialog->File(Bstr(L"a.txt")), E_FAIL);
    ASSERT_EQ(GetErrorInfo(0, error.Receive()), S_OK);
    EXPECT_EQ(DescriptionOf(*error), kNoField);
    // A failure without a text does not leave that of an earlier one.
    SetErrorInfo(0, error.Get());
    EXPECT_EQ(dialog->get_Left(nullptr), E_POINTER);
    EXPECT_EQ(GetErrorInfo(0, none.Receive()), S_FALSE);
    // By identifier, which is where Err.Description comes from
    std::wstring file = L"File";
    LPOLESTR names[] = {file.data()};
    DISPID id = 0;
    ASSERT_EQ(dialog->GetIDsOfNames(IID_NULL, names, 1, 0, &id), S_OK);
    Variant name(L"a.txt");
    DISPPARAMS arguments = {&name.Value(), nullptr, 1, 0};
    EXCEPINFO exception = {};
    EXPECT_EQ(dialog->Invoke(id, IID_NULL, 0, DISPATCH_METHOD, &arguments, nullptr, &exception, nullptr),
              DISP_E_EXCEPTION);
    EXPECT_EQ(exception.scode, E_FAIL);
    EXPECT_STREQ(exception.bstrDescription, kNoField);
    EXPECT_STREQ(exception.bstrSource, L"Ghosthand");
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrSource);
    SysFreeString(exception.bstrHelpFile);
}

TEST_F(AutomationObject, HandsOutTheSystemsAccessibleObject) {
    const auto main = MainWindow();
    const Variant found = Ask(*main.Get(), L"AccessibleObject");
    ASSERT_NE(found.Object(), nullptr);
    ComPointer<IAccessible> accessible;
    ASSERT_EQ(found.Object()->QueryInterface(__uuidof(IAccessible), accessible.ReceiveVoid()), S_OK);
    HWND window = nullptr;
    ASSERT_EQ(WindowFromAccessibleObject(accessible.Get(), &window), S_OK);
    EXPECT_EQ(window, host->Frame());
}

// Whichever allocation of a member fails: it says so, or does without.
TEST_F(AutomationObject, RunsShortOfMemoryInPeace) {
    const auto entry = Create<IGhosthand>(CLSID_Ghosthand);
    const auto main = MainWindow();
    const auto edit = Edit();
    const Bstr longText(std::wstring(200, L'x').c_str()), program(L"sample_host"), className(L"Edit");
    const Bstr windowName(L"document 1.1001");
    const auto window = [](auto call) {
        return [call] {
            ComPointer<IBaseWindow> found;
            return call(found.Receive());
        };
    };
    const struct {
        const char* what;
        std::function<HRESULT()> call;
    } kCalls[] = {
        {"MainWindow",
         window([&](auto found) { return entry->MainWindow(program, nullptr, nullptr, 0, 0, found); })},
        {"ChildWindow",
         window([&](auto found) { return main->ChildWindow(longText, longText, 0, 0x40, 0, found); })},
        {"Edit", window([&](auto found) { return main->Edit(1001, 0x40, 0, found); })},
        {"Parent", window([&](auto found) { return edit->Parent(found); })},
        {"WindowByID", window([&](auto found) { return main->WindowByID(windowName, 0, found); })},
        {"Text put", [&] { return edit->put_Text(longText); }},
        {"Text",
         [&] {
             BSTR text = nullptr;
             const HRESULT result = edit->get_Text(&text);
             SysFreeString(text);
             return result;
         }},
    };
    support::FailingMemory memory(GetModuleHandleW(module->Path().c_str()));
    // The thread's first exception
    const Bstr hugeText(std::wstring(10000, L'x').c_str());
    memory.RunsShortAfter(
        0, [&] { EXPECT_EQ(edit->put_Text(hugeText), E_OUTOFMEMORY); }, 4096);
    for (const auto& [what, call] : kCalls) {
        HRESULT result = E_FAIL;
        bool failed = false;
        int allocations = 0;
        while (memory.RunsShortAfter(allocations, [&] { result = call(); })) {
            EXPECT_THAT(result, testing::AnyOf(E_OUTOFMEMORY, S_OK, S_FALSE)) << what << ' ' << allocations;
            failed = failed || result == E_OUTOFMEMORY;
            ++allocations;
        }
        EXPECT_TRUE(failed) << what;
        EXPECT_HRESULT_SUCCEEDED(result) << what;
    }
}

// A client may create it, but nothing stands behind it.
TEST_F(AutomationObject, MadeByAClientAnswersUnexpectedThroughout) {
    const auto window = Create<IBaseWindow>(CLSID_BaseWindow);
    VARIANT_BOOL truth = VARIANT_TRUE;
    EXPECT_EQ(window->get_Visible(&truth), E_UNEXPECTED);
    EXPECT_EQ(truth, VARIANT_FALSE);
    BSTR text = reinterpret_cast<BSTR>(1);
    EXPECT_EQ(window->get_Text(&text), E_UNEXPECTED);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(window->put_Text(nullptr), E_UNEXPECTED);
    EXPECT_EQ(window->position(1, 1), E_UNEXPECTED);
    EXPECT_EQ(window->Close(), E_UNEXPECTED);
    auto* found = reinterpret_cast<IBaseWindow*>(1);
    EXPECT_EQ(window->ActiveDialog(60, &found), E_UNEXPECTED);
    EXPECT_EQ(found, nullptr);
    auto* accessible = reinterpret_cast<IDispatch*>(1);
    EXPECT_EQ(window->get_AccessibleObject(&accessible), E_UNEXPECTED);
    EXPECT_EQ(accessible, nullptr);
}

TEST_F(AutomationObject, CarriesTextsOfTheCodePage) {
    const auto edit = Edit();
    const auto throughTheHost = [&](BSTR text) {
        EXPECT_EQ(edit->put_Text(text), S_OK);
        return TextOf(*edit);
    };
    EXPECT_EQ(throughTheHost(Bstr(L"plain")), L"plain");
    if (GetACP() == 1252) {
        EXPECT_EQ(throughTheHost(Bstr(L"\u00C4\u00F6\u00FC\u00DF \u20AC")),
                  L"\u00C4\u00F6\u00FC\u00DF \u20AC");
        EXPECT_EQ(throughTheHost(Bstr(L"a\u4E2Db")), L"a?b");
    }
    const BSTR embedded = SysAllocStringLen(L"before\0after", 12);
    EXPECT_EQ(throughTheHost(embedded), L"before");
    SysFreeString(embedded);
    EXPECT_EQ(throughTheHost(Bstr(std::wstring(5000, L'x').c_str())), std::wstring(259, L'x'));
    EXPECT_EQ(throughTheHost(nullptr), L"");
}

TEST_F(AutomationObject, ActsOnTheHost) {
    const auto main = MainWindow();
    const auto edit = Edit();
    EXPECT_TRUE(Ask(*main.Get(), L"Command", LONG{sample_host::ids::kPageAbout}).Bool());
    const Variant dialog = Ask(*main.Get(), L"ActiveDialog", LONG{30});
    ASSERT_NE(dialog.Object(), nullptr);
    Ask(*dialog.Object(), L"Close");
    // Gone windows answer as the system does.
    EXPECT_TRUE(Eventually([&] { return !Ask(*dialog.Object(), L"Visible").Bool(); }));
    EXPECT_EQ(Ask(*dialog.Object(), L"Text").Text(), L"");
    EXPECT_EQ(Ask(*dialog.Object(), L"Width").Long(), 0);
    EXPECT_FALSE(Ask(*dialog.Object(), L"Command", LONG{1}).Bool());
    EXPECT_EQ(Ask(*dialog.Object(), L"Edit", LONG{0}, LONG{0xC0}, LONG{0}).Object(), nullptr);
}

// What a pumping wait lets in: the script's own code, here from a timer.
class DuringAWait {
public:
    explicit DuringAWait(std::function<void()> work) {
        current = std::move(work);
        m_timer = SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR timer, DWORD) {
            KillTimer(nullptr, timer);
            current();
        });
    }
    ~DuringAWait() { KillTimer(nullptr, m_timer); }
    DuringAWait(const DuringAWait&) = delete;
    DuringAWait& operator=(const DuringAWait&) = delete;

private:
    static inline std::function<void()> current;
    UINT_PTR m_timer;
};

TEST_F(AutomationObject, OutlivesItsLastReferenceWhileItWaits) {
    auto main = MainWindow();
    IBaseWindow* const raw = main.Get();
    bool released = false;
    const DuringAWait during([&] {
        main.Reset();
        released = true;
        EXPECT_EQ(module->CanUnloadNow(), S_FALSE); // the waiting call keeps the object
    });
    IBaseWindow* none = nullptr;
    EXPECT_EQ(raw->ChildWindow(Bstr(L"no such window"), nullptr, 0, 0, 2, &none), S_FALSE);
    EXPECT_TRUE(released);
    EXPECT_EQ(module->CanUnloadNow(), S_OK);
}

TEST_F(AutomationObject, LetsCallsReenterWhileItWaits) {
    const auto main = MainWindow();
    std::wstring inner;
    const DuringAWait during([&] {
        Ask(*main.Get(), L"Command", LONG{0}); // synchronises within the wait
        inner = TextOf(*main);
    });
    EXPECT_EQ(Ask(*main.Get(), L"Edit", LONG{9999}, LONG{0}, LONG{1}).Object(), nullptr);
    EXPECT_EQ(inner, TextOf(*main));
}

TEST_F(AutomationObject, TakesAContextThatOthersLeaveActiveAwayWithItsOwn) {
    const auto main = MainWindow();
    ACTCTXW description = {};
    description.cbSize = sizeof description;
    description.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID;
    description.lpSource = module->Path().c_str();
    description.lpResourceName = MAKEINTRESOURCEW(2); // the manifest of a DLL
    const HANDLE context = CreateActCtxW(&description);
    ASSERT_NE(context, INVALID_HANDLE_VALUE);
    HANDLE before = nullptr, after = nullptr;
    ASSERT_TRUE(GetCurrentActCtx(&before));
    bool activated = false;
    {
        const DuringAWait during([&] {
            ULONG_PTR forgotten = 0;
            activated = ActivateActCtx(context, &forgotten);
        });
        EXPECT_EQ(Ask(*main.Get(), L"Edit", LONG{9999}, LONG{0}, LONG{1}).Object(), nullptr);
    }
    EXPECT_TRUE(activated);
    EXPECT_TRUE(GetCurrentActCtx(&after));
    EXPECT_EQ(after, before);
    ReleaseActCtx(after);
    ReleaseActCtx(before);
    ReleaseActCtx(context);
}

// A suite of its own: it ends its host.
class DyingHost : public AutomationObject {};

TEST_F(DyingHost, EndsAWaitWithNothing) {
    const auto main = MainWindow();
    const DuringAWait during([&] {
        const HANDLE process = OpenProcess(PROCESS_TERMINATE, FALSE, host->ProcessId());
        TerminateProcess(process, 1);
        CloseHandle(process);
    });
    EXPECT_EQ(Ask(*main.Get(), L"Edit", LONG{9999}, LONG{0x40}, LONG{2}).Object(), nullptr);
    EXPECT_TRUE(host->HasEnded());
    EXPECT_FALSE(Ask(*main.Get(), L"Visible").Bool());
    EXPECT_FALSE(Ask(*main.Get(), L"PostMessage", LONG{WM_NULL}).Long());
    Ask(*main.Get(), L"Close");
}

} // namespace
