#include "engine/thread_idle.h"

#include "engine/performance_data_layout.h"

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <cstdio>
#include <memory>
#include <string>
#include <winperf.h>
#include <winreg.h>

namespace engine {
namespace {

namespace layout = performance_layout;

static_assert(offsetof(PERF_DATA_BLOCK, HeaderLength) == layout::header::kLength);
static_assert(offsetof(PERF_DATA_BLOCK, NumObjectTypes) == layout::header::kObjectCount);
static_assert(sizeof(PERF_DATA_BLOCK) == layout::header::kSize);
static_assert(offsetof(PERF_OBJECT_TYPE, TotalByteLength) == 0);
static_assert(offsetof(PERF_OBJECT_TYPE, DefinitionLength) == layout::object::kDefinitionLength);
static_assert(offsetof(PERF_OBJECT_TYPE, HeaderLength) == layout::object::kHeaderLength);
static_assert(offsetof(PERF_OBJECT_TYPE, ObjectNameTitleIndex) == layout::object::kNameIndex);
static_assert(offsetof(PERF_OBJECT_TYPE, NumCounters) == layout::object::kCounterCount);
static_assert(offsetof(PERF_OBJECT_TYPE, NumInstances) == layout::object::kInstanceCount);
static_assert(sizeof(PERF_OBJECT_TYPE) == layout::object::kSize);
static_assert(offsetof(PERF_COUNTER_DEFINITION, CounterNameTitleIndex) == layout::counter::kNameIndex);
static_assert(offsetof(PERF_COUNTER_DEFINITION, CounterOffset) == layout::counter::kValueOffset);
static_assert(sizeof(PERF_COUNTER_DEFINITION) == layout::counter::kSize);
static_assert(sizeof(PERF_INSTANCE_DEFINITION) == layout::instance::kSize);
static_assert(sizeof(PERF_COUNTER_BLOCK) == layout::counter_block::kSize);

constexpr DWORD kFirstBlockSize = 0x1E000;
constexpr DWORD kBlockSizeStep = 16384;
// Far beyond the data of any real system: ends the retries if the query never has enough.
constexpr DWORD kLargestBlockSize = 64 * 1024 * 1024;

// What sufficed last time, so that a system with thousands of threads is not asked a dozen times per query.
std::atomic<DWORD> lastBlockSize{kFirstBlockSize};

// Whether a query has opened the performance data, which the system does silently.
std::atomic<bool> isOpen = false;

} // namespace

ThreadIdleState QueryThreadIdle(DWORD threadId) {
    if (threadId == 0 || threadId == GetCurrentThreadId())
        return ThreadIdleState::CannotTell;

    const std::string valueName = std::to_string(layout::kThreadObject);
    isOpen = true;
    for (DWORD capacity = lastBlockSize;; capacity += kBlockSizeStep) {
        const auto block = std::make_unique_for_overwrite<std::byte[]>(capacity);
        // What the size holds after a refusal is undefined for performance data: it is set for each try.
        DWORD size = capacity;
        const LSTATUS status = RegQueryValueExA(HKEY_PERFORMANCE_DATA, valueName.c_str(), nullptr, nullptr,
                                                reinterpret_cast<BYTE*>(block.get()), &size);
        if (status == ERROR_SUCCESS) {
            lastBlockSize = capacity;
            return FindThreadIdleState({block.get(), std::min(size, capacity)}, threadId);
        }
        if (status != ERROR_MORE_DATA || capacity >= kLargestBlockSize) {
            std::printf("Registry query failed for %s.\n", valueName.c_str());
            return ThreadIdleState::CannotTell;
        }
    }
}

void ReleasePerformanceData() noexcept {
    if (isOpen.exchange(false)) {
        RegCloseKey(HKEY_PERFORMANCE_DATA);
    }
}

} // namespace engine
