// What a message with a parameter block costs, against a plain message and against the usual technique.

#include "bench.h"
#include "host_memory.h"

#include "hostlink/module_instance.h"
#include "hostlink/remote_send.h"
#include "support/sample_host.h"

#include <array>
#include <stdexcept>

namespace {

// A message that means nothing to the window.
constexpr UINT kIgnored = WM_APP;

void Measure(bench::Report& report) {
    // A window that the sample host does not watch: its log would cost more than the messages do.
    const support::SampleHost host("--many-children 1");
    HWND edit = nullptr;
    support::Eventually([&] {
        edit = FindWindowExA(FindWindowA(sample_host::ids::kTreeClass, nullptr), nullptr, "Edit", nullptr);
        return edit != nullptr;
    });
    const hostlink::HostWindow target = {edit, host.ThreadId()};
    const HANDLE process = OpenProcess(PROCESS_ALL_ACCESS, FALSE, host.ProcessId());
    std::array<std::byte, 64> block = {};
    if (!hostlink::TryRemoteSend(target, kIgnored, 0, block)) {
        throw std::runtime_error("remote send does not reach the sample host");
    }

    const bench::Contender remoteSend = {"remote send of 64 bytes",
                                         [&] { hostlink::RemoteSend(target, kIgnored, 0, block); }};
    const bench::Contender plain = {"plain SendMessageA",
                                    [&] { SendMessageA(target.window, kIgnored, 0, 0); }};
    const bench::Contender hostMemory = {
        "allocate, write, send, read", [&] {
            const bench::HostMemory memory(process, block.size());
            WriteProcessMemory(process, memory.Address(), block.data(), block.size(), nullptr);
            SendMessageA(target.window, kIgnored, 0, reinterpret_cast<LPARAM>(memory.Address()));
            ReadProcessMemory(process, memory.Address(), block.data(), block.size(), nullptr);
        }};
    report.Compare(remoteSend, plain, {.aim = 2.0, .rounds = 1001});
    report.Compare(remoteSend, hostMemory, {.aim = 0.6, .rounds = 1001});
    CloseHandle(process);
}

const bench::Registration kRemoteSend("remote send", Measure);

} // namespace
