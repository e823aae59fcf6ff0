#include "engine/path_tokens.h"

#include <algorithm>
#include <charconv>
#include <limits>
#include <system_error>

namespace engine {

std::optional<std::vector<std::string>> PathTokens(std::string_view path, const PathKind& kind) {
    if (path.size() > kind.longest)
        return {};
    std::vector<std::string> tokens;
    std::size_t at = 0;
    for (auto token = NextPathToken(path, kind, at); !token.empty(); token = NextPathToken(path, kind, at))
        tokens.emplace_back(token);
    return tokens;
}

std::string_view NextPathToken(std::string_view path, const PathKind& kind, std::size_t& at) noexcept {
    const std::size_t begin = path.find_first_not_of(kind.separators, at);
    if (begin == std::string_view::npos)
        return {};
    at = std::min(path.find_first_of(kind.separators, begin), path.size());
    return path.substr(begin, at - begin);
}

bool HasPathToken(std::string_view path, const PathKind& kind, std::size_t at) noexcept {
    return path.find_first_not_of(kind.separators, at) != std::string_view::npos;
}

int PathNumber(std::string_view token) noexcept {
    token.remove_prefix(std::min(token.find_first_not_of(" \t\n\v\f\r"), token.size()));
    const bool negative = token.starts_with('-');
    // The conversion knows no plus sign, and would take a minus sign behind one.
    if (token.starts_with('+'))
        token.remove_prefix(token.substr(1).starts_with('-') ? token.size() : 1);
    int number = 0;
    const auto result = std::from_chars(token.data(), token.data() + token.size(), number);
    if (result.ec == std::errc::result_out_of_range)
        return negative ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
    return number;
}

} // namespace engine
