// Walks over the items of a control that end in the control's own thread: from another process each message
// is a way there and back, from inside it costs next to nothing.
//
// A walk is a plain function that takes one step, some messages to the control, and the position that the
// step leaves. The same function runs on both sides: the first steps from here, which is all that a near item
// takes, the others in the control's thread, in slices, between which the program goes on. Where the module
// does not get into that thread, the walk is taken to its end from here, from where it stands.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <type_traits>

#include "hostlink/host_window.h"

namespace hostlink {

inline constexpr std::size_t kWalkPositionSize = 4096; // bytes
inline constexpr std::size_t kWalkTextSize = 4096;     // bytes of what is looked for

// Where a walk stands: plain data, which any process can have written when a step gets it in the host. A step
// believes no number in it further than a control can take.
template <class Position>
inline constexpr bool kIsWalkPosition = std::is_trivially_copyable_v<Position> &&
                                        sizeof(Position) <= kWalkPositionSize &&
                                        alignof(Position) <= alignof(std::uint64_t);

// Takes one step in the search for `wanted`; `control` is a window of the calling thread or of another one.
// False when the walk has ended: the position tells what was found.
template <class Position>
using WalkStep = bool (*)(const HostWindow& control, std::string_view wanted, Position& position);

using ErasedStep = bool (*)(const HostWindow& control, std::string_view wanted,
                            std::span<std::byte> position);

// What the hook procedure `slice` of a walk does: a slice of it, in the control's thread.
LRESULT WalkSlice(int code, WPARAM wParam, LPARAM lParam, HOOKPROC slice, std::span<std::byte> position,
                  ErasedStep step) noexcept;

// Takes the walk from `position` to its end in the control's thread and is true. False, with the position
// that was reached, where that is not possible: the window's thread is this one or gone, takes no hook or
// does not load the module; `wanted` is longer than kWalkTextSize; all ways into hosts are in use.
bool WalkInHost(const HostWindow& control, std::string_view wanted, std::span<std::byte> position,
                HOOKPROC slice) noexcept;

template <class Position, WalkStep<Position> step>
LRESULT CALLBACK WalkProcedure(int code, WPARAM wParam, LPARAM lParam) noexcept {
    Position position;
    return WalkSlice(code, wParam, lParam, WalkProcedure<Position, step>,
                     std::as_writable_bytes(std::span(&position, 1)),
                     [](const HostWindow& control, std::string_view wanted, std::span<std::byte> bytes) {
                         return step(control, wanted, *reinterpret_cast<Position*>(bytes.data()));
                     });
}

// The way from here to the end.
template <class Position, WalkStep<Position> step>
void WalkAcross(const HostWindow& control, std::string_view wanted, Position& position) {
    while (step(control, wanted, position)) {
    }
}

// Takes at most `steps` steps from here. False when the walk has ended.
template <class Position, WalkStep<Position> step>
bool BeginWalk(const HostWindow& control, std::string_view wanted, Position& position, int steps) {
    bool goesOn = true;
    for (int taken = 0; taken < steps && goesOn; ++taken) {
        goesOn = step(control, wanted, position);
    }
    return goesOn;
}

// The whole walk. `nearSteps` are taken from here first, and a walk that they end goes no other way: as many
// as cost no more than the way into the host's thread, which is that of one remote send or of five messages
// that carry no memory.
template <class Position, WalkStep<Position> step>
void Walk(const HostWindow& control, std::string_view wanted, Position& position, int nearSteps = 0) {
    static_assert(kIsWalkPosition<Position>);
    if (BeginWalk<Position, step>(control, wanted, position, nearSteps) &&
        !WalkInHost(control, wanted, std::as_writable_bytes(std::span(&position, 1)),
                    WalkProcedure<Position, step>)) {
        WalkAcross<Position, step>(control, wanted, position);
    }
}

} // namespace hostlink
