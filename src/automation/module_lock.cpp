#include "automation/module_lock.h"

#include <atomic>

namespace automation {

namespace {
std::atomic<long> lockCount = 0;
}

void LockModule() noexcept {
    ++lockCount;
}

void UnlockModule() noexcept {
    --lockCount;
}

long ModuleLockCount() noexcept {
    return lockCount;
}

} // namespace automation
