// The module that a tool carries in itself: unpacked, loaded, used without registration, and sending for the
// program that loaded it.
#include <gmock/gmock.h>

#include <filesystem>
#include <fstream>
#include <thread>

#include <windows.h>

#include <commctrl.h>

#include "com/late_bound.h"
#include "com/registration_sandbox.h"
#include "controls/ghGXGrid.h"
#include "controls/ghTabControl.h"
#include "hostlink/module_instance.h"
#include "hostlink/module_sends.h"
#include "hostlink/remote_send.h"
#include "hostlink/shared_section.h"
#include "shared/ghosthand_module.h"
#include "support/program.h"
#include "support/sample_host.h"

namespace {

namespace fs = std::filesystem;
namespace ids = sample_host::ids;
using testing::ElementsAre;

// A folder that stands in for the user's temporary one.
class UnpackFolder : public testing::Test {
protected:
    UnpackFolder()
        : m_folder(fs::temp_directory_path() / ("carried" + std::to_string(GetCurrentProcessId()))) {
        fs::remove_all(m_folder);
        fs::create_directories(m_folder);
    }
    ~UnpackFolder() override {
        for (const HMODULE module : m_loaded) {
            FreeLibrary(module);
        }
        fs::remove_all(m_folder);
    }

    HMODULE Load() { return m_loaded.emplace_back(apps::LoadUnpackedModule(m_folder)); }
    fs::path Unpacked() const { return apps::UnpackedModulePath(m_folder); }
    // The module of another version, or what has its name.
    fs::path MakeOther(const char* folder) const {
        fs::create_directories(m_folder / folder);
        const fs::path file = m_folder / folder / "ghosthand.dll";
        fs::copy_file(support::PathFromEnvironment("GHOSTHAND_DLL"), file);
        return file;
    }

    fs::path m_folder;
    std::vector<HMODULE> m_loaded;
};

TEST_F(UnpackFolder, TheBuiltModuleIsWrittenOnce) {
    const HMODULE first = Load();
    EXPECT_TRUE(fs::equivalent(hostlink::ModulePath(first), Unpacked()));
    EXPECT_EQ(support::ReadFile(Unpacked()),
              support::ReadFile(support::PathFromEnvironment("GHOSTHAND_DLL")));
    const auto written = fs::last_write_time(Unpacked());
    Sleep(50);
    EXPECT_EQ(Load(), first);
    EXPECT_EQ(fs::last_write_time(Unpacked()), written);
}

TEST_F(UnpackFolder, ADamagedFileIsReplaced) {
    fs::create_directories(Unpacked().parent_path());
    std::string bytes = support::ReadFile(support::PathFromEnvironment("GHOSTHAND_DLL"));
    for (const bool shortened : {true, false}) {
        if (shortened) {
            std::ofstream(Unpacked(), std::ios::binary) << bytes.substr(0, bytes.size() / 2);
        } else {
            std::string changed = bytes;
            changed[changed.size() / 2] ^= 1;
            std::ofstream(Unpacked(), std::ios::binary) << changed;
        }
        FreeLibrary(apps::LoadUnpackedModule(m_folder));
        EXPECT_EQ(support::ReadFile(Unpacked()), bytes);
    }
}

TEST_F(UnpackFolder, ManyAtOnceGetOneModule) {
    std::vector<HMODULE> modules(8);
    std::vector<std::thread> tools;
    for (HMODULE& module : modules) {
        tools.emplace_back([&module, this] { module = apps::LoadUnpackedModule(m_folder); });
    }
    for (std::thread& tool : tools) {
        tool.join();
    }
    m_loaded = modules;
    EXPECT_THAT(modules, testing::Each(testing::AllOf(modules[0], testing::NotNull())));
    std::vector<fs::path> files;
    for (const auto& entry : fs::directory_iterator(Unpacked().parent_path())) {
        files.push_back(entry.path().filename());
    }
    EXPECT_THAT(files, ElementsAre("ghosthand.dll"));
}

TEST_F(UnpackFolder, OtherVersionsGoUnlessTheyAreUsed) {
    const fs::path unused = MakeOther("ghosthand-0.9.0-0123456789abcdef");
    const fs::path used = MakeOther("ghosthand-0.9.1-0123456789abcdef");
    const fs::path ofOthers = MakeOther("ghosthand-traces");
    const HMODULE inUse = LoadLibraryW(used.c_str());
    ASSERT_NE(inUse, nullptr);
    Load();
    EXPECT_FALSE(fs::exists(unused.parent_path()));
    EXPECT_TRUE(fs::exists(used));
    EXPECT_TRUE(fs::exists(ofOthers));
    FreeLibrary(inUse);
}

TEST_F(UnpackFolder, WhereNothingCanBeWrittenItIsSaid) {
    std::ofstream(Unpacked().parent_path()) << "a file in the place of the folder";
    EXPECT_THROW(Load(), std::runtime_error);
    EXPECT_THROW(apps::LoadUnpackedModule(m_folder / "missing"), std::runtime_error);
}

class CarriedModule : public testing::Test {
protected:
    static void SetUpTestSuite() {
        support::Require(OleInitialize(nullptr), "OleInitialize");
        host = std::make_unique<support::SampleHost>("--page tabs --page cad");
        host->WaitForWindow("CAD.1103");
    }
    static void TearDownTestSuite() {
        host.reset();
        OleUninitialize();
    }
    static HWND Control(const char* page, unsigned id) {
        return host->WaitForWindow(page + ("." + std::to_string(id)));
    }

    static inline std::unique_ptr<support::SampleHost> host;
};

TEST_F(CarriedModule, WorksWhateverIsRegistered) {
    using FromModule = HRESULT(STDAPICALLTYPE*)();
    const auto call = [](HMODULE module, const char* function) {
        return reinterpret_cast<FromModule>(GetProcAddress(module, function))();
    };
    const fs::path copy =
        fs::temp_directory_path() / ("other" + std::to_string(GetCurrentProcessId()) + ".dll");
    fs::copy_file(support::PathFromEnvironment("GHOSTHAND_DLL"), copy, fs::copy_options::overwrite_existing);
    support::RegistrationSandbox sandbox;
    const auto captionLength = [] {
        const auto entry = apps::CreateEntryObject();
        const auto window = support::Ask(*entry, L"MainWindow", L"sample_host", L"", L"", 0L, 60L);
        return support::Ask(*window.Object(), L"Text").Text().size();
    };
    const HMODULE carried = apps::GhosthandModule();
    EXPECT_GT(captionLength(), 0u) << "nothing registered";
    ASSERT_EQ(call(carried, "DllCanUnloadNow"), S_OK) << "which empties the cache of descriptions";

    const HMODULE other = LoadLibraryW(copy.c_str());
    ASSERT_EQ(call(other, "DllRegisterServer"), S_OK);
    EXPECT_GT(captionLength(), 0u) << "another copy registered";
    ASSERT_EQ(call(carried, "DllCanUnloadNow"), S_OK);

    FreeLibrary(other);
    fs::remove(copy);
    EXPECT_GT(captionLength(), 0u) << "a copy registered that is no more";
}

TEST_F(CarriedModule, SendsForTheProgram) {
    const ghTabControl tabs(Control("Tabs", ids::kTabs));
    const ghGXGrid grid(Control("CAD", ids::kParameterGrid));
    EXPECT_FALSE(hostlink::SendThroughModule(GetModuleHandleW(L"kernel32.dll")));
    EXPECT_EQ(tabs.GetItem(0), "") << "without a module";

    ASSERT_TRUE(hostlink::SendThroughModule(apps::GhosthandModule()));
    EXPECT_NE(tabs.GetItem(0), "");
    RECT rectangle{};
    EXPECT_TRUE(
        hostlink::TryRemoteSend(tabs.Host(), TCM_GETITEMRECT, 0, hostlink::AsBlock(rectangle)).value_or(0));
    EXPECT_GT(rectangle.right, rectangle.left);
    EXPECT_TRUE(grid.SetCellText(1, 2, "12.5")) << "a text on its way in";
    EXPECT_EQ(grid.CellText(1, 2), "12.5");

    std::byte tooMuch[1025] = {};
    EXPECT_FALSE(hostlink::TryRemoteSend(tabs.Host(), TCM_GETITEMRECT, 0, tooMuch));
    std::string text = "anything";
    EXPECT_EQ(hostlink::RemoteSendWithString(tabs.Host(), TCM_GETITEMA, 0, tooMuch, 0, text), 0);
    EXPECT_EQ(text, "");
}

// A tool and a script, each with a module and a section of its own, ask one window: their hooks wait for the
// same message.
TEST_F(CarriedModule, AndTheScriptsModuleDoNotTakeEachOthersTurn) {
    const ghTabControl tabs(Control("Tabs", ids::kTabs));
    const HMODULE scripts = LoadLibraryA(support::PathFromEnvironment("GHOSTHAND_DLL").c_str());
    const auto countEmpty = [&](HMODULE module) {
        const auto send =
            reinterpret_cast<int (*)(hostlink::ModuleSend*)>(GetProcAddress(module, "ghosthand_remote_send"));
        int empty = 0;
        for (int round = 0; round < 1000; ++round) {
            TCITEMA item{};
            item.mask = TCIF_TEXT;
            char text[hostlink::kRemoteStringSize] = "";
            hostlink::ModuleSend request{tabs.Window(),
                                         tabs.ThreadId(),
                                         TCM_GETITEMA,
                                         0,
                                         hostlink::AsBlock(item).data(),
                                         sizeof item,
                                         text,
                                         offsetof(TCITEMA, pszText),
                                         0};
            send(&request);
            empty += text[0] == '\0' ? 1 : 0;
        }
        return empty;
    };
    int emptyForTool = 0;
    std::thread tool([&] { emptyForTool = countEmpty(apps::GhosthandModule()); });
    EXPECT_EQ(countEmpty(scripts), 0);
    tool.join();
    EXPECT_EQ(emptyForTool, 0);
    FreeLibrary(scripts);
}

} // namespace
