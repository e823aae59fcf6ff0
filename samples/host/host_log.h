// The sample host's log of the messages that its windows received, as another process reads it.
//
// Two forms carry the same records:
// - a named section, LogName(process id), that LogReader reads; always there;
// - a text file with one line a record, flushed line by line, where --log FILE asks for it:
//     <number> <sent|posted> <window name> id=<control id> hwnd=<hex> <message name> msg=<hex>
//     w=<16 hex digits> l=<16 hex digits> [text="..."]
//
// A posted message is recorded when it leaves the queue, whoever consumes it (a menu, too). A sent
// message is recorded when the window procedure gets it, before the window acts. Posted messages are
// recorded all but WM_PAINT and WM_TIMER; sent ones when they are listed in message_names.cpp, belong
// to a control's own ranges, or are registered.
#pragma once

#include <atomic>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <span>
#include <string>
#include <vector>
#include <windows.h>

namespace sample_host {

// Registered message, sent to any window of the host: forgets all records. Answers 1. The text file
// keeps its lines.
inline constexpr char kClearLogMessage[] = "SAMPLE_HOST_LOG_CLEAR";

enum class Delivery : std::uint32_t { Sent = 0, Posted = 1 };

struct LogRecord {
    std::uint64_t window;
    std::uint64_t wParam;
    std::uint64_t lParam;
    std::uint32_t message;
    std::int32_t controlId;
    Delivery delivery;
    std::uint32_t number; // counts from 1, also over clearing
    char name[40];        // the window's name in the host; its class name where the host gave it none
    // Of sent messages: WM_SETTEXT the text, cut to fit; WM_NOTIFY "from=<control id> code=<code>";
    // WM_MOVING, WM_SIZING "left,top,right,bottom"; requests of the contract with a record its bytes in
    // hexadecimal digits and, behind a blank, the text in their buffer; others empty
    char text[128];
};

struct LogSection {
    static constexpr std::uint32_t kCapacity = 16384;
    std::atomic<std::uint32_t> count;   // records that are complete
    std::atomic<std::uint32_t> dropped; // records that found no room since the last clearing
    LogRecord records[kCapacity];
};

inline std::string LogName(DWORD processId) {
    return "Local\\SampleHostLog-" + std::to_string(processId);
}

// Reads the log of one running host.
class LogReader {
public:
    explicit LogReader(DWORD processId) {
        m_mapping = OpenFileMappingA(FILE_MAP_READ, FALSE, LogName(processId).c_str());
        if (m_mapping)
            m_section = static_cast<const LogSection*>(
                MapViewOfFile(m_mapping, FILE_MAP_READ, 0, 0, sizeof(LogSection)));
    }
    ~LogReader() {
        if (m_section)
            UnmapViewOfFile(m_section);
        if (m_mapping)
            CloseHandle(m_mapping);
    }
    LogReader(const LogReader&) = delete;
    LogReader& operator=(const LogReader&) = delete;

    // False when no host with that process id has its log open.
    bool IsOpen() const { return m_section != nullptr; }

    std::vector<LogRecord> Records() const {
        const auto records = Complete();
        return {records.begin(), records.end()};
    }

    // The records of one message (and of one window, if given), in order.
    std::vector<LogRecord> Records(UINT message, HWND window = nullptr) const {
        std::vector<LogRecord> found;
        for (const LogRecord& record : Complete())
            if (record.message == message &&
                (!window || record.window == reinterpret_cast<std::uintptr_t>(window)))
                found.push_back(record);
        return found;
    }

    std::uint32_t Dropped() const { return m_section ? m_section->dropped.load() : 0; }

    // `hostWindow`: any window that the host created.
    static void Clear(HWND hostWindow) {
        SendMessageA(hostWindow, RegisterWindowMessageA(kClearLogMessage), 0, 0);
    }

private:
    std::span<const LogRecord> Complete() const {
        return m_section ? std::span(m_section->records, m_section->count.load(std::memory_order_acquire))
                         : std::span<const LogRecord>{};
    }

    HANDLE m_mapping = nullptr;
    const LogSection* m_section = nullptr;
};

} // namespace sample_host
