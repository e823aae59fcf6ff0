#pragma once

#include <cstdint>
#include <vector>

// Corrects in place what widl stores otherwise than Microsoft's compiler does, in a type library file (format
// MSFT). None of it moves anything. A library that is right already keeps its contents. Throws
// std::runtime_error where the file's own tables point outside it.
void FollowMicrosoftConventions(std::vector<std::uint8_t>& library);
