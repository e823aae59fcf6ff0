#include "log_writer.h"

#include "contract_requests.h"
#include "message_names.h"
#include "watch.h"

namespace sample_host {
namespace {

// The record of a request and the text that goes with it, as they arrived.
std::string DescribeRequest(const MSG& message) {
    std::string description;
    for (const std::byte value : RecordOf(message)) {
        char digits[3];
        std::snprintf(digits, sizeof digits, "%02X", static_cast<unsigned>(value));
        description += digits;
    }
    if (const auto* buffer = TextBufferOf(message))
        (description += ' ') += ReadText(*buffer);
    return description;
}

// What lParam points at, in the messages where it is worth knowing.
template <std::size_t Size>
void DescribeParameter(const MSG& message, char (&text)[Size]) {
    switch (message.message) {
    case WM_SETTEXT:
        lstrcpynA(text, reinterpret_cast<const char*>(message.lParam), Size);
        break;
    case WM_NOTIFY: {
        const auto& header = *reinterpret_cast<const NMHDR*>(message.lParam);
        std::snprintf(text, Size, "from=%d code=%d", static_cast<int>(header.idFrom),
                      static_cast<int>(header.code));
        break;
    }
    case WM_MOVING:
    case WM_SIZING: {
        const auto& area = *reinterpret_cast<const RECT*>(message.lParam);
        std::snprintf(text, Size, "%ld,%ld,%ld,%ld", area.left, area.top, area.right, area.bottom);
        break;
    }
    default:
        lstrcpynA(text, DescribeRequest(message).c_str(), Size);
        break;
    }
}

} // namespace

LogWriter::LogWriter() {
    m_mapping = CreateFileMappingA(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, sizeof(LogSection),
                                   LogName(GetCurrentProcessId()).c_str());
    if (m_mapping) // a fresh section is all zero: an empty log
        m_section =
            static_cast<LogSection*>(MapViewOfFile(m_mapping, FILE_MAP_WRITE, 0, 0, sizeof(LogSection)));
}

LogWriter::~LogWriter() {
    if (m_section)
        UnmapViewOfFile(m_section);
    if (m_mapping)
        CloseHandle(m_mapping);
    if (m_file != INVALID_HANDLE_VALUE)
        CloseHandle(m_file);
}

bool LogWriter::OpenFile(const std::string& fileName) {
    m_file = CreateFileA(fileName.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                         CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    return m_file != INVALID_HANDLE_VALUE;
}

void LogWriter::Write(Delivery delivery, const MSG& message) {
    LogRecord record{};
    record.window = reinterpret_cast<std::uintptr_t>(message.hwnd);
    record.wParam = message.wParam;
    record.lParam = static_cast<std::uint64_t>(message.lParam);
    record.message = message.message;
    record.controlId = ControlIdOf(message.hwnd);
    record.delivery = delivery;
    record.number = ++m_number;
    lstrcpynA(record.name, NameOf(message.hwnd).c_str(), sizeof record.name);
    if (delivery == Delivery::Sent && message.lParam)
        DescribeParameter(message, record.text);

    if (m_file != INVALID_HANDLE_VALUE)
        WriteLine(record);
    if (!m_section)
        return;
    const std::uint32_t count = m_section->count.load(std::memory_order_relaxed);
    if (count == LogSection::kCapacity) {
        m_section->dropped.fetch_add(1);
        return;
    }
    m_section->records[count] = record;
    m_section->count.store(count + 1, std::memory_order_release);
}

void LogWriter::Clear() {
    if (!m_section)
        return;
    m_section->count.store(0);
    m_section->dropped.store(0);
}

void LogWriter::WriteLine(const LogRecord& record) {
    char line[512];
    int length = std::snprintf(
        line, sizeof line, "%06u %s %s id=%d hwnd=%016llX %s msg=%04X w=%016llX l=%016llX", record.number,
        record.delivery == Delivery::Posted ? "posted" : "sent", record.name, record.controlId,
        static_cast<unsigned long long>(record.window), MessageName(record.message).c_str(), record.message,
        static_cast<unsigned long long>(record.wParam), static_cast<unsigned long long>(record.lParam));
    if (record.text[0])
        length += std::snprintf(line + length, sizeof line - length, " text=\"%s\"", record.text);
    length += std::snprintf(line + length, sizeof line - length, "\r\n");
    DWORD written = 0;
    WriteFile(m_file, line, static_cast<DWORD>(length), &written, nullptr);
}

LogWriter& Log() {
    static LogWriter log;
    return log;
}

} // namespace sample_host
