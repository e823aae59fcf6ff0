// The inspector, driven by what it explains: a program with a tree, lists and buttons like any other.
#include "com/built_module.h"
#include "com/com_pointer.h"
#include "com/late_bound.h"
#include "ghinspect/control_ids.h"
#include "support/environment.h"
#include "support/gui_thread.h"
#include "support/job.h"
#include "support/program.h"
#include "support/sample_host.h"

#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <memory>
#include <stdexcept>
#include <string>

#include "automation/interfaces.h"
#include "engine/window_search.h"

namespace {

namespace ids = inspector::ids;
using support::Ask;
using support::BuiltModule;
using support::Eventually;
using support::Program;
using support::SampleHost;
using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

constexpr char kSettings[] = "Software\\Ghosthand\\Inspector";
constexpr wchar_t kFrameLabel[] = L"SampleHostFrame 'Ghosthand Sample Host'";

std::string Narrow(const std::wstring& text) {
    std::string narrow;
    for (const wchar_t character : text) {
        narrow += character < 0x80 ? static_cast<char>(character) : '?';
    }
    return narrow;
}

using Object = support::ComPointer<IDispatch>;

class Inspector : public testing::Test {
protected:
    static void SetUpTestSuite() {
        support::EndChildrenWithThisProcess();
        support::Require(OleInitialize(nullptr), "OleInitialize");
        module = std::make_unique<BuiltModule>(BuiltModule::DefaultPath());
        ASSERT_EQ(module->RegisterServer(), S_OK);
    }
    static void TearDownTestSuite() {
        module->UnregisterServer();
        module.reset();
        OleUninitialize();
    }

    void SetUp() override {
        RegDeleteKeyA(HKEY_CURRENT_USER, kSettings);
        Start();
    }
    void TearDown() override {
        m_window.Reset();
        m_entry.Reset();
        m_program.reset();
        RegDeleteKeyA(HKEY_CURRENT_USER, kSettings);
    }

    void Start() {
        std::string commandLine = "\"";
        commandLine += support::PathFromEnvironment("GHOSTHAND_INSPECTOR") + "\"";
        m_program = std::make_unique<Program>(commandLine);
        support::ComPointer<IClassFactory> factory;
        support::Require(module->GetClassObject(CLSID_Ghosthand, IID_IClassFactory, factory.ReceiveVoid()),
                         "class object");
        support::Require(factory->CreateInstance(nullptr, IID_IDispatch, m_entry.ReceiveVoid()), "entry");
        // It has the mouse for itself in these tests.
        support::PutByName(*m_entry, L"AllowMouseBlocks", false);
        const auto found = Ask(*m_entry, L"MainWindow", L"ghinspect", L"", L"", LONG{0}, LONG{60});
        ASSERT_NE(found.Object(), nullptr);
        found.Object()->AddRef();
        m_window = Object(found.Object());
        m_handle = FindWindowA(ids::kWindowClass, nullptr);
    }
    void Close() {
        Ask(*m_window, L"Close");
        ASSERT_TRUE(m_program->WaitForEnd(60));
        m_window.Reset();
    }

    // A control of the inspector; throws std::runtime_error when it is not found.
    static Object Found(support::Variant found, const char* what) {
        if (found.Object() == nullptr) {
            throw std::runtime_error(std::string("not found: ") + what);
        }
        found.Object()->AddRef();
        return Object(found.Object());
    }
    Object Tree() const { return Found(Ask(*m_window, L"TreeCtrl", LONG{ids::kTree}), "the tree"); }
    // Also that of the page behind.
    Object List(int id) const {
        return Found(Ask(*m_window, L"ListView", LONG{id}, LONG{engine::kIncludeHidden}), "a list");
    }
    Object Edit(int id) const { return Found(Ask(*m_window, L"Edit", LONG{id}), "an edit control"); }
    Object Pages() const { return Found(Ask(*m_window, L"TabCtrl", LONG{ids::kPages}), "the pages"); }
    std::string Text(int id) const {
        const Object control = Found(Ask(*m_window, L"ChildWindow", L"", L"", LONG{id}), "a control");
        return Narrow(Ask(*control, L"Text").Text());
    }
    void Press(int id) const { Ask(*Found(Ask(*m_window, L"Button", L"", LONG{id}), "a button"), L"Click"); }

    bool Select(const std::wstring& path) const {
        return Eventually([&] { return Ask(*Tree(), L"SelectItemByPath", path.c_str()).Bool(); });
    }
    std::string WaitForText(int id, const testing::Matcher<const std::string&>& wanted) const {
        std::string text;
        Eventually([&] { return wanted.Matches(text = Text(id)); });
        return text;
    }
    // The cell beside the first row that begins with this text; waits until there is such a row.
    std::string WaitForRow(int list, const std::string& name) const {
        std::string value = "(no such row)";
        Eventually([&] {
            const auto table = List(list);
            const LONG count = Ask(*table, L"ItemsCount").Long();
            for (LONG row = 0; row < count; ++row) {
                if (Narrow(Ask(*table, L"GetItem", row).Text()) == name) {
                    value = Narrow(Ask(*table, L"GetSubItem", row, LONG{1}).Text());
                    return true;
                }
            }
            return false;
        });
        return value;
    }
    void Find(const wchar_t* text) const {
        support::PutByName(*Edit(ids::kFind), L"Text", text);
        Press(ids::kFindNext);
    }
    // Whether its thread takes messages, as a user would notice.
    bool Responds() const {
        DWORD_PTR answer = 0;
        return SendMessageTimeoutA(m_handle, WM_NULL, 0, 0, SMTO_NORMAL, 2000, &answer) != 0;
    }

    static inline std::unique_ptr<BuiltModule> module;
    std::unique_ptr<Program> m_program;
    Object m_entry;
    Object m_window;
    HWND m_handle = nullptr;
};

// How the tree names a window.
std::wstring Label(HWND window) {
    wchar_t className[100] = L"";
    wchar_t caption[100] = L"";
    GetClassNameW(window, className, 100);
    GetWindowTextW(window, caption, 100);
    return std::wstring(className) + L" '" + caption + L"' id " + std::to_wstring(GetDlgCtrlID(window));
}

// What a script gets by the line: id and place of the window.
std::string RunAsScript(const std::string& call) {
    const auto folder = std::filesystem::temp_directory_path();
    const auto script = folder / "inspected call.vbs";
    const auto output = folder / "inspected call.txt";
    std::ofstream(script) << "Set gh = CreateObject(\"Ghosthand.Ghosthand\")\n"
                             "Set found = " +
                                 call +
                                 "\n"
                                 "If found Is Nothing Then\n"
                                 "WScript.Echo \"Nothing\"\n"
                                 "Else\n"
                                 "WScript.Echo found.ControlID & \" at \" & found.Left & \",\" & found.Top\n"
                                 "End If\n";
    const Program host("cscript.exe //nologo \"" + script.string() + "\"", output.string());
    EXPECT_TRUE(host.WaitForEnd(120));
    return support::ReadFile(output);
}

std::string ExpectedOutput(HWND window) {
    RECT area{};
    GetWindowRect(window, &area);
    return std::to_string(GetDlgCtrlID(window)) + " at " + std::to_string(area.left) + "," +
           std::to_string(area.top) + "\r\n";
}

TEST_F(Inspector, ShowsTheCallThatReachesTheSelectedWindow) {
    const SampleHost host("--page cad");
    ASSERT_TRUE(
        Select(std::wstring(L"sample_host.exe|") + kFrameLabel + L"|ToolbarWindow32 'Standard' id 1080"));
    EXPECT_THAT(WaitForText(ids::kVerdict, StartsWith("ControlBar, found")), HasSubstr(" ms"));
    EXPECT_EQ(WaitForRow(ids::kFacts, "Class"), "ToolbarWindow32");
    EXPECT_EQ(WaitForRow(ids::kFacts, "Kind"), "ControlBar");
    EXPECT_EQ(RunAsScript(Text(ids::kCall)),
              ExpectedOutput(GetDlgItem(host.Frame(), sample_host::ids::kStandardBar)));

    Find(L"1103");
    WaitForText(ids::kVerdict, StartsWith("GXGrid, found"));
    EXPECT_EQ(RunAsScript(Text(ids::kCall)), ExpectedOutput(host.Window("CAD.1103")));
}

TEST_F(Inspector, RemembersTheLanguage) {
    const SampleHost host;
    ASSERT_TRUE(Select(L"sample_host.exe"));
    EXPECT_EQ(WaitForText(ids::kCall, StartsWith("gh.")), "gh.MainWindow(\"sample_host\")");
    const auto languages = Ask(*m_window, L"ComboBox", LONG{ids::kLanguage});
    EXPECT_TRUE(Ask(*languages.Object(), L"SelectItemByName", L"PowerShell").Bool());
    EXPECT_EQ(WaitForText(ids::kCall, StartsWith("$gh")), "$gh.MainWindow('sample_host')");
    Close();
    Start();
    ASSERT_TRUE(Select(L"sample_host.exe"));
    EXPECT_EQ(WaitForText(ids::kCall, StartsWith("$gh")), "$gh.MainWindow('sample_host')");
}

TEST_F(Inspector, FindsByClassCaptionAndCall) {
    const SampleHost host("--page panels");
    ASSERT_TRUE(Select(L"sample_host.exe"));
    Find(L"msctls_STATUSBAR");
    EXPECT_THAT(WaitForText(ids::kName, StartsWith("msctls")), HasSubstr("id 1090"));
    EXPECT_THAT(Text(ids::kStatus), StartsWith("Match 1 of"));
    Find(L"right PANEL");
    EXPECT_THAT(WaitForText(ids::kName, StartsWith("SampleHostPanel")), HasSubstr("id 1051"));
    Find(L"toolbar(\"\", 1082");
    EXPECT_THAT(WaitForText(ids::kName, StartsWith("BCGToolBar")), HasSubstr("id 1082"));
    Find(L"Set bar = gh.MainWindow(\"sample_host\").Toolbar(\"Draw\")");
    EXPECT_THAT(WaitForText(ids::kName, HasSubstr("Draw")), HasSubstr("id 1081"));
    // The step that fails is named.
    Find(L"gh.MainWindow(\"sample_host\").Button(\"No such button\")");
    EXPECT_THAT(WaitForText(ids::kStatus, HasSubstr("Button")), HasSubstr("finds no window"));
    EXPECT_THAT(Text(ids::kName), StartsWith("SampleHostFrame"));
}

TEST_F(Inspector, ReadsMembersAndDoesThem) {
    const SampleHost host;
    const HWND edit = host.WaitForWindow("document 1.1001");
    SetWindowTextA(edit, "before");
    EXPECT_TRUE(Ask(*Pages(), L"SelectItemByName", L"Members").Bool());
    ASSERT_TRUE(Select(std::wstring(L"sample_host.exe|") + kFrameLabel + L"|MDIClient|" +
                       Label(GetParent(edit)) + L"|Edit id 1001"));
    EXPECT_EQ(WaitForText(ids::kName, StartsWith("Edit")), "Edit id 1001");
    EXPECT_EQ(WaitForRow(ids::kMembers, "Text"), "\"before\"");
    EXPECT_EQ(WaitForRow(ids::kMembers, "ControlID"), "1001");

    const auto members = List(ids::kMembers);
    LONG put = -1; // the second row of that name
    for (LONG row = Ask(*members, L"ItemsCount").Long() - 1; row >= 0 && put < 0; --row) {
        put = Ask(*members, L"GetItem", row).Text() == L"Text" ? row : -1;
    }
    EXPECT_TRUE(Ask(*members, L"SelectItem", put).Bool());
    EXPECT_EQ(WaitForText(ids::kArguments, testing::Not("")), "\"\"");
    support::PutByName(*Edit(ids::kArguments), L"Text", L"\"typed by the inspector\"");
    Press(ids::kDo);
    EXPECT_EQ(WaitForText(ids::kAnswer, "done"), "done");
    char text[100] = "";
    GetWindowTextA(edit, text, sizeof text);
    SendMessageA(edit, WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));
    EXPECT_STREQ(text, "typed by the inspector");
    EXPECT_TRUE(
        Eventually([&] { return WaitForRow(ids::kMembers, "Text") == "\"typed by the inspector\""; }));
}

TEST_F(Inspector, SaysThatAProgramHasEnded) {
    auto host = std::make_unique<SampleHost>();
    ASSERT_TRUE(Select(std::wstring(L"sample_host.exe|") + kFrameLabel));
    WaitForText(ids::kVerdict, HasSubstr("found"));
    host.reset();
    EXPECT_THAT(WaitForText(ids::kName, HasSubstr("gone")), HasSubstr("gone"));
    EXPECT_TRUE(
        Eventually([&] { return Ask(*Tree(), L"ItemByPath", L"sample_host.exe").Object() == nullptr; }));
    // The next one is shown by itself.
    const SampleHost another;
    EXPECT_TRUE(Select(L"sample_host.exe"));
}

TEST_F(Inspector, WorksOnWhileAProgramHangs) {
    const SampleHost host("--page twins");
    ASSERT_TRUE(Select(std::wstring(L"sample_host.exe|") + kFrameLabel));
    WaitForText(ids::kVerdict, HasSubstr("found"));
    EXPECT_TRUE(Ask(*Pages(), L"SelectItemByName", L"Members").Bool());
    PostMessageA(host.Frame(), RegisterWindowMessageA(sample_host::kMisbehaveMessage),
                 static_cast<WPARAM>(sample_host::Misbehaviour::Busy), 30000);
    const ULONGLONG began = GetTickCount64();
    EXPECT_TRUE(Select(L"sample_host.exe - does not answer"));
    EXPECT_TRUE(Responds());
    EXPECT_THAT(WaitForText(ids::kVerdict, HasSubstr("not answer")), HasSubstr("not answer"));
    ASSERT_TRUE(Select(std::wstring(L"sample_host.exe - does not answer|") + kFrameLabel +
                       L"|ToolbarWindow32 'Standard' id 1080"));
    EXPECT_TRUE(Responds());
    EXPECT_EQ(WaitForRow(ids::kFacts, "Class"), "ToolbarWindow32") << "facts need no answer";
    EXPECT_LT(GetTickCount64() - began, 30000u) << "the program answers again: nothing was tested";
}

// A real drag: the mouse goes down on the cross, over to the control, and up.
TEST_F(Inspector, PicksWhatTheCrossIsDroppedOn) {
    const SampleHost host("--page cad");
    const HWND grid = host.WaitForWindow("CAD.1103");
    // Beside one another and above what other tests may have left, so that nothing covers them.
    SetWindowPos(m_handle, HWND_TOPMOST, 0, 500, 950, 520, SWP_NOACTIVATE);
    SetWindowPos(host.Frame(), HWND_TOPMOST, 0, 0, 1200, 480, SWP_NOACTIVATE);
    RECT area{};
    GetWindowRect(grid, &area);
    const HWND cross = GetDlgItem(m_handle, ids::kCrosshair);
    const auto send = [](DWORD flags) {
        INPUT input{};
        input.type = INPUT_MOUSE;
        input.mi.dwFlags = flags;
        SendInput(1, &input, sizeof input);
    };
    const auto isTakenUp = [&] {
        GUITHREADINFO input{};
        input.cbSize = sizeof input;
        return GetGUIThreadInfo(GetWindowThreadProcessId(m_handle, nullptr), &input) != FALSE &&
               input.hwndCapture == cross;
    };
    SetForegroundWindow(m_handle);
    RECT place{};
    // A busy machine: the mouse must not leave the cross before it has taken the press, and a press can come
    // before its window is where it belongs.
    ASSERT_TRUE(Eventually([&] {
        GetWindowRect(cross, &place);
        SetCursorPos(place.left + 20, place.top + 20);
        send(MOUSEEVENTF_LEFTDOWN);
        for (int waited = 0; waited < 100 && !isTakenUp(); ++waited) {
            Sleep(50);
        }
        if (!isTakenUp()) {
            send(MOUSEEVENTF_LEFTUP);
        }
        return isTakenUp();
    })) << "the cross was not taken up; under the mouse is "
        << std::hex << WindowFromPoint({place.left + 20, place.top + 20}) << ", not " << cross;
    for (const int step : {8, 20, 30}) {
        SetCursorPos(area.left + step, area.top + step);
        send(MOUSEEVENTF_MOVE);
        Sleep(100);
    }
    send(MOUSEEVENTF_LEFTUP);
    ASSERT_THAT(WaitForText(ids::kName, HasSubstr("SampleHostGrid")), StartsWith("grid cell '"));
    EXPECT_THAT(WaitForText(ids::kCall, HasSubstr("GetText")), HasSubstr(".GXGrid(1103"));
    EXPECT_THAT(Text(ids::kVerdict), StartsWith("Grid cell of a GXGrid, found"));
    EXPECT_EQ(Ask(*Ask(*Tree(), L"SelectedItem").Object(), L"Text").Text().substr(0, 14), L"SampleHostGrid");
}

TEST_F(Inspector, TakesAThousandWindowsAndOneWithFiveThousandChildren) {
    support::GuiThread windows;
    windows.Run([] {
        const auto create = [](DWORD style, const char* caption, HWND parent) {
            return CreateWindowExA(0, "STATIC", caption, style, 0, 0, 10, 10, parent, nullptr, nullptr,
                                   nullptr);
        };
        for (int index = 0; index < 1000; ++index) {
            ShowWindow(create(WS_POPUP, "crowd", nullptr), SW_SHOWNOACTIVATE);
        }
        const HWND parent = create(WS_POPUP, "parent of many", nullptr);
        for (int index = 0; index < 5000; ++index) {
            create(WS_CHILD | WS_VISIBLE, ("child " + std::to_string(index)).c_str(), parent);
        }
        ShowWindow(parent, SW_SHOWNOACTIVATE);
    });
    ASSERT_TRUE(Select(L"inspector_test.exe|Static 'parent of many'|Static 'child 4999'"));
    for (int round = 0; round < 10; ++round) {
        EXPECT_TRUE(Responds());
        Sleep(200);
    }
    Find(L"child 2500");
    EXPECT_THAT(WaitForText(ids::kName, HasSubstr("2500")), HasSubstr("child 2500"));
    EXPECT_TRUE(Responds());
}

} // namespace
