// Calls whose arguments do not belong to their member: every member of every class refuses them with a
// documented code, whoever calls, and the object lives on.
#include <gmock/gmock.h>

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <string>
#include <thread>

#include "com/call_by_id.h"
#include "com/driven_host.h"
#include "com/late_bound.h"
#include "com/registration_sandbox.h"

namespace {

using support::Ask;
using support::Bstr;
using support::CallById;
using support::CallOutcome;
using support::ComPointer;
using support::FaultWatch;
using support::Invoke;
using support::Member;
using support::Variant;
using testing::AnyOf;
using testing::Matcher;

VARIANT Value(VARTYPE type, LONGLONG bits = 0) {
    VARIANT value;
    VariantInit(&value);
    V_VT(&value) = type;
    V_I8(&value) = bits;
    return value;
}

VARIANT Number(LONG number) {
    return Value(VT_I4, number);
}

VARIANT LeftOut() {
    return Value(VT_ERROR, DISP_E_PARAMNOTFOUND);
}

const Matcher<HRESULT> kNotEnough =
    AnyOf(DISP_E_BADPARAMCOUNT, DISP_E_PARAMNOTOPTIONAL, DISP_E_PARAMNOTFOUND);
const Matcher<HRESULT> kNotConverted =
    AnyOf(DISP_E_TYPEMISMATCH, DISP_E_BADVARTYPE, DISP_E_OVERFLOW, DISP_E_PARAMNOTOPTIONAL,
          DISP_E_MEMBERNOTFOUND, DISP_E_BADPARAMCOUNT, DISP_E_PARAMNOTFOUND, E_INVALIDARG);
// An object without an engine object can do nothing more: the arguments have arrived.
const Matcher<HRESULT> kHasRun = testing::Eq(DISP_E_EXCEPTION);

class InvokeArguments : public support::DrivenHost {
protected:
    static void SetUpTestSuite() {
        DrivenHost::SetUpTestSuite();
        host = std::make_unique<support::SampleHost>("--page cad --page options");
        host->WaitForWindow("Options.1110");
    }

    // A call that is right in everything but what a test makes of it.
    static CallById RightCall(const Member& member) {
        CallById call;
        call.what = "right";
        call.flags = static_cast<WORD>(member.kind);
        for (const VARTYPE type : member.parameters) {
            call.values.push_back(type == VT_BSTR ? Text() : Number(0));
        }
        if (member.IsPut()) {
            call.names = {DISPID_PROPERTYPUT};
        }
        return call;
    }

    static VARIANT Text() {
        static const Bstr text(L"not a number");
        VARIANT value = Value(VT_BSTR);
        V_BSTR(&value) = text;
        return value;
    }

    static VARIANT Array() {
        static SAFEARRAY* const numbers = SafeArrayCreateVector(VT_I4, 0, 3);
        VARIANT value = Value(VT_ARRAY | VT_I4);
        V_ARRAY(&value) = numbers;
        return value;
    }

    static CallById With(const Member& member, std::size_t place, VARIANT value, std::string what) {
        CallById call = RightCall(member);
        call.what = std::move(what) + " as argument " + std::to_string(place);
        call.values[place] = value;
        return call;
    }

    static void Expect(IDispatch& object, const Member& member, const CallById& call,
                       const Matcher<HRESULT>& expected) {
        const CallOutcome outcome = Invoke(object, member, call);
        EXPECT_THAT(outcome.result, expected)
            << member.name << ": " << call.what << std::hex << " result 0x" << outcome.result;
        if (outcome.result == DISP_E_EXCEPTION) {
            EXPECT_EQ(outcome.code, E_UNEXPECTED) << member.name << ": " << call.what;
        } else if (FAILED(outcome.result)) {
            EXPECT_EQ(outcome.resultType, VT_EMPTY) << member.name << ": " << call.what;
        }
    }

    // What never gets as far as the member, so that it may be tried on windows of a host, too.
    static void ExpectRefusals(IDispatch& object, const std::vector<Member>& members) {
        for (const Member& member : members) {
            const std::size_t count = member.parameters.size();
            CallById call = RightCall(member);
            call.what = "one more";
            call.values.insert(call.values.begin(), Number(0));
            Expect(object, member, call, DISP_E_BADPARAMCOUNT);
            call.what = "very many";
            call.values.insert(call.values.begin(), 100, Number(0));
            Expect(object, member, call, DISP_E_BADPARAMCOUNT);

            if (member.required != 0) {
                call = RightCall(member);
                call.what = "too few";
                call.values.resize(member.required - 1);
                call.names.clear();
                Expect(object, member, call, kNotEnough);
            }
            for (const DISPID unknown : {static_cast<DISPID>(count), DISPID{4711}, DISPID{-1}, DISPID{-2}}) {
                call = RightCall(member);
                call.what = "by the name " + std::to_string(unknown);
                call.names = {unknown};
                Expect(object, member, call, count == 0 ? E_INVALIDARG : DISP_E_PARAMNOTFOUND);
            }
            if (count >= 2) {
                call = RightCall(member);
                call.what = "twice by name";
                call.names = {0, 0};
                Expect(object, member, call, DISP_E_PARAMNOTFOUND);
                call.what = "by position and by name";
                call.names = {0};
                EXPECT_EQ(Invoke(object, member, call).badArgument, 0u);
                Expect(object, member, call, DISP_E_PARAMNOTFOUND);
            }
            for (std::size_t place = 0; place < count; ++place) {
                Expect(object, member, With(member, place, Array(), "an array"), kNotConverted);
            }
            call = RightCall(member);
            call.what = "reserved identifier";
            call.reserved = IID_IDispatch;
            Expect(object, member, call, DISP_E_UNKNOWNINTERFACE);
            ExpectWrongWays(object, member, members);
        }
        const Member property = *std::ranges::find(members, INVOKE_PROPERTYGET, &Member::kind);
        for (const DISPID id :
             {DISPID{DISPID_VALUE}, DISPID{DISPID_UNKNOWN}, DISPID{DISPID_NEWENUM}, DISPID{0x5FFFFFFF},
              DISPID{0x60000000}, DISPID{0x60010000}, DISPID{0x600200FF}}) {
            Member unknown = property;
            unknown.id = id;
            Expect(object, unknown, RightCall(property), DISP_E_MEMBERNOTFOUND);
        }
    }

    // A property's put is no method, and so on.
    static void ExpectWrongWays(IDispatch& object, const Member& member, const std::vector<Member>& members) {
        int possible = 0;
        for (const Member& same : members) {
            possible |= same.id == member.id ? same.kind : 0;
        }
        for (const auto flags :
             std::initializer_list<WORD>{0, DISPATCH_METHOD, DISPATCH_PROPERTYGET, DISPATCH_PROPERTYPUT,
                                         DISPATCH_PROPERTYPUTREF, 0x4000}) {
            if ((possible & flags) == 0) {
                CallById call = RightCall(member);
                call.what = "with the flags " + std::to_string(flags);
                call.flags = flags;
                Expect(object, member, call, DISP_E_MEMBERNOTFOUND);
            }
        }
    }

    // Null pointers go to the object itself: no proxy would pass them on.
    static void ExpectNullPointersRefused(IDispatch& object, const std::vector<Member>& members) {
        for (const Member& member : members) {
            for (std::size_t place = 0; place < member.parameters.size(); ++place) {
                for (const VARTYPE type : {VT_I4, VT_BSTR, VT_BOOL, VT_DISPATCH, VT_VARIANT}) {
                    Expect(object, member,
                           With(member, place, Value(VT_BYREF | type), "a reference to nothing"),
                           E_INVALIDARG);
                }
            }
            VARIANT value = Number(0);
            DISPID name = 0;
            DISPPARAMS noArguments = {nullptr, &name, 1, 0};
            DISPPARAMS noNames = {&value, nullptr, 1, 1};
            DISPPARAMS moreNamesThanArguments = {&value, &name, 0, 1};
            for (DISPPARAMS* parameters :
                 {static_cast<DISPPARAMS*>(nullptr), &noArguments, &noNames, &moreNamesThanArguments}) {
                FaultWatch::Begin(member.name + ": null pointers");
                EXPECT_EQ(object.Invoke(member.id, IID_NULL, 0, static_cast<WORD>(member.kind), parameters,
                                        nullptr, nullptr, nullptr),
                          E_INVALIDARG)
                    << member.name;
                FaultWatch::End();
            }
        }
    }

    static void ExpectNamesLookedAt(IDispatch& object, const std::string& member) {
        std::wstring name(member.begin(), member.end());
        std::wstring unknown = L"a_nonsense";
        DISPID ids[2] = {};
        LPOLESTR names[] = {name.data(), unknown.data()};
        LPOLESTR missing[] = {name.data(), nullptr};
        FaultWatch::Begin("GetIDsOfNames");
        EXPECT_EQ(object.GetIDsOfNames(IID_NULL, nullptr, 1, 0, ids), E_INVALIDARG);
        EXPECT_EQ(object.GetIDsOfNames(IID_NULL, names, 1, 0, nullptr), E_INVALIDARG);
        EXPECT_EQ(object.GetIDsOfNames(IID_NULL, names, 0, 0, ids), E_INVALIDARG);
        EXPECT_EQ(object.GetIDsOfNames(IID_NULL, missing, 2, 0, ids), E_INVALIDARG);
        EXPECT_EQ(object.GetIDsOfNames(IID_IDispatch, names, 1, 0, ids), DISP_E_UNKNOWNINTERFACE);
        EXPECT_EQ(object.GetIDsOfNames(IID_NULL, names, 2, 0, ids), DISP_E_UNKNOWNNAME);
        EXPECT_EQ(object.GetIDsOfNames(IID_NULL, names, 1, 0, ids), S_OK);
        FaultWatch::End();
    }

    // What an object without an engine object takes, and what it takes or refuses as the system converts.
    static void ExpectConversions(IDispatch& object, const std::vector<Member>& members) {
        LONG number = 0;
        VARIANT inner = Number(0);
        const struct {
            const char* what;
            VARIANT value;
        } kValues[] = {
            {"Nothing", Value(VT_DISPATCH)},
            {"an object", Value(VT_DISPATCH, reinterpret_cast<LONGLONG>(&object))},
            {"no object", Value(VT_UNKNOWN)},
            {"an error", Value(VT_ERROR, E_FAIL)},
            {"Null", Value(VT_NULL)},
            {"Empty", Value(VT_EMPTY)},
            {"true", Value(VT_BOOL, VARIANT_TRUE)},
            {"64 bits", Value(VT_I8, 0x7000000000000000)},
            {"an unsigned byte", Value(VT_UI1, 255)},
            {"a huge number", Value(VT_R8, 0x7FE0000000000000)},
            {"a date", Value(VT_DATE)},
            {"a currency", Value(VT_CY)},
            {"no text", Value(VT_BSTR)},
            {"a type of its own", Value(VT_USERDEFINED)},
            {"an unknown type", Value(0x0FFF)},
            {"a number by reference", Value(VT_BYREF | VT_I4, reinterpret_cast<LONGLONG>(&number))},
            {"a value by reference", Value(VT_BYREF | VT_VARIANT, reinterpret_cast<LONGLONG>(&inner))}};
        for (const Member& member : members) {
            for (std::size_t place = 0; place < member.parameters.size(); ++place) {
                for (const auto& [what, value] : kValues) {
                    Expect(object, member, With(member, place, value, what), AnyOf(kHasRun, kNotConverted));
                }
                Expect(object, member, With(member, place, kValues[15].value, kValues[15].what), kHasRun);
                Expect(object, member, With(member, place, kValues[16].value, kValues[16].what), kHasRun);
                const bool isText = member.parameters[place] == VT_BSTR;
                Expect(object, member, With(member, place, Text(), "a text"),
                       isText ? kHasRun : testing::Eq(DISP_E_TYPEMISMATCH));
            }
        }
    }

    static void ExpectRightCallsRun(IDispatch& object, const std::vector<Member>& members) {
        for (const Member& member : members) {
            const std::size_t count = member.parameters.size();
            CallById call = RightCall(member);
            Expect(object, member, call, kHasRun);
            if (member.kind != INVOKE_PROPERTYPUT) {
                call.what = "as scripts ask";
                call.flags = DISPATCH_METHOD | DISPATCH_PROPERTYGET;
                Expect(object, member, call, kHasRun);
                call.what = "all by name, backwards";
                std::ranges::reverse(call.values);
                for (std::size_t place = count; place-- != 0;) {
                    call.names.push_back(static_cast<DISPID>(place));
                }
                Expect(object, member, call, kHasRun);
            }
            if (count > member.required) {
                call = RightCall(member);
                call.what = "what is required";
                call.values.resize(member.required);
                Expect(object, member, call, kHasRun);
                call.what = "what is required and the last one by name";
                call.values.push_back(RightCall(member).values.back());
                call.names = {static_cast<DISPID>(count - 1)};
                Expect(object, member, call, kHasRun);
            }
            for (std::size_t place = 0; place < count; ++place) {
                Expect(object, member, With(member, place, LeftOut(), "left out"),
                       place < member.required ? kNotConverted : kHasRun);
            }
            call = RightCall(member);
            std::ranges::reverse(call.values);
            DISPPARAMS parameters = {call.values.data(), call.names.data(),
                                     static_cast<UINT>(call.values.size()),
                                     static_cast<UINT>(call.names.size())};
            FaultWatch::Begin(member.name + ": nothing wanted back");
            EXPECT_EQ(
                object.Invoke(member.id, IID_NULL, 0, call.flags, &parameters, nullptr, nullptr, nullptr),
                DISP_E_EXCEPTION);
            FaultWatch::End();
        }
    }

    static ULONG References(IUnknown& object) {
        object.AddRef();
        return object.Release();
    }

    // One object of each class, as a client makes it.
    static void ForEachClass(const std::function<void(const std::string& name, IDispatch& object)>& visit) {
        ComPointer<ITypeLib> library;
        support::Require(LoadTypeLibEx(module->Path().c_str(), REGKIND_NONE, library.Receive()),
                         "LoadTypeLibEx");
        int classes = 0;
        for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) {
            TYPEKIND kind = TKIND_ALIAS;
            support::Require(library->GetTypeInfoType(index, &kind), "GetTypeInfoType");
            if (kind != TKIND_COCLASS) {
                continue;
            }
            ComPointer<ITypeInfo> type;
            support::Require(library->GetTypeInfo(index, type.Receive()), "GetTypeInfo");
            TYPEATTR* attributes = nullptr;
            support::Require(type->GetTypeAttr(&attributes), "GetTypeAttr");
            const CLSID classId = attributes->guid;
            type->ReleaseTypeAttr(attributes);
            BSTR name = nullptr;
            library->GetDocumentation(static_cast<INT>(index), &name, nullptr, nullptr, nullptr);
            const std::string text = support::TakeText(name);
            SCOPED_TRACE(text);
            const auto object = Create<IDispatch>(classId);
            visit(text, *object);
            EXPECT_EQ(References(*object), 1u);
            ++classes;
        }
        EXPECT_EQ(classes, 21);
    }

    const FaultWatch m_watch;
    // Whatever the system catches counts, too.
    ~InvokeArguments() override { EXPECT_EQ(FaultWatch::Count(), 0u); }
};

TEST_F(InvokeArguments, OfObjectsWithoutAWindowAreRefusedOrArrive) {
    ForEachClass([](const std::string& name, IDispatch& object) {
        const auto members = support::MembersOf(object);
        ExpectNamesLookedAt(object, members.front().name);
        ExpectRefusals(object, members);
        ExpectNullPointersRefused(object, members);
        if (name != "Ghosthand") { // which can do what it is told
            ExpectConversions(object, members);
            ExpectRightCallsRun(object, members);
        }
    });
}

TEST_F(InvokeArguments, OfObjectsOfAHostAreRefusedBeforeAnythingIsDone) {
    const auto main = MainWindow();
    std::vector<Variant> objects;
    for (const wchar_t* search :
         {L"WindowByID", L"CADViewByID", L"CheckBoxByID", L"TabCtrlByID", L"CADTreeByID", L"GXGridByID",
          L"ListBoxByID", L"ListViewByID", L"OptionTreeByID", L"TrackBarByID", L"ComboBoxByID",
          L"GroupComboByID", L"RibCustomisationWidgetByID"}) {
        objects.push_back(Ask(*main.Get(), search, L"CAD.1101", LONG{10})); // any window serves
    }
    objects.push_back(Ask(*main.Get(), L"Toolbar", L"", LONG{1080}, LONG{0x40}));
    objects.push_back(Ask(*objects.back().Object(), L"GetItem", LONG{0}));
    const Variant tree = Ask(*main.Get(), L"CADTreeByID", L"CAD.1100", LONG{10});
    objects.push_back(Ask(*tree.Object(), L"ItemByPath", L"Gearbox"));
    const Variant options = Ask(*main.Get(), L"OptionTreeByID", L"Options.1110", LONG{10});
    objects.push_back(Ask(*options.Object(), L"Root"));
    host->ClearLog();
    for (const Variant& object : objects) {
        ASSERT_NE(object.Object(), nullptr);
        const auto members = support::MembersOf(*object.Object());
        SCOPED_TRACE(members.front().name + " and so on, " + std::to_string(members.size()) + " members");
        ExpectRefusals(*object.Object(), members);
        ExpectNullPointersRefused(*object.Object(), members);
        EXPECT_EQ(References(*object.Object()), 1u);
    }
    EXPECT_THAT(host->Log().Records(WM_COMMAND, host->Frame()), testing::IsEmpty());
    EXPECT_EQ(Ask(*objects[0].Object(), L"ControlID").Long(), 1101);
}

// Runs a function in an apartment of its own, which has the object by a proxy, while this one serves it.
// Returns what the system says to a proxy for that interface.
HRESULT InAnotherApartment(IUnknown& object, REFIID iid, const std::function<void(IUnknown& proxy)>& work) {
    IStream* stream = nullptr;
    if (const HRESULT marshalled = CoMarshalInterThreadInterfaceInStream(iid, &object, &stream);
        FAILED(marshalled)) {
        return marshalled;
    }
    HRESULT unmarshalled = E_FAIL;
    HANDLE done = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    std::thread other([&] {
        CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
        {
            ComPointer<IUnknown> proxy;
            unmarshalled = CoGetInterfaceAndReleaseStream(stream, iid, proxy.ReceiveVoid());
            if (SUCCEEDED(unmarshalled)) {
                work(*proxy);
            }
        }
        CoUninitialize();
        SetEvent(done);
    });
    DWORD index = 0;
    CoWaitForMultipleHandles(0, INFINITE, 1, &done, &index);
    other.join();
    CloseHandle(done);
    return unmarshalled;
}

TEST_F(InvokeArguments, FromAnotherApartmentAreRefusedOrArrive) {
    ForEachClass([](const std::string& name, IDispatch& object) {
        const HRESULT marshalled = InAnotherApartment(object, IID_IDispatch, [&](IUnknown& proxy) {
            auto& dispatch = static_cast<IDispatch&>(proxy);
            const auto members = support::MembersOf(dispatch);
            ExpectRefusals(dispatch, members);
            if (name != "Ghosthand") {
                ExpectRightCallsRun(dispatch, members);
            }
        });
        EXPECT_EQ(marshalled, S_OK);
    });
}

// The system makes the proxies of dual interfaces from the registered type library.
TEST_F(InvokeArguments, OfADualInterfaceArriveFromAnotherApartment) {
    support::RegistrationSandbox sandbox;
    ASSERT_EQ(module->RegisterServer(), S_OK);
    // Wine looks for it under the neutral language only.
    sandbox.SetText(L"TypeLib\\{ADF61CBC-BE37-4075-A6D5-3983AAF171ED}\\1.0\\0\\win32", L"", module->Path());
    constexpr CLSID kTypeLibraryMarshaller = {
        0x00020424, 0x0000, 0x0000, {0xC0, 0x00, 0x00, 0x00, 0x00, 0x00, 0x00, 0x46}};
    support::Require(CoRegisterPSClsid(__uuidof(IBaseWindow), kTypeLibraryMarshaller), "CoRegisterPSClsid");
    const auto edit = Edit();
    const HRESULT marshalled = InAnotherApartment(*edit, __uuidof(IBaseWindow), [](IUnknown& proxy) {
        auto& window = static_cast<IBaseWindow&>(proxy);
        int id = 0;
        EXPECT_EQ(window.get_ControlID(&id), S_OK);
        EXPECT_EQ(id, 1001);
        EXPECT_EQ(window.put_Text(Bstr(L"from another apartment")), S_OK);
        BSTR text = nullptr;
        EXPECT_EQ(window.get_Text(&text), S_OK);
        EXPECT_EQ(support::TakeText(text), "from another apartment");
        LONG answer = 0;
        EXPECT_EQ(window.SendMessage(WM_GETTEXTLENGTH, 0, 0, &answer), S_OK);
        EXPECT_EQ(answer, 22);
    });
    if (FAILED(marshalled)) {
        GTEST_SKIP() << "no proxy from a library that is registered in this process only: 0x" << std::hex
                     << marshalled;
    }
}

} // namespace
