// Variables of the module's own that every process shares, beside the shared section of the contract.
#pragma once

// Put before the definition of a variable. It must be initialised as a whole: an uninitialised one would not
// be placed in the section.
#if defined(_MSC_VER)
#pragma section(".module", read, write, shared)
#define GHOSTHAND_SHARED_VARIABLE __declspec(allocate(".module"))
#elif defined(__clang__)
// It has no attribute that shares; the flags with which the assembler first sees the section are kept.
asm(".section .module,\"dws\"\n\t.text");
#define GHOSTHAND_SHARED_VARIABLE __attribute__((section(".module")))
#else
#define GHOSTHAND_SHARED_VARIABLE __attribute__((section(".module"), shared))
#endif
