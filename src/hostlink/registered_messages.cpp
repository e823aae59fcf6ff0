#include "hostlink/registered_messages.h"

#include "ghosthand/host_contract.h"
#include "hostlink/shared_section.h"

namespace hostlink {

namespace names = ghosthand::host_contract::message_name;

// Initialised in this order, in every process that loads the module. The view position message is
// registered twice on purpose: once for the probe, once for the camera read.
const UINT MSG_HA_GetViewPosition = RegisterWindowMessageA(names::kGetViewPosition);
const UINT MSG_HA_GetWindoHWND = RegisterWindowMessageA(names::kGetWindowByName);
const UINT MSG_GH_SYNC = RegisterWindowMessageA(names::kSync);
const UINT MSG_HA_GetViewPosition_Camera = RegisterWindowMessageA(names::kGetViewPosition);
const UINT MSG_HA_SetViewPosition = RegisterWindowMessageA(names::kSetViewPosition);
const UINT MSG_GX_RequestGridInformation = RegisterWindowMessageA(names::kGrid);
const UINT MSG_GH_GET_LOCALE = RegisterWindowMessageA(names::kGetLocale);
const UINT MSG_OT_RequestInformation = RegisterWindowMessageA(names::kOptionTree);
const UINT MSG_REQUEST_RIB_CUSTOMISATION_WIDGET_DATA = RegisterWindowMessageA(names::kRibbonWidget);
const UINT BCGTOOLBAR_SET_CUSTOMIZE_MODE = RegisterWindowMessageA(names::kToolbarCustomizeMode);

namespace {

UINT RegisterOnFirstUse(volatile std::uint32_t& cached, const char* name) noexcept {
    if (cached == 0) {
        cached = RegisterWindowMessageA(name);
    }
    return cached;
}

} // namespace

UINT SendRemotelyMessage() noexcept {
    return RegisterOnFirstUse(shared.sendRemotelyMsg, names::kSendRemotely);
}

UINT SetKeyStateMessage() noexcept {
    return RegisterOnFirstUse(shared.setKeyStateMsg, names::kSetKeyState);
}

} // namespace hostlink
