// Paths that a script gives: item numbers or names, one behind the other, between separators.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace engine {

// Each character is a separator of its own.
inline constexpr std::string_view kTreeNumberSeparators = ".-:|/\\";
inline constexpr std::string_view kTreeNameSeparators = "|";
inline constexpr std::string_view kOptionTreeSeparators = "|/\\";
inline constexpr std::string_view kMenuNumberSeparators = ".-:/\\";

inline constexpr std::size_t kLongestPath = 259; // in bytes

// The tokens of a path, as strtok finds them: a run of separators counts as one, leading and trailing ones
// count for nothing, and separators are single bytes (a trail byte of that value separates too). Empty for
// an empty path or one of separators only; nullopt for a path longer than kLongestPath.
std::optional<std::vector<std::string>> PathTokens(std::string_view path, std::string_view separators);

// A token as a number, as atoi reads it: leading white space and one sign, digits up to the first other
// character, 0 without digits. A number out of range becomes the greatest or least int.
int PathNumber(std::string_view token) noexcept;

} // namespace engine
