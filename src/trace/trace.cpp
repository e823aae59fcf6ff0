#include "trace/trace.h"

#include <atomic>
#include <cstddef>
#include <exception>
#include <memory>
#include <string>

#include <windows.h>

#include "trace/recorder.h"

namespace trace {

namespace {

// The recorder lives as long as the module: calls on other threads may still tell it something at the end of
// the process. Its destructor never runs.
alignas(Recorder) std::byte recorderStorage[sizeof(Recorder)];
std::atomic<Recorder*> recorder = nullptr;
std::atomic_flag hasLooked = ATOMIC_FLAG_INIT;

std::wstring AskedFolder() {
    std::wstring folder(32768, L'\0');
    folder.resize(
        GetEnvironmentVariableW(L"GHOSTHAND_TRACE", folder.data(), static_cast<DWORD>(folder.size())));
    return folder;
}

} // namespace

void StartIfAsked() noexcept {
    if (hasLooked.test_and_set()) {
        return;
    }
    try {
        const std::wstring folder = AskedFolder();
        if (folder.empty()) {
            return;
        }
        Recorder* const started = std::construct_at(reinterpret_cast<Recorder*>(recorderStorage), folder);
        if (started->IsWriting()) {
            recorder = started;
            engine::diagnostics::SetListener(started);
        }
    } catch (const std::exception&) {
        return; // no memory even for a name
    }
}

void Finish() noexcept {
    if (Recorder* const started = recorder.exchange(nullptr)) {
        engine::diagnostics::SetListener(nullptr);
        started->Finish();
    }
}

} // namespace trace
