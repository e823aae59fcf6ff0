#include "controls/ghRibCustomiser.h"

#include "controls/host_text_request.h"
#include "ghosthand/host_contract.h"
#include "hostlink/registered_messages.h"
#include "hostlink/remote_send.h"

namespace contract = ghosthand::host_contract;

std::string ghRibCustomiser::Selected() const {
    contract::TextBuffer record = {};
    return controls::RequestText(*this, hostlink::MSG_REQUEST_RIB_CUSTOMISATION_WIDGET_DATA,
                                 contract::ribbon_widget::kGetSelected, hostlink::AsBlock(record), 0);
}

bool ghRibCustomiser::Select(const std::string& name) const {
    contract::TextBuffer record = {};
    return controls::SendText(*this, hostlink::MSG_REQUEST_RIB_CUSTOMISATION_WIDGET_DATA,
                              contract::ribbon_widget::kSetSelected, hostlink::AsBlock(record), 0, name) == 1;
}
