// Variables that every process which maps the module shares.
#pragma once

// Put before the definition of a variable, in no function: the section that has it. The variable must be
// initialised as a whole: an uninitialised one would not be placed there.
#if defined(_MSC_VER)
#define GHOSTHAND_SHARED_IN(name) __pragma(section(name, read, write, shared)) __declspec(allocate(name))
#elif defined(__clang__)
// It has no attribute that shares; the flags with which the assembler first sees the section are kept.
#define GHOSTHAND_SHARED_IN(name)                                                                            \
    asm(".section " name ",\"dws\"\n\t.text");                                                               \
    __attribute__((section(name)))
#else
#define GHOSTHAND_SHARED_IN(name) __attribute__((section(name), shared))
#endif

// Those of the module's own, beside the shared section of the contract.
#define GHOSTHAND_SHARED_VARIABLE GHOSTHAND_SHARED_IN(".module")
