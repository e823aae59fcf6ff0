// Input: the item's name, then the heading's length and name.
#include "inhouse/group_combo_query.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <optional>
#include <string_view>

#include "fuzz/check.h"

namespace {

// As a host takes a query apart, which does not trust its bytes.
std::optional<std::string> TakeName(std::string_view& query) {
    const std::size_t end = query.find('\0');
    if (end == std::string_view::npos)
        return std::nullopt;
    std::string name(query.substr(0, end));
    query.remove_prefix(end + 1);
    return name;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    const std::string heading = input.ConsumeRandomLengthString(64);
    const std::string item = input.ConsumeRemainingBytesAsString();
    const std::string packed = dkGroupComboHelpers::pack_query({heading, item});
    std::string_view query = packed;
    Check(TakeName(query) == heading.substr(0, heading.find('\0')), "the heading comes back");
    Check(TakeName(query) == item.substr(0, item.find('\0')), "the item comes back");
    Check(query.empty(), "nothing follows the names");
    return 0;
}
