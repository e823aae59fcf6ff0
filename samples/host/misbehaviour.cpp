#include "misbehaviour.h"

#include "answer_style.h"
#include "control.h"
#include "message_names.h"
#include "page_table.h"

#include <algorithm>
#include <charconv>
#include <map>
#include <vector>

namespace sample_host {
namespace {

// Posted by a window that never becomes idle to itself.
constexpr UINT kTick = WM_APP + 0x100;

struct Name {
    std::string_view name;
    Misbehaviour what;
};
constexpr Name kNames[] = {
    {"busy", Misbehaviour::Busy},
    {"late-dialog", Misbehaviour::LateDialog},
    {"destroy-on-command", Misbehaviour::DestroyOnCommand},
    {"destroy-on-click", Misbehaviour::DestroyOnClick},
    {"destroy-on-sync", Misbehaviour::DestroyOnSync},
    {"destroy-later", Misbehaviour::DestroyLater},
    {"disable", Misbehaviour::Disable},
    {"never-idle", Misbehaviour::NeverIdle},
    {"crash-on-message", Misbehaviour::CrashOnMessage},
    {"create-later", Misbehaviour::CreateLater},
    {"answer-properly", Misbehaviour::AnswerProperly},
    {"answer-nothing", Misbehaviour::AnswerNothing},
    {"answer-165", Misbehaviour::Answer165},
    {"answer-garbage", Misbehaviour::AnswerGarbage},
    {"answer-by-pointer", Misbehaviour::AnswerByPointer},
    {"answer-too-long", Misbehaviour::AnswerTooLong},
    {"answer-unterminated", Misbehaviour::AnswerUnterminated},
    {"answer-unreadable", Misbehaviour::AnswerUnreadable},
    {"answer-without-end", Misbehaviour::AnswerWithoutEnd},
};

// What waits for a message that has not come yet.
struct Plan {
    HWND window;
    Misbehaviour what;
    UINT message; // CrashOnMessage only
};

std::vector<Plan> plans;
std::map<HWND, ULONGLONG> restlessUntil; // tick count in ms

void EndProcess() {
    TerminateProcess(GetCurrentProcess(), kCrashExitCode);
}

// The timer's identifier is what shall be done; it lives and dies with its window.
void CALLBACK OnTimer(HWND window, UINT, UINT_PTR what, DWORD) {
    KillTimer(window, what);
    switch (static_cast<Misbehaviour>(what)) {
    case Misbehaviour::LateDialog:
        OpenPage("late");
        break;
    case Misbehaviour::DestroyLater:
        DestroyWindow(window);
        break;
    case Misbehaviour::Disable:
        EnableWindow(window, TRUE);
        break;
    case Misbehaviour::CreateLater:
        AddControl(window, {.className = "Edit",
                            .text = "late",
                            .style = WS_BORDER,
                            .area = {4, 4, 120, 24},
                            .id = kLateEdit});
        break;
    default:
        break;
    }
}

void After(HWND window, Misbehaviour what, LPARAM milliseconds) {
    SetTimer(window, static_cast<UINT_PTR>(what), static_cast<UINT>(std::max<LPARAM>(milliseconds, 0)),
             OnTimer);
}

bool IsButtonPress(UINT message) {
    return message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN || message == WM_MBUTTONDOWN;
}

bool IsDue(const Plan& plan, const MSG& message) {
    switch (plan.what) {
    case Misbehaviour::DestroyOnCommand:
        return message.message == WM_COMMAND &&
               (plan.window == message.hwnd || IsChild(message.hwnd, plan.window));
    case Misbehaviour::DestroyOnClick:
        return IsButtonPress(message.message) && plan.window == message.hwnd;
    case Misbehaviour::DestroyOnSync:
        return message.message == Messages().sync;
    case Misbehaviour::CrashOnMessage:
        return message.message == plan.message && plan.window == message.hwnd;
    default:
        return false;
    }
}

void Tick(HWND window) {
    const auto found = restlessUntil.find(window);
    if (found == restlessUntil.end())
        return;
    if (GetTickCount64() >= found->second) {
        restlessUntil.erase(found);
        return;
    }
    Sleep(1); // the queue stays full without a whole processor being used up
    PostMessageA(window, kTick, 0, 0);
}

std::optional<int> Number(std::string_view text) {
    int number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    if (error != std::errc{} || end != text.data() + text.size() || number < 0)
        return std::nullopt;
    return number;
}

} // namespace

std::optional<MisbehaviourOrder> ParseMisbehaviour(std::string_view text) {
    MisbehaviourOrder order;
    if (const auto at = text.find('@'); at != text.npos) {
        const auto id = Number(text.substr(at + 1));
        if (!id)
            return std::nullopt;
        order.controlId = *id;
        text = text.substr(0, at);
    }
    if (const auto equals = text.find('='); equals != text.npos) {
        const auto number = Number(text.substr(equals + 1));
        if (!number)
            return std::nullopt;
        order.number = *number;
        text = text.substr(0, equals);
    }
    const auto known = std::ranges::find(kNames, text, &Name::name);
    if (known == std::end(kNames))
        return std::nullopt;
    order.what = known->what;
    return order;
}

bool Misbehave(HWND window, Misbehaviour what, LPARAM number) {
    switch (what) {
    case Misbehaviour::Busy:
        Sleep(static_cast<DWORD>(std::max<LPARAM>(number, 0)));
        return true;
    case Misbehaviour::LateDialog:
    case Misbehaviour::DestroyLater:
    case Misbehaviour::CreateLater:
        After(window, what, number);
        return true;
    case Misbehaviour::Disable:
        EnableWindow(window, FALSE);
        After(window, what, number);
        return true;
    case Misbehaviour::NeverIdle:
        restlessUntil[window] = GetTickCount64() + static_cast<ULONGLONG>(std::max<LPARAM>(number, 0));
        PostMessageA(window, kTick, 0, 0);
        return true;
    case Misbehaviour::CrashOnMessage:
        if (number == 0)
            EndProcess();
        plans.push_back({window, what, static_cast<UINT>(number)});
        return true;
    case Misbehaviour::DestroyOnCommand:
    case Misbehaviour::DestroyOnClick:
    case Misbehaviour::DestroyOnSync:
        plans.push_back({window, what, 0});
        return true;
    default:
        return SetAnswerStyle(window, what);
    }
}

void MisbehaveBefore(const MSG& message) {
    if (message.message == kTick)
        Tick(message.hwnd);
    std::vector<Plan> due;
    std::ranges::copy_if(plans, std::back_inserter(due),
                         [&](const Plan& plan) { return IsDue(plan, message); });
    std::erase_if(plans, [&](const Plan& plan) { return IsDue(plan, message); });
    for (const Plan& plan : due) {
        if (plan.what == Misbehaviour::CrashOnMessage)
            EndProcess();
        DestroyWindow(plan.window);
    }
}

void ForgetMisbehaviour(HWND window) {
    std::erase_if(plans, [&](const Plan& plan) { return plan.window == window; });
    restlessUntil.erase(window);
    ForgetAnswerStyle(window);
}

} // namespace sample_host
