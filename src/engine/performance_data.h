// Reads from a block of performance data whether a thread waits for its user.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace engine {

enum class ThreadIdleState { CannotTell = -1, Busy = 0, Idle = 1 };

// `block` is what the registry answered for the object type "Thread" and may hold other object types too.
// Idle: the thread waits for a user request. Busy: it does anything else. CannotTell: the block has no such
// thread, or is damaged before that thread's place; damage never leads beyond the block.
ThreadIdleState FindThreadIdleState(std::span<const std::byte> block, std::uint32_t threadId) noexcept;

} // namespace engine
