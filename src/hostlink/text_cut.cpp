#include "hostlink/text_cut.h"

#include "ghosthand/host_contract.h"

namespace hostlink {

namespace contract = ghosthand::host_contract;

std::size_t CutLength(std::string_view text, std::size_t limit, const CodePage& codePage) noexcept {
    return contract::CutLength(text.data(), text.size(), limit, codePage.isUtf8 ? contract::kUtf8CodePage : 0,
                               codePage.isLeadByte);
}

} // namespace hostlink
