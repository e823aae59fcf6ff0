// The built type library against the listing of what scripts and compiled clients rely on.
#include <gmock/gmock.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>

#include "com/com_pointer.h"
#include "com/type_library_listing.h"
#include "support/environment.h"

namespace {

using support::ComPointer;

struct Member {
    std::string kind; // method, get, put
    std::string name;
    DISPID id = 0;
    std::vector<std::string> parameters; // names
};

ComPointer<ITypeLib> LoadBuiltLibrary() {
    const std::string path = support::PathFromEnvironment("GHOSTHAND_DLL");
    ComPointer<ITypeLib> library;
    support::Require(
        LoadTypeLibEx(std::wstring(path.begin(), path.end()).c_str(), REGKIND_NONE, library.Receive()),
        "LoadTypeLibEx");
    return library;
}

std::vector<std::string> ExpectedLines() {
    std::ifstream file(EXPECTED_TYPE_LIBRARY);
    std::vector<std::string> lines;
    for (std::string line; std::getline(file, line);) {
        if (line.ends_with('\r'))
            line.pop_back();
        lines.push_back(line);
    }
    return lines;
}

bool IsPut(const std::string& line) {
    return line.find(" put ") == line.find(' ', 2);
}

std::string HelpString(const std::string& line) {
    const std::size_t last = line.rfind('"');
    const std::size_t first = line.find("-> ");
    const std::size_t begin = line.find('"', first == std::string::npos ? 0 : first);
    return line.substr(begin + 1, last - begin - 1);
}

// The expected texts by their kind and name, such as "interface IGhosthand".
std::map<std::string, std::string> ExpectedTypes() {
    std::map<std::string, std::string> types;
    std::string* current = nullptr;
    for (std::string line : ExpectedLines()) {
        if (!line.starts_with(' ')) {
            current = &types[line.substr(0, line.find(" {"))];
        } else if (IsPut(line)) {
            line.erase(line.find(" \""));
        }
        *current += line + "\n";
    }
    return types;
}

TEST(TypeLibrary, DescribesEveryTypeAndMember) {
    const ComPointer<ITypeLib> library = LoadBuiltLibrary();
    std::map<std::string, std::string> expected = ExpectedTypes();
    ASSERT_EQ(expected.size(), 43u); // the library, an enumeration, 20 interfaces, 21 coclasses
    for (const std::string& type : support::TypeLibraryListing(*library)) {
        const std::string name = type.substr(0, type.find(" {"));
        ASSERT_TRUE(expected.contains(name)) << type;
        EXPECT_EQ(type, expected[name]);
        expected.erase(name);
    }
    EXPECT_THAT(expected, testing::IsEmpty());
}

// Their help strings cannot be asked for apart from those of the gets, so they are looked for in the file.
TEST(TypeLibrary, HoldsTheHelpStringsOfPuts) {
    const ComPointer<ITypeLib> library = LoadBuiltLibrary();
    const HMODULE module = LoadLibraryExA(support::PathFromEnvironment("GHOSTHAND_DLL").c_str(), nullptr,
                                          LOAD_LIBRARY_AS_DATAFILE);
    ASSERT_NE(module, nullptr);
    const HRSRC resource = FindResourceA(module, MAKEINTRESOURCEA(1), "TYPELIB");
    ASSERT_NE(resource, nullptr);
    const std::string_view bytes(static_cast<const char*>(LockResource(LoadResource(module, resource))),
                                 SizeofResource(module, resource));
    int puts = 0;
    for (const std::string& line : ExpectedLines())
        if (IsPut(line)) {
            ++puts;
            EXPECT_NE(bytes.find(HelpString(line)), std::string_view::npos) << line;
        }
    EXPECT_GT(puts, 15);
    FreeLibrary(module);
}

std::vector<std::string> ParameterNames(std::string parameters) {
    std::vector<std::string> names;
    std::istringstream stream(parameters);
    for (std::string parameter; std::getline(stream, parameter, ',');) {
        std::istringstream words(parameter);
        std::string type, name;
        words >> type >> name;
        names.push_back(name.substr(0, name.find('=')));
    }
    return names;
}

struct ExpectedInterface {
    std::string base;
    std::vector<Member> members;
};

std::map<std::string, ExpectedInterface> ExpectedInterfaces() {
    std::map<std::string, ExpectedInterface> interfaces;
    ExpectedInterface* current = nullptr;
    for (const std::string& line : ExpectedLines()) {
        std::istringstream words(line);
        std::string first, second, guid, colon, base;
        words >> first >> second >> guid >> colon >> base;
        if (first == "interface") {
            current = &interfaces[second];
            current->base = base;
        } else if (first.starts_with("0x")) {
            const std::size_t name = line.find(second) + second.size() + 1;
            const std::size_t open = line.find('(');
            current->members.push_back({second, line.substr(name, open - name),
                                        static_cast<DISPID>(std::stoul(first, nullptr, 16)),
                                        ParameterNames(line.substr(open + 1, line.find(") ->") - open - 1))});
        }
    }
    return interfaces;
}

// The members that a script finds by name; a derived interface's member hides its base's one.
void CollectMembers(const std::map<std::string, ExpectedInterface>& interfaces, const std::string& name,
                    std::map<std::string, Member>& members) {
    if (name == "IDispatch")
        return;
    const ExpectedInterface& one = interfaces.at(name);
    CollectMembers(interfaces, one.base, members);
    for (const Member& member : one.members)
        if (member.kind != "put")
            members[member.name] = member;
}

// What a script does to call a member with named arguments.
TEST(TypeLibrary, ResolvesNamesOfMembersAndArguments) {
    const ComPointer<ITypeLib> library = LoadBuiltLibrary();
    const std::map<std::string, ExpectedInterface> interfaces = ExpectedInterfaces();
    int resolved = 0;
    for (const auto& [interfaceName, unused] : interfaces) {
        std::wstring wideName(interfaceName.begin(), interfaceName.end());
        ComPointer<ITypeInfo> type;
        MEMBERID member = 0;
        USHORT found = 1;
        support::Require(library->FindName(wideName.data(), 0, type.Receive(), &member, &found), "FindName");
        ASSERT_EQ(found, 1) << interfaceName;
        std::map<std::string, Member> members;
        CollectMembers(interfaces, interfaceName, members);
        for (const auto& [name, expected] : members) {
            std::vector<std::wstring> names = {std::wstring(name.begin(), name.end())};
            for (const std::string& parameter : expected.parameters)
                names.emplace_back(parameter.begin(), parameter.end());
            std::vector<LPOLESTR> pointers;
            for (std::wstring& one : names)
                pointers.push_back(one.data());
            std::vector<MEMBERID> ids(names.size(), -2);
            EXPECT_EQ(type->GetIDsOfNames(pointers.data(), static_cast<UINT>(names.size()), ids.data()), S_OK)
                << interfaceName << '.' << name;
            EXPECT_EQ(ids[0], expected.id) << interfaceName << '.' << name;
            for (std::size_t place = 1; place < ids.size(); ++place)
                EXPECT_EQ(ids[place], static_cast<MEMBERID>(place - 1)) << interfaceName << '.' << name;
            ++resolved;
        }
    }
    EXPECT_GT(resolved, 1000);
}

} // namespace
