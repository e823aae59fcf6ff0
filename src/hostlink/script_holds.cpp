#include "hostlink/script_holds.h"

#include <cstdint>

#include "hostlink/shared_variable.h"

namespace hostlink {

namespace {

struct Process {
    DWORD id = 0;
    std::uint64_t creation = 0; // tells it from a later process with the same id
};

std::uint64_t CreationTime(HANDLE process) noexcept {
    FILETIME creation = {}, exit = {}, kernel = {}, user = {};
    GetProcessTimes(process, &creation, &exit, &kernel, &user);
    return std::uint64_t{creation.dwHighDateTime} << 32 | creation.dwLowDateTime;
}

struct Record {
    volatile std::uint64_t ownerCreation;
    volatile std::uint32_t ownerId;
    volatile std::uint32_t keysThreadId;
    volatile std::uint32_t keys;
    volatile std::uint32_t buttons;
    volatile std::uint32_t atom;
    std::uint32_t padding;
};
GHOSTHAND_SHARED_VARIABLE constinit Record record = {0, 0, 0, 0, 0, 0, 0};

void Clear() noexcept {
    record.keysThreadId = 0;
    record.keys = 0;
    record.buttons = 0;
    record.atom = 0;
}

// Makes the record this process's.
void Claim() noexcept {
    const DWORD id = GetCurrentProcessId();
    if (record.ownerId != id) {
        Clear();
        record.ownerId = id;
        record.ownerCreation = CreationTime(GetCurrentProcess());
    }
}

bool IsAlive(const Process& owner) noexcept {
    const HANDLE process = OpenProcess(SYNCHRONIZE | PROCESS_QUERY_LIMITED_INFORMATION, FALSE, owner.id);
    if (process == nullptr) {
        return GetLastError() == ERROR_ACCESS_DENIED;
    }
    const bool runs =
        WaitForSingleObject(process, 0) == WAIT_TIMEOUT && CreationTime(process) == owner.creation;
    CloseHandle(process);
    return runs;
}

} // namespace

void NoteHeldKeys(DWORD threadId, unsigned keys) noexcept {
    Claim();
    record.keysThreadId = threadId;
    record.keys = keys;
}

void NoteHeldButtons(unsigned buttons) noexcept {
    Claim();
    record.buttons = buttons;
}

void NoteHeldAtom(ATOM atom) noexcept {
    Claim();
    record.atom = atom;
}

std::optional<ScriptHolds> TakeAbandonedHolds() noexcept {
    const ScriptHolds holds = {record.keysThreadId, record.keys, record.buttons,
                               static_cast<ATOM>(record.atom)};
    const Process owner = {record.ownerId, record.ownerCreation};
    const bool holdsAnything = holds.keys != 0 || holds.buttons != 0 || holds.atom != 0;
    if (!holdsAnything || owner.id == GetCurrentProcessId() || IsAlive(owner)) {
        return std::nullopt;
    }
    Clear();
    return holds;
}

} // namespace hostlink
