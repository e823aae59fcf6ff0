// Paths that a script gives: item numbers or names, one behind the other, between separators.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace engine {

struct PathKind {
    std::string_view separators; // each character is a separator of its own
    std::size_t longest;         // in bytes
};

// Paths of items have room for long names, whose characters may take several bytes each.
inline constexpr std::size_t kLongestItemPath = 32767;
inline constexpr PathKind kTreeNumberPath{".-:|/\\", kLongestItemPath};
inline constexpr PathKind kTreeNamePath{"|", kLongestItemPath};
inline constexpr PathKind kOptionTreePath{"|/\\", kLongestItemPath};
inline constexpr PathKind kMenuNumberPath{".-:/\\", 259};

// The tokens of a path, as strtok finds them: a run of separators counts as one, leading and trailing ones
// count for nothing, and separators are single bytes (a trail byte of that value separates too). Empty for
// an empty path or one of separators only; nullopt for a path longer than its kind may be.
std::optional<std::vector<std::string>> PathTokens(std::string_view path, const PathKind& kind);

// The first token behind `at`, which is moved behind it; empty, as no token is, if there is none.
std::string_view NextPathToken(std::string_view path, const PathKind& kind, std::size_t& at) noexcept;
// Whether there is a token behind `at`.
bool HasPathToken(std::string_view path, const PathKind& kind, std::size_t at) noexcept;

// A token as a number, as atoi reads it: leading white space and one sign, digits up to the first other
// character, 0 without digits. A number out of range becomes the greatest or least int.
int PathNumber(std::string_view token) noexcept;

} // namespace engine
