#include "hostlink/shared_section.h"

#if defined(_MSC_VER)
#pragma section(".shared", read, write, shared)
#define GHOSTHAND_SHARED __declspec(allocate(".shared"))
#elif defined(__clang__)
// It has no attribute that shares; the flags with which the assembler first sees the section are kept.
asm(".section .shared,\"dws\"\n\t.text");
#define GHOSTHAND_SHARED __attribute__((section(".shared")))
#else
#define GHOSTHAND_SHARED __attribute__((section(".shared"), shared))
#endif

namespace hostlink {

// Initialised as a whole: an uninitialised variable would not be placed in the section. All zero but
// the permission to block the mouse.
GHOSTHAND_SHARED constinit SharedSection shared = {
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, {}, {}, 0, /*allowMouseBlocks*/ 1, 0, 0, 0};

} // namespace hostlink
