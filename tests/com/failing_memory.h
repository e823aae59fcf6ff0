// A module that runs short of memory, with nothing in the module for it: its imports are redirected.
#pragma once

#include <windows.h>

#include <cstdlib>
#include <stdexcept>
#include <string_view>

namespace support {

// One object at a time. Throws std::runtime_error where the module takes its memory in an unknown way.
class FailingMemory {
public:
    explicit FailingMemory(HMODULE module) {
        auto* const image = reinterpret_cast<char*>(module);
        const auto* dos = reinterpret_cast<const IMAGE_DOS_HEADER*>(image);
        const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS64*>(image + dos->e_lfanew);
        const IMAGE_DATA_DIRECTORY& directory =
            headers->OptionalHeader.DataDirectory[IMAGE_DIRECTORY_ENTRY_IMPORT];
        const auto* library =
            reinterpret_cast<const IMAGE_IMPORT_DESCRIPTOR*>(image + directory.VirtualAddress);
        for (; library->Name != 0 && m_entry == nullptr; ++library) {
            Search(image, reinterpret_cast<const IMAGE_THUNK_DATA64*>(image + library->OriginalFirstThunk),
                   reinterpret_cast<IMAGE_THUNK_DATA64*>(image + library->FirstThunk));
        }
        if (m_entry == nullptr) {
            throw std::runtime_error("the module imports no function that allocates memory");
        }
    }
    ~FailingMemory() { Redirect(original); }
    FailingMemory(const FailingMemory&) = delete;
    FailingMemory& operator=(const FailingMemory&) = delete;

    // Runs the work while this thread gets `count` blocks of more than `small` bytes and then no more.
    // Whether it wanted more. GCC's run-time library cannot do without some small blocks, nor without some
    // larger ones at a thread's first exception.
    template <class Work>
    bool RunsShortAfter(int count, Work work, std::size_t small = 32) {
        thread = GetCurrentThreadId();
        left = count;
        limit = small;
        work();
        thread = 0;
        return left < 0;
    }

private:
    using Malloc = void*(__cdecl*)(std::size_t);
    using HeapAllocate = void*(WINAPI*)(HANDLE, DWORD, SIZE_T);

    static bool Fails(std::size_t size) {
        return size > limit && thread == GetCurrentThreadId() && --left < 0;
    }
    static void* __cdecl FailingMalloc(std::size_t size) {
        return Fails(size) ? nullptr : reinterpret_cast<Malloc>(original)(size);
    }
    static void* WINAPI FailingHeapAlloc(HANDLE heap, DWORD flags, SIZE_T size) {
        return Fails(size) ? nullptr : reinterpret_cast<HeapAllocate>(original)(heap, flags, size);
    }

    // A run-time library of its own (libraries of Microsoft's compiler) or the system's (those of GCC).
    void Search(char* image, const IMAGE_THUNK_DATA64* name, IMAGE_THUNK_DATA64* entry) {
        for (; name->u1.AddressOfData != 0; ++name, ++entry) {
            if (IMAGE_SNAP_BY_ORDINAL64(name->u1.Ordinal)) {
                continue;
            }
            const std::string_view function(
                reinterpret_cast<const IMAGE_IMPORT_BY_NAME*>(image + name->u1.AddressOfData)->Name);
            if (function == "malloc" || function == "HeapAlloc") {
                m_entry = &entry->u1.Function;
                original = *m_entry;
                Redirect(function == "malloc" ? reinterpret_cast<ULONGLONG>(FailingMalloc)
                                              : reinterpret_cast<ULONGLONG>(FailingHeapAlloc));
                return;
            }
        }
    }

    void Redirect(ULONGLONG function) {
        DWORD protection = 0;
        VirtualProtect(m_entry, sizeof *m_entry, PAGE_READWRITE, &protection);
        *m_entry = function;
        VirtualProtect(m_entry, sizeof *m_entry, protection, &protection);
    }

    static inline DWORD thread = 0;
    static inline int left = 0;
    static inline std::size_t limit = 0;
    static inline ULONGLONG original = 0;
    ULONGLONG* m_entry = nullptr;
};

} // namespace support
