// The file that one process writes its trace to.
#pragma once

#include <string>
#include <string_view>

#include <windows.h>

namespace trace {

// Each line is with the system once Write() returns: a process that is ended leaves what it did until then.
class TraceFile {
public:
    // Makes the folder if need be. IsOpen() tells whether it worked.
    explicit TraceFile(const std::wstring& folder) noexcept;
    ~TraceFile();
    TraceFile(const TraceFile&) = delete;
    TraceFile& operator=(const TraceFile&) = delete;

    bool IsOpen() const noexcept { return m_file != INVALID_HANDLE_VALUE; }
    const std::wstring& Folder() const noexcept { return m_folder; }

    // A line in UTF-8, without its end. After the first one that could not be written the file is closed and
    // the user has been told.
    void Write(std::string_view line) noexcept;

private:
    // Tells the user, once.
    void GiveUp(DWORD error) noexcept;

    std::wstring m_folder;
    HANDLE m_file = INVALID_HANDLE_VALUE;
};

} // namespace trace
