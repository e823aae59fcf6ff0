// The contract's text helpers, compiled as C++11 as an older host compiles them.
#pragma once

#include <string>

namespace cxx11 {

enum class CodePage { DoubleByte, Utf8 };

// What stands in memory after a text was written to the beginning of a buffer of that capacity, which lies
// in `memory`.
std::string Written(std::string memory, unsigned capacity, const std::string& text, CodePage codePage);

// What is read from a buffer of that capacity at the beginning of `memory`.
std::string Read(const std::string& memory, unsigned capacity);

// Without memory behind it a buffer reads as empty and takes nothing.
std::string WrittenAndReadWithoutMemory();

} // namespace cxx11
