// What keeps the module loaded.
#pragma once

namespace automation {

// Each automation object holds one lock from its creation to its end.
void LockModule() noexcept;
void UnlockModule() noexcept;
long ModuleLockCount() noexcept;

// A lock for the lifetime of the object.
class ModuleLock {
public:
    ModuleLock() noexcept { LockModule(); }
    ~ModuleLock() { UnlockModule(); }
    ModuleLock(const ModuleLock&) = delete;
    ModuleLock& operator=(const ModuleLock&) = delete;
};

} // namespace automation
