// The requests of the contract in the sample host's log, as the host received them.
#pragma once

#include "support/sample_host.h"

#include <cstring>
#include <string>
#include <vector>

namespace support {

struct Request {
    std::uint64_t wParam;
    std::uint64_t lParam;
    std::vector<unsigned char> record; // empty for a request without one
    std::string text;                  // that came in the record's buffer

    template <class Number>
    Number At(std::size_t offset) const {
        Number number{};
        if (offset + sizeof number <= record.size()) {
            std::memcpy(&number, record.data() + offset, sizeof number);
        }
        return number;
    }
};

inline std::vector<Request> Requests(const SampleHost& host, UINT message, HWND window) {
    std::vector<Request> requests;
    for (const sample_host::LogRecord& logged : host.Log().Records(message, window)) {
        Request request{logged.wParam, logged.lParam, {}, {}};
        const std::string description = logged.text;
        const std::size_t blank = std::min(description.find(' '), description.size());
        for (std::size_t digit = 0; digit + 1 < blank; digit += 2) {
            request.record.push_back(
                static_cast<unsigned char>(std::stoi(description.substr(digit, 2), nullptr, 16)));
        }
        request.text = description.substr(std::min(blank + 1, description.size()));
        requests.push_back(std::move(request));
    }
    return requests;
}

// Their numbers, in order.
inline std::vector<int> Codes(const std::vector<Request>& requests) {
    std::vector<int> codes;
    for (const Request& request : requests) {
        codes.push_back(static_cast<int>(request.wParam));
    }
    return codes;
}

} // namespace support
