#include "engine/performance_data.h"

#include "engine/performance_data_layout.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <utility>
#include <vector>

namespace {

namespace layout = engine::performance_layout;
using engine::FindThreadIdleState;
using engine::ThreadIdleState;

using Block = std::vector<std::byte>;

void Set(Block& block, std::size_t offset, std::uint32_t value) {
    for (std::size_t index = 0; index < sizeof value; ++index)
        block.at(offset + index) = static_cast<std::byte>(value >> (8 * index));
}

// A record that begins with its own length.
Block Record(std::size_t size, std::initializer_list<std::pair<std::size_t, std::uint32_t>> values = {}) {
    Block record(size);
    Set(record, 0, static_cast<std::uint32_t>(size));
    for (const auto& [offset, value] : values)
        Set(record, offset, value);
    return record;
}

void Append(Block& block, const Block& part) {
    block.insert(block.end(), part.begin(), part.end());
}

struct Thread {
    std::uint32_t id;
    std::uint32_t state;
    std::uint32_t waitReason;
};
constexpr Thread kBusyThread{100, 2, 0};
constexpr Thread kIdleThread{101, 5, 6};

struct ObjectOptions {
    std::uint32_t nameIndex = layout::kThreadObject;
    std::uint32_t omittedCounter = 0;
    std::uint32_t instanceCount = 0xFFFF'FFFF; // default: as many as there are
    bool ownCount = true;
};

// Every record but the counter block is longer than its fixed fields, as they may be.
Block ObjectType(const std::vector<Thread>& threads, const ObjectOptions& options = {}) {
    const std::vector<std::pair<std::uint32_t, std::uint32_t>> counters{
        {6, 4}, {layout::kThreadWaitReason, 16}, {layout::kThreadId, 8}, {layout::kThreadState, 20}};
    Block object(layout::object::kSize + 8);
    Set(object, layout::object::kHeaderLength, static_cast<std::uint32_t>(object.size()));
    std::uint32_t counterCount = 0;
    for (const auto& [nameIndex, valueOffset] : counters) {
        if (nameIndex == options.omittedCounter)
            continue;
        Append(object, Record(layout::counter::kSize + 8, {{layout::counter::kNameIndex, nameIndex},
                                                           {layout::counter::kValueOffset, valueOffset}}));
        ++counterCount;
    }
    Set(object, layout::object::kDefinitionLength, static_cast<std::uint32_t>(object.size()));
    for (const Thread& thread : threads) {
        Append(object, Record(layout::instance::kSize + 16));
        Append(object, Record(24, {{8, thread.id}, {16, thread.waitReason}, {20, thread.state}}));
    }
    Set(object, 0, static_cast<std::uint32_t>(object.size()));
    Set(object, layout::object::kNameIndex, options.nameIndex);
    Set(object, layout::object::kCounterCount, counterCount);
    Set(object, layout::object::kInstanceCount,
        options.ownCount ? static_cast<std::uint32_t>(threads.size()) : options.instanceCount);
    return object;
}

Block PerformanceData(const std::vector<Block>& objects) {
    Block block(layout::header::kSize + 8);
    Set(block, layout::header::kLength, static_cast<std::uint32_t>(block.size()));
    Set(block, layout::header::kObjectCount, static_cast<std::uint32_t>(objects.size()));
    for (const Block& object : objects)
        Append(block, object);
    return block;
}

// A foreign object type first, with an instance that looks like the idle thread.
Block TypicalData() {
    return PerformanceData(
        {ObjectType({{kBusyThread.id, 5, 6}}, {.nameIndex = 230}), ObjectType({kBusyThread, kIdleThread})});
}

TEST(PerformanceData, ThreadIsIdleOnlyWhenItWaitsForItsUser) {
    const Block data = PerformanceData(
        {ObjectType({{1, 5, 6}, {2, 5, 13}, {3, 5, 5}, {4, 5, 0}, {5, 2, 6}, {6, 2, 13}, {7, 6, 5}})});
    for (const std::uint32_t idle : {1U, 2U})
        EXPECT_EQ(FindThreadIdleState(data, idle), ThreadIdleState::Idle) << "thread " << idle;
    for (const std::uint32_t busy : {3U, 4U, 5U, 6U, 7U})
        EXPECT_EQ(FindThreadIdleState(data, busy), ThreadIdleState::Busy) << "thread " << busy;
}

TEST(PerformanceData, OnlyTheThreadObjectCountsWhereverItStands) {
    const Block foreign = ObjectType({{kBusyThread.id, 5, 6}}, {.nameIndex = 230});
    const Block threads = ObjectType({kBusyThread, kIdleThread});
    for (const Block& data : {PerformanceData({threads}), PerformanceData({foreign, foreign, threads}),
                              PerformanceData({threads, foreign})}) {
        EXPECT_EQ(FindThreadIdleState(data, kBusyThread.id), ThreadIdleState::Busy);
        EXPECT_EQ(FindThreadIdleState(data, kIdleThread.id), ThreadIdleState::Idle);
        EXPECT_EQ(FindThreadIdleState(data, 102), ThreadIdleState::CannotTell);
    }
    EXPECT_EQ(FindThreadIdleState(PerformanceData({foreign}), kBusyThread.id), ThreadIdleState::CannotTell);
    EXPECT_EQ(FindThreadIdleState(PerformanceData({}), kBusyThread.id), ThreadIdleState::CannotTell);
    EXPECT_EQ(FindThreadIdleState({}, kBusyThread.id), ThreadIdleState::CannotTell);
}

TEST(PerformanceData, CannotTellWithoutOneOfTheCounters) {
    for (const std::uint32_t counter : {layout::kThreadId, layout::kThreadState, layout::kThreadWaitReason})
        EXPECT_EQ(
            FindThreadIdleState(PerformanceData({ObjectType({kIdleThread}, {.omittedCounter = counter})}),
                                kIdleThread.id),
            ThreadIdleState::CannotTell)
            << "counter " << counter;
}

TEST(PerformanceData, InstancesAreReadAsFarAsTheyAreCountedAndThere) {
    const auto state = [](std::uint32_t count, std::uint32_t threadId) {
        return FindThreadIdleState(PerformanceData({ObjectType({kBusyThread, kIdleThread},
                                                               {.instanceCount = count, .ownCount = false}),
                                                    ObjectType({{102, 5, 6}}, {.nameIndex = 230})}),
                                   threadId);
    };
    EXPECT_EQ(state(0xFFFF'FFFF, kIdleThread.id), ThreadIdleState::CannotTell);
    EXPECT_EQ(state(1, kIdleThread.id), ThreadIdleState::CannotTell);
    EXPECT_EQ(state(0x7FFF'FFFF, kIdleThread.id), ThreadIdleState::Idle);
    EXPECT_EQ(state(0x7FFF'FFFF, 102), ThreadIdleState::CannotTell);
}

// Reading beyond the end of the copy is for the address sanitizer to find.
TEST(PerformanceData, CannotTellWhenCutAnywhere) {
    const Block whole = TypicalData();
    ASSERT_EQ(FindThreadIdleState(whole, kIdleThread.id), ThreadIdleState::Idle);
    for (std::size_t size = 0; size < whole.size(); ++size) {
        const Block cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        EXPECT_EQ(FindThreadIdleState(cut, kIdleThread.id), ThreadIdleState::CannotTell) << size << " bytes";
    }
}

TEST(PerformanceData, RecordsThatDoNotMoveForwardEndTheSearch) {
    const std::size_t thread = layout::header::kSize + 8;
    const Block object = ObjectType({kBusyThread, kIdleThread});
    const std::size_t firstCounter = thread + layout::object::kSize + 8;
    const std::size_t firstInstance = thread + object.size() - 2 * (layout::instance::kSize + 16 + 24);
    const std::size_t firstCounterBlock = firstInstance + layout::instance::kSize + 16;
    for (const std::size_t lengthField : {thread, firstCounter, firstInstance, firstCounterBlock})
        for (const std::uint32_t length : {0u, 3u, 0x7FFF'FFFFu, 0x8000'0000u, 0xFFFF'FFFFu}) {
            Block data = PerformanceData({object});
            Set(data, thread + layout::object::kInstanceCount, 0x7FFF'FFFF);
            Set(data, thread + layout::object::kCounterCount, 0xFFFF'FFFF);
            Set(data, layout::header::kObjectCount, 0xFFFF'FFFF);
            Set(data, lengthField, length);
            EXPECT_EQ(FindThreadIdleState(data, kIdleThread.id), ThreadIdleState::CannotTell)
                << "length " << length << " at " << lengthField;
        }
}

// Whatever a damaged field leads to, the search ends and stays inside.
TEST(PerformanceData, DamageOfAnyFieldIsSurvived) {
    const Block whole = TypicalData();
    for (std::size_t offset = 0; offset + sizeof(std::uint32_t) <= whole.size(); offset += 4)
        for (const std::uint32_t value :
             {0u, 1u, 39u, 0x7FFF'FFFFu, 0x8000'0000u, 0xFFFF'FFFDu, 0xFFFF'FFFFu}) {
            Block damaged = whole;
            Set(damaged, offset, value);
            const int state = static_cast<int>(FindThreadIdleState(damaged, kIdleThread.id));
            EXPECT_TRUE(state >= -1 && state <= 1) << value << " at " << offset;
        }
}

} // namespace
