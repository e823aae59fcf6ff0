// What the trace costs: off, against a build of the module from before (GHOSTHAND_DLL_BEFORE names its file),
// and on, against off.

#include "bench.h"

#include "automation/interfaces.h"
#include "com/built_module.h"
#include "com/com_pointer.h"
#include "com/late_bound.h"
#include "host_ids.h"
#include "support/environment.h"
#include "support/sample_host.h"

#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>

namespace {

using support::Ask;
using support::ComPointer;
using support::Require;

// A module in its first use, with the main window that it found.
class Driver {
public:
    explicit Driver(const std::wstring& module) : m_module(module) {
        ComPointer<IClassFactory> factory;
        Require(m_module.GetClassObject(CLSID_Ghosthand, IID_IClassFactory, factory.ReceiveVoid()),
                "class object");
        Require(factory->CreateInstance(nullptr, IID_IDispatch, m_entry.ReceiveVoid()), "CreateInstance");
        m_window.emplace(Ask(*m_entry.Get(), L"MainWindow", L"sample_host"));
        m_list.emplace(Ask(*m_window->Object(), L"ListView", LONG{0}, LONG{0x40}));
    }
    Driver(const Driver&) = delete;
    Driver& operator=(const Driver&) = delete;

    void ReadProperty() const { Ask(*m_window->Object(), L"Visible"); }
    void Search() const { Ask(*m_window->Object(), L"Edit", LONG{0}, LONG{0x40}, LONG{0}); }
    void SendRemotely() const { Ask(*m_list->Object(), L"GetItem", LONG{0}); }
    void Click() const {
        Ask(*m_window->Object(), L"Click", LONG{0}, LONG{3}, LONG{3});
        ReadProperty();
        Search();
        ReadProperty();
    }

private:
    support::BuiltModule m_module;
    ComPointer<IDispatch> m_entry;
    std::optional<support::Variant> m_window;
    std::optional<support::Variant> m_list;
};

// The module once more, with the trace on: another file is another module.
class TracedCopy {
public:
    explicit TracedCopy(const std::wstring& module)
        : m_folder(std::filesystem::temp_directory_path() /
                   ("ghosthand-bench-" + std::to_string(GetCurrentProcessId()))) {
        std::filesystem::create_directories(m_folder);
        const auto copy = m_folder / "traced.dll";
        std::filesystem::copy_file(module, copy, std::filesystem::copy_options::overwrite_existing);
        SetEnvironmentVariableW(L"GHOSTHAND_TRACE", m_folder.c_str());
        m_driver.emplace(copy.wstring());
        SetEnvironmentVariableW(L"GHOSTHAND_TRACE", nullptr);
    }
    ~TracedCopy() {
        m_driver.reset();
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
    }
    TracedCopy(const TracedCopy&) = delete;
    TracedCopy& operator=(const TracedCopy&) = delete;

    const Driver& Get() const { return *m_driver; }

private:
    std::filesystem::path m_folder;
    std::optional<Driver> m_driver;
};

void Measure(bench::Report& report) {
    OleInitialize(nullptr);
    {
        const support::SampleHost host("--page list-views");
        const std::wstring path = support::BuiltModule::DefaultPath();
        const Driver off(path);
        const TracedCopy traced(path);
        const Driver& on = traced.Get();
        if (const char* const before = std::getenv("GHOSTHAND_DLL_BEFORE")) {
            const Driver earlier(std::filesystem::path(before).wstring());
            const std::string name = "the build from before";
            report.Compare({"trace off: property read", [&] { off.ReadProperty(); }},
                           {name, [&] { earlier.ReadProperty(); }},
                           {.aim = 1.02, .rounds = 401, .repetitions = 200});
            report.Compare({"trace off: search", [&] { off.Search(); }}, {name, [&] { earlier.Search(); }},
                           {.aim = 1.02, .rounds = 201, .repetitions = 5});
            report.Compare({"trace off: remote send", [&] { off.SendRemotely(); }},
                           {name, [&] { earlier.SendRemotely(); }},
                           {.aim = 1.02, .rounds = 401, .repetitions = 5});
        }
        report.Compare({"trace on: click story", [&] { on.Click(); }}, {"trace off", [&] { off.Click(); }},
                       {.aim = 1.3, .rounds = 21});
        report.Compare({"trace on: property read", [&] { on.ReadProperty(); }},
                       {"trace off", [&] { off.ReadProperty(); }}, {.repetitions = 20});
    }
    OleUninitialize();
}

const bench::Registration kTrace("trace", Measure);

} // namespace
