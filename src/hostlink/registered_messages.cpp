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

UINT RegisteredOrNone(std::uint32_t identifier) noexcept {
    constexpr std::uint32_t kFirst = 0xC000;
    constexpr std::uint32_t kLast = 0xFFFF;
    return identifier >= kFirst && identifier <= kLast ? identifier : 0;
}

// The name always has the same identifier on a desktop: what the section says otherwise is mended.
UINT RegisterOnFirstUse(volatile std::uint32_t& cached, UINT& own, const char* name) noexcept {
    if (own == 0) {
        own = RegisterWindowMessageA(name);
    }
    if (cached != own) {
        cached = own;
    }
    return own;
}

UINT ownSendRemotelyMessage = 0;
UINT ownSetKeyStateMessage = 0;

} // namespace

UINT SendRemotelyMessage() noexcept {
    return RegisterOnFirstUse(shared.sendRemotelyMsg, ownSendRemotelyMessage, names::kSendRemotely);
}

UINT SetKeyStateMessage() noexcept {
    return RegisterOnFirstUse(shared.setKeyStateMsg, ownSetKeyStateMessage, names::kSetKeyState);
}

UINT WalkMessage() noexcept {
    static UINT own = 0;
    if (own == 0) {
        own = RegisterWindowMessageA(names::kWalk);
    }
    return own;
}

UINT AwaitedSendRemotelyMessage() noexcept {
    return RegisteredOrNone(shared.sendRemotelyMsg);
}

UINT AwaitedSetKeyStateMessage() noexcept {
    return RegisteredOrNone(shared.setKeyStateMsg);
}

} // namespace hostlink
