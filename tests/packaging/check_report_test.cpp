#include <gmock/gmock.h>

#include "ghosthand/check_report.h"

#include <algorithm>

namespace {

using namespace apps;
using testing::AllOf;
using testing::Contains;
using testing::Field;
using testing::HasSubstr;
using testing::Not;

constexpr char kPath[] = "C:\\Program Files\\Ghosthand\\ghosthand.dll";

CheckFacts Healthy() {
    CheckFacts facts;
    facts.toolVersion = "1.2.3.0";
    facts.neighbour = kPath;
    facts.registrations = {{false, kPath, ModuleKind::Bits64, "1.2.3.0", {}}};
    facts.typeLibraryVersion = "1.0";
    facts.scales = {150};
    return facts;
}

testing::Matcher<std::vector<CheckLine>> Says(Verdict verdict, const std::string& text,
                                              const std::string& advice) {
    return Contains(AllOf(Field(&CheckLine::verdict, verdict), Field(&CheckLine::text, HasSubstr(text)),
                          Field(&CheckLine::advice, HasSubstr(advice))));
}

auto HasNothingBut(Verdict verdict) {
    return testing::Each(Field(&CheckLine::verdict, verdict));
}

TEST(CheckReport, FindsNothingWrongWithAHealthyMachine) {
    CheckFacts facts = Healthy();
    facts.program = "cad";
    facts.programs = {{.name = "cad.exe (process 7)", .hasWindow = true, .answers = true}};
    const auto lines = CheckReport(facts);
    EXPECT_THAT(lines, HasNothingBut(Verdict::Good));
    EXPECT_THAT(TextOf(lines), HasSubstr("OK       Registered for all users: " + std::string(kPath) + "\n"));
    EXPECT_THAT(TextOf(lines), HasSubstr("cad.exe (process 7) runs"));
}

TEST(CheckReport, TellsHowToRegister) {
    CheckFacts facts = Healthy();
    facts.registrations.clear();
    facts.objectError = "0x800401F3";
    const auto lines = CheckReport(facts);
    EXPECT_THAT(lines, Says(Verdict::Problem, "not registered", "ghosthand register --user"));
    EXPECT_EQ(std::ranges::count(lines, Verdict::Problem, &CheckLine::verdict), 1);
}

TEST(CheckReport, NamesWhatARegistrationLacksAndMendsItInItsOwnPlace) {
    CheckFacts facts = Healthy();
    facts.registrations[0].isForCurrentUser = true;
    facts.registrations[0].faults = {"Ghosthand.TreeItem.1 is missing", "TypeLib is missing"};
    EXPECT_THAT(CheckReport(facts), Says(Verdict::Problem, "Ghosthand.TreeItem.1 is missing, and 1 more",
                                         "ghosthand register --user"));
    facts.registrations[0] = {false, "", ModuleKind::Missing, "", {}};
    EXPECT_THAT(CheckReport(facts),
                Says(Verdict::Problem, "stopped halfway", "ghosthand register, in a prompt"));
}

TEST(CheckReport, TellsOfFilesThatCannotServe) {
    CheckFacts facts = Healthy();
    for (const auto& [kind, text] :
         {std::pair(ModuleKind::Missing, "is not there"), std::pair(ModuleKind::NotAModule, "damaged"),
          std::pair(ModuleKind::Bits32, "not a 64-bit one")}) {
        facts.registrations[0].kind = kind;
        EXPECT_THAT(CheckReport(facts), Says(Verdict::Problem, text, "ghosthand register"));
    }
    facts.registrations[0] = {false, kPath, ModuleKind::Bits64, "1.2.2.0", {}};
    EXPECT_THAT(CheckReport(facts), Says(Verdict::Note, "another version: 1.2.3.0", "register"));
}

TEST(CheckReport, TellsCopiesApart) {
    CheckFacts facts = Healthy();
    facts.loaded = {{"c:\\program files\\ghosthand\\GHOSTHAND.DLL", {"cad.exe (process 7)"}}};
    auto lines = CheckReport(facts);
    EXPECT_THAT(lines, Says(Verdict::Note, "Held at the moment by cad.exe (process 7)", "close"));
    EXPECT_THAT(lines, Not(Contains(Field(&CheckLine::verdict, Verdict::Problem))));

    facts.loaded = {{"D:\\old\\ghosthand.dll", {"cad.exe (process 7)"}}};
    EXPECT_THAT(CheckReport(facts), Says(Verdict::Problem, "not the registered one", "Close"));

    facts.loaded.clear();
    facts.neighbour = "D:\\build\\ghosthand.dll";
    EXPECT_THAT(CheckReport(facts), Says(Verdict::Note, "D:\\build\\ghosthand.dll", "register"));

    facts.neighbour.clear();
    facts.registrations.insert(facts.registrations.begin(),
                               {true, "D:\\mine\\ghosthand.dll", ModuleKind::Bits64, "1.2.3.0", {}});
    EXPECT_THAT(CheckReport(facts), Says(Verdict::Problem, "Two copies", "ghosthand unregister --user"));
    facts.registrations[0].path = kPath;
    EXPECT_THAT(CheckReport(facts), HasNothingBut(Verdict::Good));
}

TEST(CheckReport, KnowsThatAdministratorsDoNotSeeAUsersRegistration) {
    CheckFacts facts = Healthy();
    facts.registrations[0].isForCurrentUser = true;
    facts.objectError = "0x80040154";
    EXPECT_THAT(CheckReport(facts), Says(Verdict::Problem, "0x80040154", "allow ghosthand.dll"));
    facts.isElevated = true;
    EXPECT_THAT(CheckReport(facts), Says(Verdict::Problem, "0x80040154", "runs as administrator"));
}

TEST(CheckReport, LooksAtTheDesktop) {
    CheckFacts facts = Healthy();
    facts.isService = true;
    EXPECT_THAT(CheckReport(facts), Says(Verdict::Problem, "no interactive desktop", "session of a user"));
    facts.isService = false;
    facts.isLocked = true;
    EXPECT_THAT(CheckReport(facts), Says(Verdict::Problem, "locked", "Unlock"));
    facts.isLocked = false;
    facts.isRemote = true;
    facts.areCountersReadable = false;
    facts.scales = {100, 150};
    const auto lines = CheckReport(facts);
    EXPECT_THAT(lines, Says(Verdict::Note, "remote", "minimised"));
    EXPECT_THAT(lines, Says(Verdict::Note, "performance counters", "lodctr /R"));
    EXPECT_THAT(lines, Says(Verdict::Note, "100 %, 150 %", "one display"));
    EXPECT_THAT(lines, Not(Contains(Field(&CheckLine::verdict, Verdict::Problem))));
}

TEST(CheckReport, SaysWhyAProgramCannotBeDriven) {
    CheckFacts facts = Healthy();
    facts.program = "cad";
    EXPECT_THAT(CheckReport(facts), Says(Verdict::Problem, "begins with 'cad'", "Start it"));

    const ProgramState good{.name = "cad.exe", .hasWindow = true, .answers = true};
    const auto reportOn = [&](void (*spoil)(ProgramState&)) {
        ProgramState program = good;
        spoil(program);
        facts.programs = {program};
        return CheckReport(facts);
    };
    EXPECT_THAT(reportOn([](ProgramState& program) { program.is32Bit = true; }),
                Says(Verdict::Problem, "32-bit", "64-bit"));
    EXPECT_THAT(reportOn([](ProgramState& program) { program.answers = false; }),
                Says(Verdict::Problem, "does not answer", "Wait"));
    EXPECT_THAT(reportOn([](ProgramState& program) { program.hasWindow = false; }),
                Says(Verdict::Problem, "no window", "Wait"));
    EXPECT_THAT(reportOn([](ProgramState& program) { program.isInOtherSession = true; }),
                Says(Verdict::Problem, "another session", "desktop"));
    EXPECT_THAT(reportOn([](ProgramState& program) { program.isReadable = false; }),
                Says(Verdict::Problem, "more rights", "administrator"));
    const auto elevate = [](ProgramState& program) { program.isElevated = true; };
    EXPECT_THAT(reportOn(elevate), Says(Verdict::Problem, "more rights", "administrator"));
    facts.isElevated = true;
    EXPECT_THAT(reportOn(elevate), HasNothingBut(Verdict::Good));
}

TEST(CheckReport, SetsEachLineOfAdviceBelowItsFinding) {
    EXPECT_EQ(
        TextOf({{Verdict::Problem, "It is broken", "Do this\nor that"}, {Verdict::Note, "It is old", ""}}),
        "PROBLEM  It is broken\n         Do this\n         or that\nNote     It is old\n");
}

// The start of a module: its header stands at `header`.
std::vector<std::byte> ModuleStart(std::size_t header, unsigned machine, unsigned characteristics) {
    std::vector<std::byte> bytes(header + 24);
    const auto put = [&bytes](std::size_t offset, unsigned value) {
        bytes[offset] = static_cast<std::byte>(value & 0xFF);
        bytes[offset + 1] = static_cast<std::byte>(value >> 8);
    };
    put(0, 0x5A4D);
    put(0x3C, static_cast<unsigned>(header));
    put(header, 0x4550);
    put(header + 4, machine);
    put(header + 22, characteristics);
    return bytes;
}

TEST(ModuleFile, IsToldByItsHeader) {
    EXPECT_EQ(KindOfModule(ModuleStart(0x80, 0x8664, 0x2022)), ModuleKind::Bits64);
    EXPECT_EQ(KindOfModule(ModuleStart(0x100, 0x014C, 0x2102)), ModuleKind::Bits32);
    EXPECT_EQ(KindOfModule(ModuleStart(0x80, 0xAA64, 0x2022)), ModuleKind::OtherProcessor);
    EXPECT_EQ(KindOfModule(ModuleStart(0x80, 0x8664, 0x0022)), ModuleKind::NotAModule) << "a program";
}

TEST(ModuleFile, SurvivesAnyBytes) {
    const auto whole = ModuleStart(0x80, 0x8664, 0x2022);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        EXPECT_EQ(KindOfModule(std::vector(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size))),
                  ModuleKind::NotAModule);
    }
    for (const std::byte high : {std::byte{0x7F}, std::byte{0xFF}}) {
        auto wild = whole;
        std::fill_n(wild.begin() + 0x3C, 4, high);
        EXPECT_EQ(KindOfModule(wild), ModuleKind::NotAModule);
    }
}

} // namespace
