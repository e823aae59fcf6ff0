#include "message_names.h"

#include "host_log.h"
#include "host_misbehaviour.h"

#include <ghosthand/host_contract.h>

#include <algorithm>
#include <array>
#include <map>

namespace sample_host {
namespace {

namespace contract = ghosthand::host_contract::message_name;

struct NamedMessage {
    UINT message;
    const char* name;
};

constexpr NamedMessage kSystemMessages[] = {
    {WM_NULL, "WM_NULL"},
    {WM_MOVE, "WM_MOVE"},
    {WM_SIZE, "WM_SIZE"},
    {WM_ACTIVATE, "WM_ACTIVATE"},
    {WM_SETFOCUS, "WM_SETFOCUS"},
    {WM_KILLFOCUS, "WM_KILLFOCUS"},
    {WM_ENABLE, "WM_ENABLE"},
    {WM_SETTEXT, "WM_SETTEXT"},
    {WM_CLOSE, "WM_CLOSE"},
    {WM_DESTROY, "WM_DESTROY"},
    {WM_QUIT, "WM_QUIT"},
    {WM_SHOWWINDOW, "WM_SHOWWINDOW"},
    {WM_CANCELMODE, "WM_CANCELMODE"},
    {WM_NOTIFY, "WM_NOTIFY"},
    {WM_CONTEXTMENU, "WM_CONTEXTMENU"},
    {WM_NCLBUTTONDOWN, "WM_NCLBUTTONDOWN"},
    {WM_NCLBUTTONUP, "WM_NCLBUTTONUP"},
    {WM_KEYDOWN, "WM_KEYDOWN"},
    {WM_KEYUP, "WM_KEYUP"},
    {WM_CHAR, "WM_CHAR"},
    {WM_SYSKEYDOWN, "WM_SYSKEYDOWN"},
    {WM_SYSKEYUP, "WM_SYSKEYUP"},
    {WM_SYSCHAR, "WM_SYSCHAR"},
    {WM_COMMAND, "WM_COMMAND"},
    {WM_SYSCOMMAND, "WM_SYSCOMMAND"},
    {WM_HSCROLL, "WM_HSCROLL"},
    {WM_VSCROLL, "WM_VSCROLL"},
    {WM_ENTERMENULOOP, "WM_ENTERMENULOOP"},
    {WM_EXITMENULOOP, "WM_EXITMENULOOP"},
    {WM_MOUSEMOVE, "WM_MOUSEMOVE"},
    {WM_LBUTTONDOWN, "WM_LBUTTONDOWN"},
    {WM_LBUTTONUP, "WM_LBUTTONUP"},
    {WM_LBUTTONDBLCLK, "WM_LBUTTONDBLCLK"},
    {WM_RBUTTONDOWN, "WM_RBUTTONDOWN"},
    {WM_RBUTTONUP, "WM_RBUTTONUP"},
    {WM_RBUTTONDBLCLK, "WM_RBUTTONDBLCLK"},
    {WM_MBUTTONDOWN, "WM_MBUTTONDOWN"},
    {WM_MBUTTONUP, "WM_MBUTTONUP"},
    {WM_MBUTTONDBLCLK, "WM_MBUTTONDBLCLK"},
    {WM_MOVING, "WM_MOVING"},
    {WM_SIZING, "WM_SIZING"},
    {WM_MDIACTIVATE, "WM_MDIACTIVATE"},
    {WM_MDIGETACTIVE, "WM_MDIGETACTIVE"},
    {0x036A, "WM_KICKIDLE"}, // the idle-processing message of a common host framework
};

constexpr const char* kRegisteredMessages[] = {
    contract::kSync,
    contract::kSendRemotely,
    contract::kWalk,
    contract::kSetKeyState,
    contract::kGetLocale,
    contract::kGetWindowByName,
    contract::kGetViewPosition,
    contract::kSetViewPosition,
    contract::kGrid,
    contract::kOptionTree,
    contract::kRibbonWidget,
    contract::kToolbarCustomizeMode,
    contract::kCadTree,
    contract::kItemAtPoint,
};

struct Range {
    UINT first, last;
    const char* name;
};

// Requests that controls of the system take. WM_USER and up is private to each window class.
constexpr Range kControlRanges[] = {
    {0x00B0, 0x00EF, "EM_request"},  {0x00F0, 0x00FF, "BM_request"},  {0x0140, 0x016F, "CB_request"},
    {0x0180, 0x01B6, "LB_request"},  {0x0400, 0x0FFF, "WM_USER"},     {0x1000, 0x10FF, "LVM_request"},
    {0x1100, 0x11FF, "TVM_request"}, {0x1200, 0x12FF, "HDM_request"}, {0x1300, 0x13FF, "TCM_request"},
    {0x2001, 0x2003, "CCM_request"}, {0x8002, 0x8003, "group_combo"},
};

const std::map<UINT, std::string>& RegisteredNames() {
    static const auto names = [] {
        std::map<UINT, std::string> result;
        for (const char* name : kRegisteredMessages)
            result[RegisterWindowMessageA(name)] = name;
        return result;
    }();
    return names;
}

const NamedMessage* SystemMessage(UINT message) {
    const auto found = std::ranges::find(kSystemMessages, message, &NamedMessage::message);
    return found != std::end(kSystemMessages) ? found : nullptr;
}

const Range* ControlRange(UINT message) {
    const auto found = std::ranges::find_if(
        kControlRanges, [&](const Range& range) { return message >= range.first && message <= range.last; });
    return found != std::end(kControlRanges) ? found : nullptr;
}

} // namespace

std::string MessageName(UINT message) {
    if (const NamedMessage* known = SystemMessage(message))
        return known->name;
    if (const auto known = RegisteredNames().find(message); known != RegisteredNames().end())
        return known->second;
    if (const Range* range = ControlRange(message))
        return range->name;
    return "message";
}

bool IsControlRequest(UINT message) {
    return ControlRange(message) != nullptr;
}

bool IsLoggedWhenSent(UINT message) {
    return SystemMessage(message) || RegisteredNames().contains(message) || ControlRange(message);
}

bool IsLoggedWhenPosted(UINT message) {
    return message != WM_PAINT && message != WM_TIMER;
}

const OwnMessages& Messages() {
    static const OwnMessages messages{
        RegisterWindowMessageA(contract::kSync), RegisterWindowMessageA(contract::kGetWindowByName),
        RegisterWindowMessageA(kClearLogMessage), RegisterWindowMessageA(kMisbehaveMessage),
        RegisterWindowMessageA(kAskMessage)};
    return messages;
}

} // namespace sample_host
