// The built module registers itself, in a place of the registry that stands in for HKEY_CLASSES_ROOT.
#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "com/built_module.h"
#include "com/com_pointer.h"
#include "com/registration_sandbox.h"

namespace {

using support::BuiltModule;
using support::RegistrationSandbox;
using testing::Contains;

using Lines = std::vector<std::wstring>;

constexpr wchar_t kApplication[] = L"{3E224201-165C-4917-A819-7D4899B3D1D2}";
constexpr wchar_t kLibrary[] = L"{ADF61CBC-BE37-4075-A6D5-3983AAF171ED}";
constexpr wchar_t kEntryClass[] = L"{839220FB-6E90-49C5-B87F-2D00DCD3360E}";
constexpr LCID kThreadLocale = MAKELCID(MAKELANGID(LANG_GERMAN, SUBLANG_GERMAN), SORT_DEFAULT);

// As a system has it: keys of others next to which the module registers.
void FillLikeASystem(RegistrationSandbox& sandbox) {
    for (const wchar_t* parent : {L"AppID", L"CLSID", L"Interface", L"TypeLib"})
        sandbox.SetText(std::wstring(parent) + L"\\{00000000-0000-0000-0000-000000000001}", L"",
                        L"of others");
}

// A copy of the built module in a folder of its own, whose bytes can be changed.
class ModuleCopy {
public:
    explicit ModuleCopy(const wchar_t* folder)
        : m_folder(std::filesystem::temp_directory_path() /
                   (folder + std::to_wstring(GetCurrentProcessId()))) {
        std::filesystem::create_directories(m_folder);
        std::filesystem::copy_file(BuiltModule::DefaultPath(), Path(),
                                   std::filesystem::copy_options::overwrite_existing);
    }
    ~ModuleCopy() {
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }
    ModuleCopy(const ModuleCopy&) = delete;
    ModuleCopy& operator=(const ModuleCopy&) = delete;

    std::wstring Path() const { return m_folder / kFileName; }

    // Replaces every occurrence of some bytes by as many others.
    void Replace(std::string_view from, std::string_view to) const {
        ASSERT_EQ(from.size(), to.size());
        std::ifstream input(m_folder / kFileName, std::ios::binary);
        std::string bytes(std::istreambuf_iterator<char>(input), {});
        input.close();
        int count = 0;
        for (std::size_t place = 0; (place = bytes.find(from, place)) != std::string::npos; ++count)
            bytes.replace(place, to.size(), to);
        ASSERT_GT(count, 0);
        std::ofstream(m_folder / kFileName, std::ios::binary | std::ios::trunc) << bytes;
    }

private:
    static constexpr const wchar_t* kFileName = L"server.dll";

    std::filesystem::path m_folder;
};

// As the module's directory of resources has it: a name behind its length. The code that asks for that type
// of resource has the name alone.
std::string ResourceType(std::wstring_view name) {
    const std::wstring entry = static_cast<wchar_t>(name.size()) + std::wstring(name);
    return {reinterpret_cast<const char*>(entry.data()), entry.size() * sizeof(wchar_t)};
}

class Registration : public testing::Test {
protected:
    Registration() {
        FillLikeASystem(m_sandbox);
        m_before = m_sandbox.Contents();
        SetThreadLocale(kThreadLocale);
    }
    // Whatever came of the registration.
    ~Registration() override { EXPECT_EQ(GetThreadLocale(), kThreadLocale); }

    RegistrationSandbox m_sandbox;
    Lines m_before;
};

TEST_F(Registration, WritesEveryClassTheApplicationAndTheLibrary) {
    const BuiltModule module(BuiltModule::DefaultPath());
    ASSERT_EQ(module.RegisterServer(), S_OK);
    const Lines contents = m_sandbox.Contents();

    EXPECT_THAT(contents, Contains(L"AppID\\" + std::wstring(kApplication) + L" @ = REG_SZ Ghosthand"));
    EXPECT_THAT(contents, Contains(L"AppID\\Ghosthand.DLL AppID = REG_SZ " + std::wstring(kApplication)));

    support::ComPointer<ITypeLib> library;
    support::Require(LoadTypeLibEx(module.Path().c_str(), REGKIND_NONE, library.Receive()), "LoadTypeLibEx");
    int classes = 0;
    Lines expected;
    for (UINT index = 0; index < library->GetTypeInfoCount(); ++index) {
        TYPEKIND kind = TKIND_ALIAS;
        support::ComPointer<ITypeInfo> type;
        support::Require(library->GetTypeInfoType(index, &kind), "GetTypeInfoType");
        support::Require(library->GetTypeInfo(index, type.Receive()), "GetTypeInfo");
        if (kind != TKIND_COCLASS)
            continue;
        ++classes;
        BSTR nameText = nullptr;
        type->GetDocumentation(MEMBERID_NIL, &nameText, nullptr, nullptr, nullptr);
        const std::string narrowName = support::TakeText(nameText);
        const std::wstring name(narrowName.begin(), narrowName.end());
        TYPEATTR* attributes = nullptr;
        support::Require(type->GetTypeAttr(&attributes), "GetTypeAttr");
        wchar_t classId[40];
        StringFromGUID2(attributes->guid, classId, 40);
        type->ReleaseTypeAttr(attributes);

        const std::wstring progId = L"Ghosthand." + name;
        const std::wstring classKey = std::wstring(L"CLSID\\") + classId;
        for (const std::wstring& line : {progId,
                                         progId + L" @ = REG_SZ " + name + L" Class",
                                         progId + L"\\CLSID",
                                         progId + L"\\CLSID @ = REG_SZ " + classId,
                                         progId + L"\\CurVer",
                                         progId + L"\\CurVer @ = REG_SZ " + progId + L".1",
                                         progId + L".1",
                                         progId + L".1 @ = REG_SZ " + name + L" Class",
                                         progId + L".1\\CLSID",
                                         progId + L".1\\CLSID @ = REG_SZ " + classId,
                                         classKey,
                                         classKey + L" @ = REG_SZ " + name + L" Class",
                                         classKey + L"\\ProgID",
                                         classKey + L"\\ProgID @ = REG_SZ " + progId + L".1",
                                         classKey + L"\\VersionIndependentProgID",
                                         classKey + L"\\VersionIndependentProgID @ = REG_SZ " + progId,
                                         classKey + L"\\Programmable",
                                         classKey + L"\\InprocServer32",
                                         classKey + L"\\InprocServer32 @ = REG_SZ " + module.Path(),
                                         classKey + L"\\InprocServer32 ThreadingModel = REG_SZ Apartment",
                                         classKey + L"\\TypeLib",
                                         classKey + L"\\TypeLib @ = REG_SZ " + kLibrary})
            expected.push_back(line);
    }
    // Only the entry class is tied to the application.
    expected.push_back(std::wstring(L"CLSID\\") + kEntryClass + L" AppID = REG_SZ " + kApplication);
    EXPECT_EQ(classes, 21);

    Lines classLines;
    for (const std::wstring& line : contents)
        if (line.starts_with(L"Ghosthand.") || line.starts_with(L"CLSID\\"))
            if (std::find(m_before.begin(), m_before.end(), line) == m_before.end())
                classLines.push_back(line);
    EXPECT_THAT(classLines, testing::UnorderedElementsAreArray(expected));

    const std::wstring libraryKey = std::wstring(L"TypeLib\\") + kLibrary + L"\\1.0";
    EXPECT_THAT(contents, Contains(libraryKey + L" @ = REG_SZ Ghosthand 1.0 Type Library"));
    // Which of a library's languages and system kinds it is entered under is up to the system.
    Lines places;
    for (const wchar_t* language : {L"0", L"9", L"409"})
        for (const wchar_t* system : {L"win32", L"win64"})
            places.push_back(libraryKey + L"\\" + language + L"\\" + system + L" @ = REG_SZ " +
                             module.Path());
    EXPECT_THAT(contents, Contains(testing::AnyOfArray(places)));
}

TEST_F(Registration, UnregisteringLeavesTheRegistryAsItWas) {
    const BuiltModule module(BuiltModule::DefaultPath());
    ASSERT_EQ(module.RegisterServer(), S_OK);
    ASSERT_EQ(module.RegisterServer(), S_OK); // once more, as an installer may do
    ASSERT_GT(m_sandbox.Contents().size(), 400u);
    for (int times = 0; times < 2; ++times) { // the second time nothing is registered any more
        ASSERT_EQ(module.UnregisterServer(), S_OK);
        EXPECT_EQ(m_sandbox.Contents(), m_before);
    }
}

TEST_F(Registration, TakesThePathAsItIs) {
    const ModuleCopy copy(L"it's 100% {here} \x00E9");
    const BuiltModule module(copy.Path());
    ASSERT_EQ(module.RegisterServer(), S_OK);
    EXPECT_THAT(m_sandbox.Contents(), Contains(std::wstring(L"CLSID\\") + kEntryClass +
                                               L"\\InprocServer32 @ = REG_SZ " + copy.Path()));
    ASSERT_EQ(module.UnregisterServer(), S_OK);
    EXPECT_EQ(m_sandbox.Contents(), m_before);
}

TEST_F(Registration, EndsWithTheFirstKeyThatCannotBeMade) {
    const BuiltModule module(BuiltModule::DefaultPath());
    m_sandbox.MakeKey(L"Ghosthand.TreeItem", true); // the fourth class
    EXPECT_EQ(module.RegisterServer(), HRESULT_FROM_WIN32(ERROR_CHILD_MUST_BE_VOLATILE));
    EXPECT_TRUE(m_sandbox.HasKey(L"AppID\\Ghosthand.DLL"));
    EXPECT_TRUE(m_sandbox.HasKey(L"Ghosthand.CheckBox\\CurVer"));
    EXPECT_TRUE(m_sandbox.HasKey(L"Ghosthand.TreeItem.1"));
    EXPECT_FALSE(m_sandbox.HasKey(L"Ghosthand.TreeControl"));
    EXPECT_FALSE(m_sandbox.HasKey(std::wstring(L"TypeLib\\") + kLibrary));
}

TEST_F(Registration, EndsWithADamagedScript) {
    const ModuleCopy copy(L"damaged script");
    copy.Replace("Ghosthand.BaseWindow.1 = s", "Ghosthand.BaseWindow.1 = q");
    const BuiltModule module(copy.Path());
    EXPECT_EQ(module.RegisterServer(), HRESULT_FROM_WIN32(ERROR_INVALID_DATA));
    EXPECT_TRUE(m_sandbox.HasKey(L"Ghosthand.Ghosthand"));
    EXPECT_FALSE(m_sandbox.HasKey(L"Ghosthand.CheckBox"));
    EXPECT_FALSE(m_sandbox.HasKey(std::wstring(L"TypeLib\\") + kLibrary));
}

TEST_F(Registration, EndsWithAMissingScript) {
    const ModuleCopy copy(L"without scripts");
    copy.Replace(ResourceType(L"REGISTRY"), ResourceType(L"NOSCRIPT"));
    const BuiltModule module(copy.Path());
    EXPECT_EQ(module.RegisterServer(), HRESULT_FROM_WIN32(ERROR_RESOURCE_TYPE_NOT_FOUND));
    EXPECT_EQ(m_sandbox.Contents(), m_before);
}

TEST_F(Registration, FailsWithoutTheTypeLibrary) {
    const ModuleCopy copy(L"without the library");
    copy.Replace(ResourceType(L"TYPELIB"), ResourceType(L"NOTHING"));
    const BuiltModule module(copy.Path());
    EXPECT_EQ(module.RegisterServer(), TYPE_E_CANTLOADLIBRARY);
    EXPECT_TRUE(m_sandbox.HasKey(L"Ghosthand.RibCustomisationWidget"));
    EXPECT_FALSE(m_sandbox.HasKey(std::wstring(L"TypeLib\\") + kLibrary));
    EXPECT_EQ(module.UnregisterServer(), TYPE_E_CANTLOADLIBRARY);
    EXPECT_EQ(m_sandbox.Contents(), m_before);
}

} // namespace
