// Identifiers of the registered window messages that the server and the host share.
#pragma once

#include <windows.h>

namespace hostlink {

// Registered when the module is loaded into any process. 0 if the system refused the registration; a
// message 0 is then sent and answered as WM_NULL.
extern const UINT MSG_HA_GetViewPosition; // the probe: wParam 1, answered 1 by a CAD view
extern const UINT MSG_HA_GetWindoHWND;
extern const UINT MSG_GH_SYNC;
extern const UINT MSG_HA_GetViewPosition_Camera; // the same identifier once more, for the camera read
extern const UINT MSG_HA_SetViewPosition;
extern const UINT MSG_GX_RequestGridInformation;
extern const UINT MSG_GH_GET_LOCALE;
extern const UINT MSG_OT_RequestInformation;
extern const UINT MSG_REQUEST_RIB_CUSTOMISATION_WIDGET_DATA;
extern const UINT BCGTOOLBAR_SET_CUSTOMIZE_MODE;

// Registered on first use and kept in the shared section, where the hook procedures in the host's
// process find them. Call before installing a hook that waits for the message. 0 if the system refused
// the registration.
UINT SendRemotelyMessage() noexcept;
UINT SetKeyStateMessage() noexcept;

// Registered on first use by either side for itself. 0 if the system refused the registration.
UINT WalkMessage() noexcept;

// For the hook procedures: what stands in the shared section, 0 if that is no registered message. Any
// process can write there, and the number of a message of the system would be taken for the signal.
UINT AwaitedSendRemotelyMessage() noexcept;
UINT AwaitedSetKeyStateMessage() noexcept;

} // namespace hostlink
