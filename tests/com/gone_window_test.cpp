// Objects whose program has gone, or does not answer: no member waits for what cannot come any more.
#include <gmock/gmock.h>

#include <cstdio>
#include <set>

#include "com/call_by_id.h"
#include "com/driven_host.h"
#include "com/late_bound.h"

namespace {

using support::Ask;
using support::Bstr;
using support::CallById;
using support::ComPointer;
using support::Member;
using support::Variant;

// What is promised is one second; machines are shared.
constexpr ULONGLONG kLongest = 3000; // milliseconds

class GoneWindow : public support::DrivenHost {
protected:
    // Numbers are the default where there is one: no search and no wait is shorter than it would be.
    static CallById WithDefaults(const Member& member) {
        static const Bstr text(L"text");
        CallById call;
        call.flags = static_cast<WORD>(member.kind);
        if (member.IsPut()) {
            call.names = {DISPID_PROPERTYPUT};
        }
        for (UINT index = 0; index < member.required; ++index) {
            VARIANT value;
            VariantInit(&value);
            V_VT(&value) = member.parameters[index];
            switch (member.parameters[index]) {
            case VT_BSTR:
                V_BSTR(&value) = text;
                break;
            case VT_BOOL:
                V_BOOL(&value) = VARIANT_TRUE;
                break;
            default:
                V_VT(&value) = VT_I4;
                V_I4(&value) = 2;
            }
            call.values.push_back(value);
        }
        return call;
    }

    // Calls every member of the object that no object before it has shared with it.
    static void ExpectPrompt(const std::string& name, IDispatch& object,
                             std::set<std::pair<std::string, DISPID>>& called) {
        ULONGLONG longest = 0;
        std::string slowest;
        for (const Member& member : support::MembersOf(object)) {
            if (!called.emplace(member.name, member.id + (member.IsPut() ? 1'000'000 : 0)).second) {
                continue;
            }
            const ULONGLONG begin = GetTickCount64();
            support::Invoke(object, member, WithDefaults(member));
            const ULONGLONG elapsed = GetTickCount64() - begin;
            EXPECT_LT(elapsed, kLongest) << name << "." << member.name;
            if (elapsed > longest) {
                longest = elapsed;
                slowest = member.name;
            }
        }
        std::printf("%s: at most %llu ms (%s)\n", name.c_str(), longest, slowest.c_str());
    }
};

TEST_F(GoneWindow, NoMemberWaitsForAProgramThatHasEnded) {
    const auto entry = Create<IGhosthand>(CLSID_Ghosthand);
    entry->put_AllowMouseBlocks(VARIANT_FALSE);
    std::vector<std::pair<std::string, Variant>> objects;
    {
        const support::SampleHost dying("--page cad --page options --page trees --page list-views");
        dying.WaitForWindow("List views");
        ComPointer<IBaseWindow> main;
        support::Require(entry->MainWindow(Bstr(L"sample_host"), nullptr, nullptr, 0, 60, main.Receive()),
                         "MainWindow");
        // The class of the window is not asked.
        for (const wchar_t* member : {L"WindowByID", L"CADViewByID", L"CheckBoxByID", L"TabCtrlByID",
                                      L"GXGridByID", L"ListBoxByID", L"ListViewByID", L"TrackBarByID",
                                      L"ComboBoxByID", L"GroupComboByID", L"RibCustomisationWidgetByID"}) {
            const std::wstring name = member;
            objects.emplace_back(std::string(name.begin(), name.end()),
                                 Ask(*main.Get(), member, L"CAD.1101"));
        }
        objects.emplace_back("CADTree", Ask(*main.Get(), L"CADTreeByID", L"CAD.1100"));
        objects.emplace_back("CADTreeItem", Ask(*objects.back().second.Object(), L"ItemByPath", L"Gearbox"));
        objects.emplace_back("OptionTree", Ask(*main.Get(), L"OptionTreeByID", L"Options.1110"));
        objects.emplace_back("OptionTreeItem", Ask(*objects.back().second.Object(), L"GetItemByPath", L""));
        objects.emplace_back("Toolbar", Ask(*main.Get(), L"Toolbar", L"", LONG{0}, LONG{0x40}));
        objects.emplace_back("Toolbar item", Ask(*objects.back().second.Object(), L"GetItem", LONG{1}));
    }
    std::set<std::pair<std::string, DISPID>> called;
    for (auto& [name, object] : objects) {
        ASSERT_NE(object.Object(), nullptr) << name;
        ExpectPrompt(name, *object.Object(), called);
    }
}

TEST_F(GoneWindow, TheMainWindowOfAProgramThatDoesNotAnswerIsFoundAllTheSame) {
    SendNotifyMessageA(host->Frame(), RegisterWindowMessageA(sample_host::kMisbehaveMessage),
                       static_cast<WPARAM>(sample_host::Misbehaviour::Busy), 40000);
    const ULONGLONG begin = GetTickCount64();
    const auto main = MainWindow();
    EXPECT_LT(GetTickCount64() - begin, 20000u);
    EXPECT_NE(main.Get(), nullptr);
    host = std::make_unique<support::SampleHost>(); // in place of the one that does not answer
}

} // namespace
