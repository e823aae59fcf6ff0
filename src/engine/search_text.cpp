#include "engine/search_text.h"

#include <cstring>

namespace engine {

void SetSearchText(char (&field)[kSearchTextSize], std::string_view text,
                   const hostlink::CodePage& codePage) noexcept {
    const std::size_t length = hostlink::CutLength(text, kSearchTextSize - 1, codePage);
    text.copy(field, length);
    field[length] = '\0';
}

bool HasWantedText(const char* text, const char* wanted, bool contains) noexcept {
    return contains ? std::strstr(text, wanted) != nullptr : std::strcmp(text, wanted) == 0;
}

} // namespace engine
