// The VBScript examples of the documents, run against the sample host. tests/docs/examples.py makes the scripts.
#include "com/built_module.h"
#include "support/environment.h"
#include "support/program.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <vector>

namespace {

using support::BuiltModule;
using support::Program;
using testing::EndsWith;

constexpr int kScriptSeconds = 300; // a busy machine takes its time

std::vector<std::filesystem::path> Scripts() {
    std::vector<std::filesystem::path> scripts;
    for (const auto& file : std::filesystem::directory_iterator(EXAMPLES_FOLDER))
        scripts.push_back(file.path());
    std::ranges::sort(scripts);
    return scripts;
}

class DocumentExamples : public testing::TestWithParam<std::filesystem::path> {
protected:
    static void SetUpTestSuite() {
        ASSERT_EQ(BuiltModule(BuiltModule::DefaultPath()).RegisterServer(), S_OK);
    }
    static void TearDownTestSuite() { BuiltModule(BuiltModule::DefaultPath()).UnregisterServer(); }
};

// What a script wrote that the sample host ran within itself.
std::string RunWithin(const std::string& host, const std::string& script, const std::string& output) {
    std::string commandLine = host;
    commandLine += " --script \"" + script + "\" --output \"" + output + "\"";
    const Program program(commandLine);
    EXPECT_TRUE(program.WaitForEnd(kScriptSeconds)) << "the script does not come to its end";
    return support::ReadFile(output);
}

std::string RunOutside(const std::string& host, const std::string& script, const std::string& output) {
    const Program driven(host);
    {
        const Program scriptHost("cscript.exe //nologo \"" + script + "\"", output);
        EXPECT_TRUE(scriptHost.WaitForEnd(kScriptSeconds)) << "the script does not come to its end";
    }
    return support::ReadFile(output);
}

TEST_P(DocumentExamples, WriteWhatTheySay) {
    std::string host = "\"";
    host += support::PathFromEnvironment("GHOSTHAND_SAMPLE_HOST");
    host += "\"";
    auto script = GetParam();
    const auto output = std::filesystem::temp_directory_path() / script.filename().replace_extension(".txt");
    std::filesystem::remove(output);
    const bool isWithin = script.stem().extension() == ".within";
    script.make_preferred();
    EXPECT_THAT((isWithin ? RunWithin : RunOutside)(host, script.string(), output.string()),
                EndsWith("Done\r\n"));
}

INSTANTIATE_TEST_SUITE_P(Pages, DocumentExamples, testing::ValuesIn(Scripts()), [](const auto& file) {
    std::string name = file.param.stem().string();
    std::ranges::replace_if(name, [](unsigned char letter) { return std::isalnum(letter) == 0; }, '_');
    return name;
});

} // namespace
