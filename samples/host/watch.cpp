#include "watch.h"

#include "answer_style.h"
#include "log_writer.h"
#include "message_names.h"
#include "self_report.h"
#include "subclass.h"

#include <algorithm>
#include <map>

namespace sample_host {
namespace {

std::map<HWND, std::string> names;
std::vector<MisbehaviourOrder> ordersForControls;

// The posted message that is on its way to its window procedure; it has been recorded already.
MSG inDispatch{};

bool TakeDispatched(const MSG& message) {
    const bool same = inDispatch.hwnd == message.hwnd && inDispatch.message == message.message &&
                      inDispatch.wParam == message.wParam && inDispatch.lParam == message.lParam;
    if (same)
        inDispatch = {};
    return same;
}

void Record(Delivery delivery, const MSG& message) {
    Log().Write(delivery, message);
    MisbehaveInMessage(message);
}

LRESULT AnswerWindowByName(WPARAM atom) {
    char name[256] = "";
    GlobalGetAtomNameA(static_cast<ATOM>(atom), name, sizeof name);
    return reinterpret_cast<LRESULT>(FindWatched(name));
}

LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, const NextProcedure& next) {
    const MSG received{window, message, wParam, lParam, 0, {}};
    if (!TakeDispatched(received) && IsLoggedWhenSent(message))
        Record(Delivery::Sent, received);

    if (message == Messages().clearLog) {
        Log().Clear();
        return 1;
    }
    if (message == Messages().misbehave)
        return Misbehave(window, static_cast<Misbehaviour>(wParam), lParam);
    if (message == Messages().ask)
        return Answer(static_cast<Question>(wParam));
    if (message == WM_NCDESTROY) {
        names.erase(window);
        ForgetMisbehaviour(window);
    } else {
        MisbehaveBefore(received);
        PumpBeforeAnswer(received);
        if (!IsWindow(window))
            return 0;
    }
    return AnswerInStyle(received, [&] {
        return message == Messages().getWindowByName ? AnswerWindowByName(wParam)
                                                     : next(window, message, wParam, lParam);
    });
}

LRESULT CALLBACK OnQueue(int code, WPARAM removed, LPARAM lParam) {
    const MSG& message = *reinterpret_cast<const MSG*>(lParam);
    if (code >= 0 && removed == PM_REMOVE && message.hwnd) {
        if (IsLoggedWhenPosted(message.message))
            Record(Delivery::Posted, message);
        inDispatch = message;
    }
    return CallNextHookEx(nullptr, code, removed, lParam);
}

BOOL CALLBACK WatchDescendant(HWND window, LPARAM parameter) {
    if (names.contains(window))
        return TRUE;
    const std::string& prefix = *reinterpret_cast<const std::string*>(parameter);
    const int id = ControlIdOf(window);
    std::string name = prefix + "." + std::to_string(id);
    for (int counter = 1; id <= 0 || id == 0xFFFF || FindWatched(name); ++counter) {
        name = prefix + ".#" + std::to_string(counter);
        if (!FindWatched(name))
            break;
    }
    Watch(window, name);
    return TRUE;
}

} // namespace

void Watch(HWND window, const std::string& name) {
    names[window] = name;
    AddSubclass(window, OnMessage);
    const int id = ControlIdOf(window);
    const auto isMeant = [&](const MisbehaviourOrder& order) { return id != 0 && order.controlId == id; };
    for (const MisbehaviourOrder& order : ordersForControls)
        if (isMeant(order))
            PostMessageA(window, Messages().misbehave, static_cast<WPARAM>(order.what), order.number);
    std::erase_if(ordersForControls, isMeant);
}

void WatchBelow(HWND window) {
    const std::string prefix = NameOf(window);
    EnumChildWindows(window, WatchDescendant, reinterpret_cast<LPARAM>(&prefix));
}

std::string NameOf(HWND window) {
    if (const auto found = names.find(window); found != names.end())
        return found->second;
    char className[64] = "";
    GetClassNameA(window, className, sizeof className);
    return className;
}

int ControlIdOf(HWND window) {
    return GetWindowLongPtrA(window, GWL_STYLE) & WS_CHILD ? GetDlgCtrlID(window) : 0;
}

HWND FindWatched(const std::string& name) {
    const auto found = std::ranges::find_if(
        names, [&](const auto& entry) { return lstrcmpiA(entry.second.c_str(), name.c_str()) == 0; });
    return found != names.end() ? found->first : nullptr;
}

void MisbehaveWhenWatched(std::vector<MisbehaviourOrder> orders) {
    ordersForControls = std::move(orders);
}

PostedMessageWatch::PostedMessageWatch()
    : m_hook(SetWindowsHookExA(WH_GETMESSAGE, OnQueue, nullptr, GetCurrentThreadId())) {}

PostedMessageWatch::~PostedMessageWatch() {
    UnhookWindowsHookEx(m_hook);
}

} // namespace sample_host
