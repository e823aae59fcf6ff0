// The built module as its clients meet it: calls by name, the search for a main window, the price of a wait,
// and what a driven program has to load.

#include "bench.h"

#include "automation/interfaces.h"
#include "com/built_module.h"
#include "com/com_pointer.h"
#include "com/late_bound.h"
#include "engine/wait_loop.h"
#include "engine/window_finders.h"
#include "support/sample_host.h"

#include <algorithm>
#include <chrono>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using support::ComPointer;
using support::Require;

class ComOfThread {
public:
    ComOfThread() { OleInitialize(nullptr); }
    ~ComOfThread() { OleUninitialize(); }
    ComOfThread(const ComOfThread&) = delete;
    ComOfThread& operator=(const ComOfThread&) = delete;
};

ComPointer<IBaseWindow> MainWindow(const support::BuiltModule& module) {
    ComPointer<IClassFactory> factory;
    Require(module.GetClassObject(CLSID_Ghosthand, IID_IClassFactory, factory.ReceiveVoid()), "class object");
    ComPointer<IGhosthand> entry;
    Require(factory->CreateInstance(nullptr, IID_IGhosthand, entry.ReceiveVoid()), "CreateInstance");
    ComPointer<IBaseWindow> window;
    const BSTR name = SysAllocString(L"sample_host");
    const HRESULT result = entry->MainWindow(name, nullptr, nullptr, 0, 10, window.Receive());
    SysFreeString(name);
    Require(result, "MainWindow");
    return window;
}

void MeasureCalls(bench::Report& report) {
    const ComOfThread com;
    const support::SampleHost host;
    const support::BuiltModule module(support::BuiltModule::DefaultPath());
    const auto window = MainWindow(module);
    std::wstring name = L"EnabledTimeout";
    LPOLESTR names[] = {name.data()};
    DISPID id = 0;
    Require(window->GetIDsOfNames(IID_NULL, names, 1, 0, &id), "GetIDsOfNames");
    LONG timeout = 0;
    const bench::Contender direct = {"vtable call", [&] { window->get_EnabledTimeout(&timeout); }};
    report.Compare({"property read by DISPID",
                    [&] {
                        DISPPARAMS none = {};
                        support::Variant result;
                        window->Invoke(id, IID_NULL, 0, DISPATCH_PROPERTYGET, &none, &result.Value(), nullptr,
                                       nullptr);
                    }},
                   direct, {.repetitions = 1000});
    report.Compare({"property read by name", [&] { support::Ask(*window.Get(), L"EnabledTimeout"); }}, direct,
                   {.repetitions = 1000});
    report.Compare({"property read by DISPID of a property that asks the window",
                    [&] { support::Ask(*window.Get(), L"Width"); }},
                   {"vtable call", [&] { window->get_Width(&timeout); }}, {.repetitions = 100});
}

// Each with a window of its own, as programs have.
class Programs {
public:
    explicit Programs(int count) {
        char path[MAX_PATH];
        GetSystemDirectoryA(path, sizeof path);
        for (int started = 0; started < count; ++started) {
            std::string command = std::string(path) + "\\notepad.exe";
            STARTUPINFOA startup{};
            startup.cb = sizeof startup;
            startup.dwFlags = STARTF_USESHOWWINDOW;
            startup.wShowWindow = SW_SHOWNOACTIVATE;
            PROCESS_INFORMATION process{};
            if (!CreateProcessA(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                                &startup, &process)) {
                throw std::runtime_error("notepad cannot be started");
            }
            CloseHandle(process.hThread);
            m_processes.push_back(process.hProcess);
            WaitForInputIdle(process.hProcess, 30000);
        }
    }
    ~Programs() {
        for (const HANDLE process : m_processes) {
            TerminateProcess(process, 0);
            WaitForSingleObject(process, INFINITE);
            CloseHandle(process);
        }
    }
    Programs(const Programs&) = delete;
    Programs& operator=(const Programs&) = delete;

private:
    std::vector<HANDLE> m_processes;
};

HWND FindHost() {
    return engine::FindMainWindow("sample_host", "", "", 0);
}

double MedianOfSearch() {
    std::vector<double> times;
    for (int round = 0; round < 31; ++round) {
        const auto start = std::chrono::steady_clock::now();
        FindHost();
        times.push_back(
            std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - start).count());
    }
    std::nth_element(times.begin(), times.begin() + 15, times.end());
    return times[15];
}

BOOL CALLBACK CountVisible(HWND window, LPARAM count) {
    *reinterpret_cast<int*>(count) += IsWindowVisible(window) ? 1 : 0;
    return TRUE;
}

void MeasureMainWindow(bench::Report& report) {
    const support::SampleHost host;
    const double alone = MedianOfSearch();
    const Programs programs(50);
    if (FindHost() != host.Frame()) {
        throw std::runtime_error("the main window is not found among the programs");
    }
    report.Ratio("main window among 50 programs / among none", MedianOfSearch(), alone, "us");
    int visible = 0;
    report.Compare({"main window among 50 programs", [] { FindHost(); }},
                   {"an enumeration of the visible windows",
                    [&] { EnumWindows(CountVisible, reinterpret_cast<LPARAM>(&visible)); }},
                   {.rounds = 31});
}

double CpuMilliseconds() {
    FILETIME created, ended, kernel, user;
    GetProcessTimes(GetCurrentProcess(), &created, &ended, &kernel, &user);
    const auto ticks = [](const FILETIME& time) {
        return static_cast<double>(static_cast<std::uint64_t>(time.dwHighDateTime) << 32 |
                                   time.dwLowDateTime);
    };
    return (ticks(kernel) + ticks(user)) / 10000;
}

void MeasureWait(bench::Report& report) {
    const support::SampleHost host;
    constexpr int kSeconds = 5;
    const double before = CpuMilliseconds();
    engine::Wait(
        kSeconds, [] { return false; }, "");
    const double idle = CpuMilliseconds();
    engine::Wait(
        kSeconds,
        [&] {
            return engine::FindControl(host.Frame(), engine::kEdit, 9999, engine::kAnyDescendant) != nullptr;
        },
        "");
    const double searching = CpuMilliseconds();
    report.Ratio("CPU time of a wait / its duration", idle - before, kSeconds * 1000, "ms");
    report.Ratio("CPU time of a wait that searches / its duration", searching - idle, kSeconds * 1000, "ms");
}

std::vector<std::string> ImportedModules(const std::vector<char>& image) {
    const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(image.data());
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS64*>(image.data() + dos->e_lfanew);
    const IMAGE_SECTION_HEADER* const sections = IMAGE_FIRST_SECTION(headers);
    const auto at = [&](DWORD address) -> const char* {
        for (int index = 0; index < headers->FileHeader.NumberOfSections; ++index) {
            const IMAGE_SECTION_HEADER& section = sections[index];
            if (address >= section.VirtualAddress &&
                address < section.VirtualAddress + section.SizeOfRawData) {
                return image.data() + section.PointerToRawData + (address - section.VirtualAddress);
            }
        }
        throw std::runtime_error("the module's image is damaged");
    };
    std::vector<std::string> names;
    const DWORD directory =
        headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT].VirtualAddress;
    for (auto* entry = reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(at(directory)); entry->Name != 0;
         ++entry) {
        names.emplace_back(at(entry->Name));
    }
    return names;
}

void MeasureImage(bench::Report& report) {
    const std::string path = support::PathFromEnvironment("GHOSTHAND_DLL");
    std::ifstream file(path, std::ios::binary);
    const std::vector<char> image{std::istreambuf_iterator<char>(file), {}};
    report.Fact("size of the module", std::to_string(image.size() / 1024) + " KB");
    std::string imports;
    for (const std::string& name : ImportedModules(image)) {
        imports += imports.empty() ? name : " " + name;
    }
    report.Fact("imports", imports);
    // A program that a hook maps the module into has its imports loaded already.
    for (const std::string& name : ImportedModules(image)) {
        LoadLibraryA(name.c_str());
    }
    report.Compare({"load and unload of the module", [&] { FreeLibrary(LoadLibraryA(path.c_str())); }},
                   {"load and unload of a system library (dbghelp.dll)",
                    [] { FreeLibrary(LoadLibraryA("dbghelp.dll")); }},
                   {.rounds = 51});
}

const bench::Registration kCalls("calls", MeasureCalls);
const bench::Registration kMainWindow("main window", MeasureMainWindow);
const bench::Registration kWait("wait", MeasureWait);
const bench::Registration kImage("module", MeasureImage);

} // namespace
