// A page of the sample host with the controls under test: one host for all tests of a suite.
#pragma once

#include "hostlink/module_instance.h"
#include "support/sample_host.h"
#include "support/this_module.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace support {

// A message as the host saw it.
struct Seen {
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    bool posted;

    friend bool operator==(const Seen&, const Seen&) = default;
    friend std::ostream& operator<<(std::ostream& stream, const Seen& seen) {
        return stream << (seen.posted ? "posted " : "sent ") << std::hex << seen.message << " " << seen.wParam
                      << " " << seen.lParam << std::dec;
    }
};
inline Seen Sent(UINT message, WPARAM wParam, LPARAM lParam) {
    return {message, wParam, lParam, false};
}
inline Seen Posted(UINT message, WPARAM wParam, LPARAM lParam) {
    return {message, wParam, lParam, true};
}
inline LPARAM Handle(HWND window) {
    return reinterpret_cast<LPARAM>(window);
}

// Suite: the fixture itself, with kPage, what --page takes, and kName, the window that it opens.
template <class Suite>
class ControlPage : public testing::Test {
protected:
    static void SetUpTestSuite() {
        hostlink::SetModuleInstance(ThisModule());
        s_host = std::make_unique<SampleHost>(std::string("--page ") + Suite::kPage);
        ASSERT_NE(s_host->WaitForWindow(Suite::kName), nullptr);
    }
    static void TearDownTestSuite() { s_host.reset(); }

    void SetUp() override { s_host->ClearLog(); }

    static const SampleHost& Host() { return *s_host; }
    static HWND Page() { return s_host->Window(Suite::kName); }
    // A control of the page, told by its identifier.
    static HWND Control(unsigned id) {
        return s_host->Window(std::string(Suite::kName) + "." + std::to_string(id));
    }

    // Those of the messages that the window got, in order.
    static std::vector<Seen> SeenBy(HWND window, const std::vector<UINT>& messages) {
        std::vector<Seen> seen;
        for (const sample_host::LogRecord& record : s_host->Log().Records()) {
            if (record.window == reinterpret_cast<std::uintptr_t>(window) &&
                std::find(messages.begin(), messages.end(), record.message) != messages.end()) {
                seen.push_back({record.message, static_cast<WPARAM>(record.wParam),
                                static_cast<LPARAM>(record.lParam),
                                record.delivery == sample_host::Delivery::Posted});
            }
        }
        return seen;
    }

private:
    static inline std::unique_ptr<SampleHost> s_host;
};

} // namespace support
