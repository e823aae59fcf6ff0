#include "server/registrar.h"

#include <gmock/gmock.h>

#include "com/registration_sandbox.h"

namespace server {
namespace {

using support::RegistrationSandbox;
using testing::ElementsAre;
using testing::IsEmpty;

using Lines = std::vector<std::wstring>;

HRESULT Register(std::wstring_view script) {
    return RegisterKeys(ParseScript(script, {}));
}
HRESULT Unregister(std::wstring_view script) {
    return UnregisterKeys(ParseScript(script, {}));
}

TEST(Registrar, WritesKeysAndValuesAndTakesThemBack) {
    RegistrationSandbox sandbox;
    constexpr std::wstring_view kScript = LR"(HKEY_CLASSES_ROOT {
        Maker.Class = s 'Name' { Empty  Below { Deep = s '' } }
        Values { val Text = s 'x y' val Expand = e '%%P%%' val Number = d 70000 val Bytes = b 00ff val No = b '' }
    })";
    EXPECT_EQ(Register(kScript), S_OK);
    EXPECT_THAT(sandbox.Contents(),
                ElementsAre(L"Maker.Class", L"Maker.Class @ = REG_SZ Name", L"Maker.Class\\Below",
                            L"Maker.Class\\Below\\Deep", L"Maker.Class\\Below\\Deep @ = REG_SZ ",
                            L"Maker.Class\\Empty", L"Values", L"Values Bytes = type 3: 0 255",
                            L"Values Expand = REG_EXPAND_SZ %P%", L"Values No = type 3:",
                            L"Values Number = REG_DWORD 70000", L"Values Text = REG_SZ x y"));
    EXPECT_EQ(Register(kScript), S_OK); // once more changes nothing
    EXPECT_EQ(sandbox.Contents().size(), 12u);
    EXPECT_EQ(Unregister(kScript), S_OK);
    EXPECT_THAT(sandbox.Contents(), IsEmpty());
    EXPECT_EQ(Unregister(kScript), S_OK); // what is missing is no failure
}

TEST(Registrar, KeysOfOthersSurvive) {
    RegistrationSandbox sandbox;
    sandbox.SetText(L"Kept", L"", L"default of others");
    sandbox.SetText(L"Kept", L"value of others", L"1");
    sandbox.MakeKey(L"Kept\\key of others");
    const Lines before = sandbox.Contents();
    constexpr std::wstring_view kScript = L"HKCR { NoRemove Kept { val Ours = s '1' Ours { Deep } } }";
    EXPECT_EQ(Register(kScript), S_OK);
    EXPECT_EQ(sandbox.Contents().size(), before.size() + 3);
    EXPECT_EQ(Unregister(kScript), S_OK);
    EXPECT_EQ(sandbox.Contents(), before);
}

TEST(Registrar, AKeyStaysWhileOthersHaveKeysInIt) {
    RegistrationSandbox sandbox;
    constexpr std::wstring_view kScript = L"HKCR { Shared = s 'ours' { val Ours = s '1' Deep } }";
    EXPECT_EQ(Register(kScript), S_OK);
    sandbox.SetText(L"Shared", L"theirs", L"1");
    sandbox.MakeKey(L"Shared\\Theirs");
    EXPECT_EQ(Unregister(kScript), S_OK);
    EXPECT_THAT(sandbox.Contents(), ElementsAre(L"Shared", L"Shared theirs = REG_SZ 1", L"Shared\\Theirs"));
}

TEST(Registrar, ForceRemoveStartsAfreshAndLeavesNothing) {
    RegistrationSandbox sandbox;
    sandbox.SetText(L"Class\\Old\\Deep", L"old", L"1");
    sandbox.SetText(L"Gone\\Deep", L"old", L"1");
    constexpr std::wstring_view kScript = L"HKCR { ForceRemove Class { New } Delete Gone }";
    EXPECT_EQ(Register(kScript), S_OK);
    EXPECT_THAT(sandbox.Contents(), ElementsAre(L"Class", L"Class\\New"));
    sandbox.MakeKey(L"Class\\Theirs\\Deep");
    sandbox.MakeKey(L"Gone");
    EXPECT_EQ(Unregister(kScript), S_OK);
    EXPECT_THAT(sandbox.Contents(), ElementsAre(L"Gone"));
}

TEST(Registrar, TheFirstFailureEndsTheScript) {
    RegistrationSandbox sandbox;
    sandbox.MakeKey(L"Volatile", true);
    EXPECT_EQ(Register(L"HKCR { First NoRemove Volatile { Child } Last } HKCR { Later }"),
              HRESULT_FROM_WIN32(ERROR_CHILD_MUST_BE_VOLATILE));
    EXPECT_THAT(sandbox.Contents(), ElementsAre(L"First", L"Volatile"));
}

} // namespace
} // namespace server
