#include "explain/system_text.h"

#include <cstdint>
#include <cstdlib>
#include <iterator>
#include <string_view>

#include "engine/diagnostics.h"
#include "explain/utf8.h"

namespace explain {

std::string SystemText(DWORD error) {
    wchar_t text[512] = L"";
    DWORD length = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error,
                                  0, text, static_cast<DWORD>(std::size(text)), nullptr);
    while (length > 0 && text[length - 1] <= L' ') {
        --length;
    }
    return ToUtf8(std::wstring_view(text, length));
}

std::string LocalTimeText() {
    SYSTEMTIME universal = {};
    SYSTEMTIME local = {};
    GetSystemTime(&universal);
    SystemTimeToTzSpecificLocalTime(nullptr, &universal, &local);
    const auto minutes = [](const SYSTEMTIME& time) {
        FILETIME ticks = {};
        SystemTimeToFileTime(&time, &ticks);
        return static_cast<std::int64_t>((std::uint64_t{ticks.dwHighDateTime} << 32 | ticks.dwLowDateTime) /
                                         600'000'000);
    };
    const auto offset = static_cast<int>(minutes(local) - minutes(universal));
    return engine::diagnostics::Format("%04d-%02d-%02dT%02d:%02d:%02d.%03d%c%02d:%02d", local.wYear,
                                       local.wMonth, local.wDay, local.wHour, local.wMinute, local.wSecond,
                                       local.wMilliseconds, offset < 0 ? '-' : '+', std::abs(offset) / 60,
                                       std::abs(offset) % 60);
}

} // namespace explain
