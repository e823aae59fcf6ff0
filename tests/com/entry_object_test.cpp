// The entry object, and the module's image as every process loads it.
#include <gmock/gmock.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "com/driven_host.h"
#include "com/late_bound.h"

namespace {

using support::Ask;
using support::Bstr;
using support::ComPointer;
using support::Variant;
using testing::Each;
using testing::SizeIs;

class EntryObject : public support::DrivenHost {};

TEST_F(EntryObject, FindsTheMainWindowByTheBeginningOfItsProgramsName) {
    const auto entry = Create<IGhosthand>(CLSID_Ghosthand);
    const auto find = [&](const wchar_t* application, const wchar_t* caption, const wchar_t* className) {
        return Ask(*entry.Get(), L"MainWindow", application, caption, className, LONG{0}, LONG{0});
    };
    const Variant byDefault = Ask(*entry.Get(), L"MainWindow", L"SAMPLE_HOST");
    ASSERT_NE(byDefault.Object(), nullptr);
    EXPECT_EQ(Ask(*byDefault.Object(), L"Text").Text(), L"Ghosthand Sample Host");
    EXPECT_NE(find(L"sample_host.exe", L"Sample", L"HostFrame").Object(), nullptr);
    EXPECT_EQ(find(L"sample_host", L"sample", L"").Object(), nullptr); // captions are case-sensitive
    EXPECT_EQ(find(L"sample_host", L"", L"NoSuchClass").Object(), nullptr);
    EXPECT_EQ(find(L"host", L"", L"").Object(), nullptr);
    EXPECT_EQ(find(std::wstring(5000, L's').c_str(), L"", L"").Object(), nullptr);
}

TEST_F(EntryObject, AdoptsTheLocaleOfTheMainWindowsThread) {
    const LCID own = GetThreadLocale();
    const LCID other = own == 0x407 ? 0x409 : 0x407;
    SetThreadLocale(other);
    host->ClearLog();
    const auto window = MainWindow();
    EXPECT_NE(GetThreadLocale(), other);
    const auto idle = host->Log().Records(0x036A, host->Frame());
    ASSERT_THAT(idle, SizeIs(1));
    EXPECT_EQ(idle[0].wParam, 1u);
    EXPECT_THAT(host->Log().Records(RegisterWindowMessageA("MSG_GH_GET_LOCALE"), host->Frame()), SizeIs(1));
    SetThreadLocale(own);
}

TEST_F(EntryObject, SwitchesMouseBlocksForEveryObject) {
    const auto entry = Create<IGhosthand>(CLSID_Ghosthand);
    const auto another = Create<IGhosthand>(CLSID_Ghosthand);
    VARIANT_BOOL allowed = VARIANT_FALSE;
    ASSERT_EQ(entry->get_AllowMouseBlocks(&allowed), S_OK);
    EXPECT_EQ(allowed, VARIANT_TRUE); // the one byte of the section that is not zero at first
    ASSERT_EQ(entry->put_AllowMouseBlocks(VARIANT_FALSE), S_OK);
    EXPECT_FALSE(Ask(*another.Get(), L"AllowMouseBlocks").Bool());
    ASSERT_EQ(another->put_AllowMouseBlocks(VARIANT_BOOL{2}), S_OK);
    ASSERT_EQ(entry->get_AllowMouseBlocks(&allowed), S_OK);
    EXPECT_EQ(allowed, VARIANT_TRUE);
    EXPECT_EQ(entry->UnblockMouse(), S_OK);
}

TEST(ModuleImage, HasASharedSectionOfTheAgreedLayout) {
    std::ifstream file(support::PathFromEnvironment("GHOSTHAND_DLL"), std::ios::binary);
    const std::vector<char> image{std::istreambuf_iterator<char>(file), {}};
    ASSERT_GT(image.size(), sizeof(IMAGE_DOS_HEADER));
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(image.data());
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS64*>(image.data() + dos->e_lfanew);
    const IMAGE_SECTION_HEADER* section = IMAGE_FIRST_SECTION(headers);
    const IMAGE_SECTION_HEADER* const end = section + headers->FileHeader.NumberOfSections;
    while (section != end &&
           std::string(reinterpret_cast<const char*>(section->Name), 8).substr(0, 7) != ".shared") {
        ++section;
    }
    ASSERT_NE(section, end);
    EXPECT_EQ(section->Characteristics & 0xF00000E0u, 0xD0000040u); // shared, read, write, initialised data
    ASSERT_GE(section->Misc.VirtualSize, 0x88Cu);
    ASSERT_GE(section->SizeOfRawData, 0x88Cu);
    std::vector<char> bytes(image.begin() + section->PointerToRawData,
                            image.begin() + section->PointerToRawData + section->SizeOfRawData);
    EXPECT_EQ(bytes[0x871], 1);
    bytes[0x871] = 0;
    EXPECT_THAT(bytes, Each('\0'));
}

std::vector<std::string> ExportedNames(HMODULE module) {
    const auto* image = reinterpret_cast<const char*>(module);
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(image);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS64*>(image + dos->e_lfanew);
    const auto* directory = reinterpret_cast<const IMAGE_EXPORT_DIRECTORY*>(
        image + headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_EXPORT].VirtualAddress);
    const auto* names = reinterpret_cast<const DWORD*>(image + directory->AddressOfNames);
    std::vector<std::string> result;
    for (DWORD index = 0; index < directory->NumberOfNames; ++index) {
        result.emplace_back(image + names[index]);
    }
    return result;
}

TEST(ModuleImage, ExportsTheSharedUtilitiesUnderTheNamesOfEitherCompiler) {
    const struct {
        const char* activeDialog;
        const char* isPopupDialog;
        const char* isStartsFrom;
    } kCompilers[] = {
        {"?active_dialog@ghSharedUtils@@SAPEAUHWND__@@PEAU2@@Z",
         "?is_popup_dialog@ghSharedUtils@@SAHPEAUHWND__@@@Z", "?is_starts_from@ghSharedUtils@@SA_NPEBD0@Z"},
        {"_ZN13ghSharedUtils13active_dialogEP6HWND__", "_ZN13ghSharedUtils15is_popup_dialogEP6HWND__",
         "_ZN13ghSharedUtils14is_starts_fromEPKcS1_"}};
    const HMODULE module = LoadLibraryW(support::BuiltModule::DefaultPath().c_str());
    ASSERT_NE(module, nullptr);
    std::vector<std::string> expected = {"DllCanUnloadNow", "DllGetClassObject", "DllRegisterServer",
                                         "DllUnregisterServer", "ghosthand_remote_send"};
    const HWND owner = CreateWindowA("Static", "owner", WS_OVERLAPPEDWINDOW, 0, 0, 90, 90, nullptr, nullptr,
                                     nullptr, nullptr);
    const HWND dialog = CreateWindowExA(WS_EX_DLGMODALFRAME, "#32770", "dialog", WS_POPUP | WS_VISIBLE, 0, 0,
                                        90, 90, owner, nullptr, nullptr, nullptr);
    for (const auto& names : kCompilers) {
        SCOPED_TRACE(names.activeDialog);
        expected.insert(expected.end(), {names.activeDialog, names.isPopupDialog, names.isStartsFrom});
        const auto find = [&]<class Function>(const char* name, Function*& function) {
            function = reinterpret_cast<Function*>(GetProcAddress(module, name));
            ASSERT_NE(function, nullptr) << name;
        };
        HWND (*activeDialog)(HWND) = nullptr;
        int (*isPopupDialog)(HWND) = nullptr;
        bool (*isStartsFrom)(const char*, const char*) = nullptr;
        find(names.activeDialog, activeDialog);
        find(names.isPopupDialog, isPopupDialog);
        find(names.isStartsFrom, isStartsFrom);
        if (HasFatalFailure()) {
            continue;
        }
        EXPECT_EQ(activeDialog(owner), dialog);
        EXPECT_NE(isPopupDialog(dialog), 0);
        EXPECT_EQ(isPopupDialog(owner), 0);
        EXPECT_TRUE(isStartsFrom("Bracket", "Bra"));
        EXPECT_FALSE(isStartsFrom("Bracket", "bra"));
    }
    EXPECT_THAT(ExportedNames(module), testing::UnorderedElementsAreArray(expected));
    DestroyWindow(owner);
    FreeLibrary(module);
}

} // namespace
