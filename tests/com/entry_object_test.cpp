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

} // namespace
