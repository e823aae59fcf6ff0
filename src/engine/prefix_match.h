// The test by which items of menus, toolbars and lists are found by name: the text begins with the name.
#pragma once

#include <string_view>

namespace engine {

// Case-sensitive; an empty prefix begins every text. Bytes are compared: two texts that agree so far are cut
// into characters alike, so a prefix of whole characters, as the conversion from a script's text makes it,
// matches only whole characters, in double-byte code pages too.
inline bool StartsWith(std::string_view text, std::string_view prefix) noexcept {
    return text.starts_with(prefix);
}

} // namespace engine
