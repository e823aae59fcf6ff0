#include "script_runner.h"

#include "frame.h"
#include "script_engine.h"

#include <chrono>
#include <fstream>
#include <iterator>
#include <objbase.h>
#include <optional>
#include <windows.h>

namespace sample_host {
namespace {

constexpr std::chrono::seconds kEndTimeout{10};

// Standard output and, where one is asked for, a file. Both get each line at once.
class ScriptOutput {
public:
    explicit ScriptOutput(const std::string& file) {
        if (!file.empty())
            m_file.open(file, std::ios::binary);
    }

    void Print(const std::string& text) {
        const std::string line = text + "\r\n";
        DWORD written = 0;
        WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), line.data(), static_cast<DWORD>(line.size()), &written,
                  nullptr);
        if (m_file.is_open())
            m_file << line << std::flush;
    }

private:
    std::ofstream m_file;
};

std::optional<std::wstring> ReadScript(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream)
        return std::nullopt;
    const std::string text{std::istreambuf_iterator<char>(stream), {}};
    const int size = static_cast<int>(text.size());
    std::wstring wide(text.size(), L'\0'); // never longer than the ANSI text
    wide.resize(
        static_cast<std::size_t>(MultiByteToWideChar(CP_ACP, 0, text.data(), size, wide.data(), size)));
    return wide;
}

int Run(const ScriptOptions& options) {
    ScriptOutput output(options.outputFile);
    const auto print = [&](const std::string& line) { output.Print(line); };
    const auto text = ReadScript(options.file);
    if (!text) {
        print(options.file + ": cannot be read");
        return 1;
    }
    CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    const wchar_t* language = options.file.ends_with(".js") ? L"JScript" : L"VBScript";
    const int exitCode = RunScriptText(language, options.file, *text, print);
    CoUninitialize();
    return exitCode;
}

} // namespace

ScriptThread::ScriptThread(const ScriptOptions& options) {
    m_exitCode = std::async(std::launch::async, [options, loopEnded = m_loopEnded.get_future()] {
        const int exitCode = Run(options);
        if (!options.keepOpen) {
            EndHost(exitCode);
            if (loopEnded.wait_for(kEndTimeout) == std::future_status::timeout)
                TerminateProcess(GetCurrentProcess(), static_cast<UINT>(exitCode));
        }
        return exitCode;
    });
}

int ScriptThread::Wait() {
    m_loopEnded.set_value();
    // A script that sends a message to a window that is left over must not wait for ever.
    while (m_exitCode.wait_for(std::chrono::milliseconds(20)) != std::future_status::ready) {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageA(&message);
    }
    return m_exitCode.get();
}

} // namespace sample_host
