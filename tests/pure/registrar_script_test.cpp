#include "server/registration_script.h"

#include <gmock/gmock.h>

#include <random>

namespace server {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

const std::wstring kPath = L"C:\\It's { here } = 100%\\server.dll";

// The usual shape of a class's script.
constexpr std::wstring_view kClassScript = LR"(HKCR
{
	Maker.Class.1 = s 'Class'
	{
		CLSID = s '{0000-1}'
	}
	NoRemove CLSID
	{
		ForceRemove {0000-1} = s 'The class''s name'
		{
			ForceRemove Programmable
			InprocServer32 = s '%MODULE%'
			{
				val ThreadingModel = s 'Apartment'
			}
			Delete Control
		}
	}
}
)";

std::vector<ScriptRoot> Parse(std::wstring_view script) {
    return ParseScript(script, {{L"MODULE", kPath}, {L"BRACE", L"}"}, {L"ZERO", std::wstring(1, L'\0')}});
}

std::wstring Text(const std::optional<ScriptValue>& value) {
    return value ? std::get<std::wstring>(*value) : L"(none)";
}

std::string Failure(std::wstring_view script) {
    try {
        Parse(script);
        return "no failure";
    } catch (const ScriptError& error) {
        return error.what();
    }
}

TEST(RegistrationScript, ReadsTheKeysOfAClass) {
    const std::vector<ScriptRoot> roots = Parse(kClassScript);
    ASSERT_EQ(roots.size(), 1u);
    EXPECT_EQ(roots[0].root, RootKey::ClassesRoot);
    ASSERT_EQ(roots[0].keys.size(), 2u);

    const ScriptKey& progId = roots[0].keys[0];
    EXPECT_EQ(progId.name, L"Maker.Class.1");
    EXPECT_EQ(progId.rule, KeyRule::Plain);
    EXPECT_EQ(Text(progId.defaultValue), L"Class");
    ASSERT_EQ(progId.keys.size(), 1u);
    EXPECT_EQ(Text(progId.keys[0].defaultValue), L"{0000-1}");

    const ScriptKey& classes = roots[0].keys[1];
    EXPECT_EQ(classes.rule, KeyRule::NoRemove);
    EXPECT_FALSE(classes.defaultValue);
    ASSERT_EQ(classes.keys.size(), 1u);
    const ScriptKey& one = classes.keys[0];
    EXPECT_EQ(one.name, L"{0000-1}");
    EXPECT_EQ(one.rule, KeyRule::ForceRemove);
    EXPECT_EQ(Text(one.defaultValue), L"The class's name");
    ASSERT_EQ(one.keys.size(), 3u);
    EXPECT_EQ(one.keys[0].rule, KeyRule::ForceRemove);
    EXPECT_EQ(Text(one.keys[1].defaultValue), kPath);
    ASSERT_EQ(one.keys[1].values.size(), 1u);
    EXPECT_EQ(one.keys[1].values[0].name, L"ThreadingModel");
    EXPECT_EQ(one.keys[2].rule, KeyRule::Delete);
    EXPECT_EQ(one.keys[2].name, L"Control");
}

TEST(RegistrationScript, ReadsEveryKindOfValue) {
    const std::vector<ScriptRoot> roots = Parse(LR"(
        HKEY_LOCAL_MACHINE { val a = e '%%Path%%' val b = d 4294967295 val c = d '0xfE' val '' = s ''
                             val d = b 00fF7e val e = b '' }
        HKCU { })");
    ASSERT_EQ(roots.size(), 2u);
    EXPECT_EQ(roots[0].root, RootKey::LocalMachine);
    EXPECT_EQ(roots[1].root, RootKey::CurrentUser);
    const std::vector<NamedValue>& values = roots[0].values;
    ASSERT_EQ(values.size(), 6u);
    EXPECT_EQ(std::get<ExpandableText>(values[0].value).text, L"%Path%");
    EXPECT_EQ(std::get<std::uint32_t>(values[1].value), 0xFFFFFFFF);
    EXPECT_EQ(std::get<std::uint32_t>(values[2].value), 0xFEu);
    EXPECT_EQ(values[3].name, L"");
    EXPECT_EQ(std::get<std::wstring>(values[3].value), L"");
    EXPECT_THAT(std::get<std::vector<std::uint8_t>>(values[4].value), ElementsAre(0x00, 0xFF, 0x7E));
    EXPECT_THAT(std::get<std::vector<std::uint8_t>>(values[5].value), ElementsAre());
}

TEST(RegistrationScript, QuotedKeyWordsAreNames) {
    const std::vector<ScriptRoot> roots =
        Parse(L"HKCR { 'val' 'Delete' = s x NoRemove 'NoRemove' { '{' } '}' }");
    ASSERT_EQ(roots[0].keys.size(), 4u);
    EXPECT_EQ(roots[0].keys[0].name, L"val");
    EXPECT_EQ(roots[0].keys[1].name, L"Delete");
    EXPECT_EQ(roots[0].keys[1].rule, KeyRule::Plain);
    EXPECT_EQ(roots[0].keys[2].name, L"NoRemove");
    EXPECT_EQ(roots[0].keys[2].rule, KeyRule::NoRemove);
    EXPECT_EQ(roots[0].keys[2].keys[0].name, L"{");
    EXPECT_EQ(roots[0].keys[3].name, L"}");
}

TEST(RegistrationScript, SaysWhatIsWrongAndWhere) {
    struct Damage {
        std::wstring_view script;
        const char* failure;
    };
    for (const Damage& damage : {
             Damage{L"", "line 1: a root key"},
             Damage{L"\n\nHKXX { }", "line 3: a root key"},
             Damage{L"'HKCR' { }", "line 1: a root key"},
             Damage{L"HKCR\nKey", "line 2: an opening brace"},
             Damage{L"HKCR {\n Key {\n }\n", "line 4: the name of a key or a closing brace"},
             Damage{L"HKCR { } }", "line 1: a root key"},
             Damage{L"HKCR { Key = }", "line 1: the kind of a value"},
             Damage{L"HKCR { Key = s }", "line 1: a value"},
             Damage{L"HKCR { Key =s 'x' }", "line 1: a blank is missing"},
             Damage{L"HKCR { Key = s'x' }", "line 1: a blank is missing"},
             Damage{L"HKCR { = s 'x' }", "line 1: the name of a key"},
             Damage{L"HKCR { { } }", "line 1: the name of a key"},
             Damage{L"HKCR { NoRemove }", "line 1: the name of a key"},
             Damage{L"HKCR { Delete Key = s 'x' }", "line 1: the name of a key"},
             Damage{L"HKCR {\n ''\n }", "line 2: a key has no name"},
             Damage{L"HKCR {\n ForceRemove '' }", "line 2: a key has no name"},
             Damage{L"HKCR {\n Above\\Below\n }", "line 2: the name of a key contains a backslash"},
             Damage{L"HKCR { '%MODULE%' }", "line 1: the name of a key contains a backslash"},
             Damage{L"HKCR { val x }", "line 1: an equals sign"},
             Damage{L"HKCR { val }", "line 1: the name of a value"},
             Damage{L"HKCR { val x =\n q 'x' }", "line 2: a value is of an unknown kind"},
             Damage{L"HKCR { val x = d 4294967296 }", "line 1: a number"},
             Damage{L"HKCR { val x = d -1 }", "line 1: a number"},
             Damage{L"HKCR { val x = d 0x }", "line 1: a number"},
             Damage{L"HKCR { val x = d '' }", "line 1: a number"},
             Damage{L"HKCR { val x = b 012 }", "line 1: bytes"},
             Damage{L"HKCR { val x = b 0g }", "line 1: bytes"},
             Damage{L"HKCR { Key = s 'open }\n}", "line 1: a text has no closing apostrophe"},
             Damage{L"HKCR { Key = s 'open''", "line 1: a text has no closing apostrophe"},
             Damage{L"HKCR { Key = s '%MODULE' }", "line 1: a replacement has no closing percent sign"},
             Damage{L"HKCR {\n Key = s '%NOBODY%' }", "line 2: a replacement is unknown"},
             Damage{L"HKCR { Key = s 'a%ZERO%b' }", "line 1: a text contains a zero character"},
         })
        EXPECT_THAT(Failure(damage.script), HasSubstr(damage.failure))
            << testing::PrintToString(damage.script);
}

TEST(RegistrationScript, ReplacedTextStaysInsideItsToken) {
    const std::vector<ScriptRoot> roots = Parse(L"HKCR { %BRACE% = s a%MODULE%b %BRACE% }");
    ASSERT_EQ(roots[0].keys.size(), 2u);
    EXPECT_EQ(roots[0].keys[0].name, L"}");
    EXPECT_EQ(Text(roots[0].keys[0].defaultValue), L"a" + kPath + L"b");
    EXPECT_EQ(roots[0].keys[1].name, L"}");
}

TEST(RegistrationScript, DeepNestingIsRefusedBeforeTheStackEnds) {
    const auto nested = [](int depth) {
        std::wstring script = L"HKCR { ";
        for (int level = 0; level < depth; ++level)
            script += L"k { ";
        for (int level = 0; level <= depth; ++level)
            script += L"} ";
        return script;
    };
    EXPECT_EQ(Failure(nested(500)), "no failure");
    EXPECT_THAT(Failure(nested(100000)), HasSubstr("nested too deeply"));
}

// What the registry's functions rely on.
void CheckNames(const std::vector<ScriptKey>& keys) {
    for (const ScriptKey& key : keys) {
        ASSERT_FALSE(key.name.empty());
        ASSERT_EQ(key.name.find_first_of(std::wstring_view(L"\\\0", 2)), std::wstring::npos);
        CheckNames(key.keys);
    }
}

TEST(RegistrationScript, DamagedScriptsAreReadOrRefused) {
    constexpr std::wstring_view kCharacters = std::wstring_view(L"{}=' \n%\\\0vsdbMODULE", 19);
    std::mt19937 random(1);
    int accepted = 0;
    int refused = 0;
    for (int round = 0; round < 10000; ++round) {
        std::wstring script(kClassScript);
        const unsigned changes = 1 + random() % 4;
        for (unsigned change = 0; change < changes; ++change) {
            const std::size_t position = random() % script.size();
            const wchar_t character = kCharacters[random() % kCharacters.size()];
            switch (random() % 4) {
            case 0:
                script.erase(position, 1 + random() % 20);
                break;
            case 1:
                script.insert(position, 1, character);
                break;
            case 2:
                script[position] = character;
                break;
            default:
                script.insert(position, script.substr(random() % script.size(), random() % 40));
                break;
            }
            script += L' '; // never empty
        }
        try {
            for (const ScriptRoot& root : Parse(script))
                CheckNames(root.keys);
            ++accepted;
        } catch (const ScriptError&) {
            ++refused;
        }
    }
    EXPECT_GT(accepted, 500);
    EXPECT_GT(refused, 1000);
}

} // namespace
} // namespace server
