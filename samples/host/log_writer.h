// Writes the log that host_log.h describes. Used on the GUI thread only.
#pragma once

#include "host_log.h"

#include <memory>
#include <string>
#include <windows.h>

namespace sample_host {

class LogWriter {
public:
    LogWriter();
    ~LogWriter();
    LogWriter(const LogWriter&) = delete;
    LogWriter& operator=(const LogWriter&) = delete;

    // Also writes every record as a line of that file from now on; false when it cannot be made.
    bool OpenFile(const std::string& fileName);

    void Write(Delivery delivery, const MSG& message);
    void Clear();

private:
    void WriteLine(const LogRecord& record);

    HANDLE m_mapping = nullptr;
    LogSection* m_section = nullptr;
    HANDLE m_file = INVALID_HANDLE_VALUE;
    std::uint32_t m_number = 0;
};

// The log of this process.
LogWriter& Log();

} // namespace sample_host
