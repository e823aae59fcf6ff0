#include "inhouse/group_combo_query.h"

namespace dkGroupComboHelpers {

std::string pack_query(const dkGroupComboQuery& query) {
    std::string packed = query.heading.c_str();
    packed += '\0';
    packed += query.item.c_str();
    packed += '\0';
    return packed;
}

} // namespace dkGroupComboHelpers
