// Variables of the module's own that every process shares, beside the shared section of the contract.
#pragma once

// Put before the definition of a variable. It must be initialised as a whole: an uninitialised one would not
// be placed in the section.
#if defined(_MSC_VER)
#pragma section(".module", read, write, shared)
#define GHOSTHAND_SHARED_VARIABLE __declspec(allocate(".module"))
#else
#define GHOSTHAND_SHARED_VARIABLE __attribute__((section(".module"), shared))
#endif
