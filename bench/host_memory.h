// The usual technique, which the benchmarks hold the product against: memory allocated in the host.
#pragma once

#include <windows.h>

namespace bench {

// Memory of the host, as tools that allocate there use it.
class HostMemory {
public:
    HostMemory(HANDLE process, std::size_t size)
        : m_process(process),
          m_address(VirtualAllocEx(process, nullptr, size, MEM_COMMIT | MEM_RESERVE, PAGE_READWRITE)) {}
    ~HostMemory() { VirtualFreeEx(m_process, m_address, 0, MEM_RELEASE); }
    HostMemory(const HostMemory&) = delete;
    HostMemory& operator=(const HostMemory&) = delete;

    void* Address() const { return m_address; }

private:
    HANDLE m_process;
    void* m_address;
};

} // namespace bench
