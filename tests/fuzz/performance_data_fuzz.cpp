// Input: the block of performance data, then the thread's identifier.
#include "engine/performance_data.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <array>
#include <vector>

#include "fuzz/check.h"

namespace {

using engine::ThreadIdleState;
using Block = std::vector<std::uint8_t>;

ThreadIdleState StateIn(const Block& block, std::uint32_t thread) {
    return engine::FindThreadIdleState(std::as_bytes(std::span(block)), thread);
}

bool Contains(const Block& block, std::uint32_t value) {
    std::array<std::uint8_t, 4> bytes{};
    for (std::size_t index = 0; index < bytes.size(); ++index)
        bytes[index] = static_cast<std::uint8_t>(value >> (8 * index));
    return std::search(block.begin(), block.end(), bytes.begin(), bytes.end()) != block.end();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    const auto thread = input.ConsumeIntegral<std::uint32_t>();
    const auto cut = input.ConsumeIntegral<std::uint16_t>();
    const Block block = input.ConsumeRemainingBytes<std::uint8_t>();

    const ThreadIdleState state = StateIn(block, thread);
    Check(state == ThreadIdleState::CannotTell || state == ThreadIdleState::Busy ||
              state == ThreadIdleState::Idle,
          "there are three answers");
    if (state == ThreadIdleState::CannotTell)
        return 0;
    Check(Contains(block, thread), "a thread that is found is in the block");
    Check(state == ThreadIdleState::Busy || Contains(block, 5), "an idle thread waits");

    Block longer = block;
    longer.insert(longer.end(), block.begin(), block.end());
    Check(StateIn(longer, thread) == state, "what follows the block changes nothing");

    Block shorter = block;
    shorter.resize(cut % (block.size() + 1));
    shorter.shrink_to_fit();
    const ThreadIdleState rest = StateIn(shorter, thread);
    Check(rest == state || rest == ThreadIdleState::CannotTell, "what is missing is never guessed");
    return 0;
}
