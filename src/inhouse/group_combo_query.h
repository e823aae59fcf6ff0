// Part of dlgkit.h: the query of a group combo, without Windows.
#pragma once

#include <string>

// Asks a group combo for the item of that name below the heading of that name.
struct dkGroupComboQuery {
    std::string heading;
    std::string item;
};

namespace dkGroupComboHelpers {

// The bytes that travel with group_combo::kFindByNames of ghosthand/host_contract.h: heading, NUL, item,
// NUL. A NUL inside a name ends that name.
std::string pack_query(const dkGroupComboQuery& query);

} // namespace dkGroupComboHelpers
