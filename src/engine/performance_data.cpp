#include "engine/performance_data.h"

#include "engine/performance_data_layout.h"

#include <optional>

namespace engine {
namespace {

namespace layout = performance_layout;

using Bytes = std::span<const std::byte>;
using Value = std::optional<std::uint32_t>;

constexpr std::uint32_t kStateWaiting = 5;
constexpr std::uint32_t kReasonUserRequest = 6;
constexpr std::uint32_t kReasonUserRequestInWindowManager = 13;

// The little-endian value at an offset, none if it does not lie wholly inside.
Value ValueAt(Bytes bytes, std::size_t offset) noexcept {
    if (offset > bytes.size() || bytes.size() - offset < sizeof(std::uint32_t))
        return {};
    std::uint32_t value = 0;
    for (std::size_t index = 0; index < sizeof value; ++index)
        value |= std::to_integer<std::uint32_t>(bytes[offset + index]) << (8 * index);
    return value;
}

// The record at an offset, as long as it says itself. None if that is less than its fixed fields, so that
// every walk moves forward, or more than there is.
std::optional<Bytes> RecordAt(Bytes bytes, std::size_t offset, std::size_t fixedSize) noexcept {
    const Value length = ValueAt(bytes, offset);
    if (!length || *length < fixedSize || *length > bytes.size() - offset)
        return {};
    return bytes.subspan(offset, *length);
}

std::optional<Bytes> FindThreadObject(Bytes block) noexcept {
    std::size_t offset = ValueAt(block, layout::header::kLength).value_or(0);
    const std::uint32_t count = ValueAt(block, layout::header::kObjectCount).value_or(0);
    for (std::uint32_t index = 0; index < count; ++index) {
        const std::optional<Bytes> object = RecordAt(block, offset, layout::object::kSize);
        if (!object || ValueAt(*object, layout::object::kNameIndex) == layout::kThreadObject)
            return object;
        offset += object->size();
    }
    return {};
}

// Offset of a counter's value in the counter block of each instance.
Value FindCounter(Bytes object, std::uint32_t nameIndex) noexcept {
    std::size_t offset = ValueAt(object, layout::object::kHeaderLength).value_or(0);
    const std::uint32_t count = ValueAt(object, layout::object::kCounterCount).value_or(0);
    for (std::uint32_t index = 0; index < count; ++index) {
        const std::optional<Bytes> definition = RecordAt(object, offset, layout::counter::kSize);
        if (!definition)
            return {};
        if (ValueAt(*definition, layout::counter::kNameIndex) == nameIndex)
            return ValueAt(*definition, layout::counter::kValueOffset);
        offset += definition->size();
    }
    return {};
}

// The counter block of the instance whose counter at `idOffset` is the thread id.
std::optional<Bytes> FindThread(Bytes object, std::uint32_t idOffset, std::uint32_t threadId) noexcept {
    std::size_t offset = ValueAt(object, layout::object::kDefinitionLength).value_or(0);
    const auto count = static_cast<std::int32_t>(ValueAt(object, layout::object::kInstanceCount).value_or(0));
    for (std::int32_t index = 0; index < count; ++index) {
        const std::optional<Bytes> instance = RecordAt(object, offset, layout::instance::kSize);
        if (!instance)
            return {};
        offset += instance->size();
        const std::optional<Bytes> counters = RecordAt(object, offset, layout::counter_block::kSize);
        if (!counters || ValueAt(*counters, idOffset) == threadId)
            return counters;
        offset += counters->size();
    }
    return {};
}

} // namespace

ThreadIdleState FindThreadIdleState(std::span<const std::byte> block, std::uint32_t threadId) noexcept {
    const std::optional<Bytes> object = FindThreadObject(block);
    if (!object)
        return ThreadIdleState::CannotTell;
    const Value idOffset = FindCounter(*object, layout::kThreadId);
    const Value stateOffset = FindCounter(*object, layout::kThreadState);
    const Value reasonOffset = FindCounter(*object, layout::kThreadWaitReason);
    if (!idOffset || !stateOffset || !reasonOffset)
        return ThreadIdleState::CannotTell;

    const std::optional<Bytes> thread = FindThread(*object, *idOffset, threadId);
    if (!thread)
        return ThreadIdleState::CannotTell;
    const Value state = ValueAt(*thread, *stateOffset);
    const Value reason = ValueAt(*thread, *reasonOffset);
    if (!state || !reason)
        return ThreadIdleState::CannotTell;
    const bool idle = state == kStateWaiting &&
                      (reason == kReasonUserRequest || reason == kReasonUserRequestInWindowManager);
    return idle ? ThreadIdleState::Idle : ThreadIdleState::Busy;
}

} // namespace engine
