#include "misbehaviour.h"

#include "answer_style.h"
#include "bar_popup.h"
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
    {"hold-at-message", Misbehaviour::HoldAtMessage},
    {"destroy-at-message", Misbehaviour::DestroyAtMessage},
    {"throw-at-message", Misbehaviour::ThrowAtMessage},
    {"pump-in-messages", Misbehaviour::PumpInMessages},
    {"full-queue", Misbehaviour::FullQueue},
    {"floating-bar", Misbehaviour::FloatingBar},
    {"stubborn-popups", Misbehaviour::StubbornPopups},
    {"hide-popups", Misbehaviour::HidePopups},
    {"answer-properly", Misbehaviour::AnswerProperly},
    {"answer-nothing", Misbehaviour::AnswerNothing},
    {"answer-165", Misbehaviour::Answer165},
    {"answer-garbage", Misbehaviour::AnswerGarbage},
    {"answer-by-pointer", Misbehaviour::AnswerByPointer},
    {"answer-too-long", Misbehaviour::AnswerTooLong},
    {"answer-unterminated", Misbehaviour::AnswerUnterminated},
    {"answer-unreadable", Misbehaviour::AnswerUnreadable},
    {"answer-without-end", Misbehaviour::AnswerWithoutEnd},
    {"answer-huge", Misbehaviour::AnswerHuge},
};

// What waits for a message that has not come yet.
struct Plan {
    HWND window;
    Misbehaviour what;
    UINT message = 0;     // CrashOnMessage and those in the middle of a message, there 0 for any
    unsigned ordinal = 0; // of those in the middle of a message: how many have yet to come
};

std::vector<Plan> plans;
std::map<HWND, ULONGLONG> restlessUntil; // tick count in ms
std::map<HWND, DWORD> pumpedFor;         // ms

constexpr DWORD kExceptionCode = 0xE0000001;

void EndProcess() {
    TerminateProcess(GetCurrentProcess(), kCrashExitCode);
}

// A named event that another process has made; null if there is none.
HANDLE OpenNamedEvent(const char* name) {
    return OpenEventA(EVENT_MODIFY_STATE | SYNCHRONIZE, FALSE,
                      (name + std::to_string(GetCurrentProcessId())).c_str());
}

void ReportReached() {
    if (const HANDLE reached = OpenNamedEvent(kReachedEvent)) {
        SetEvent(reached);
        CloseHandle(reached);
    }
}

void Hold() {
    const HANDLE release = OpenNamedEvent(kReleaseEvent);
    ReportReached();
    if (release) {
        WaitForSingleObject(release, 60000);
        CloseHandle(release);
    }
}

void ActInMessage(const Plan& plan) {
    switch (plan.what) {
    case Misbehaviour::HoldAtMessage:
        Hold();
        break;
    case Misbehaviour::DestroyAtMessage:
        DestroyWindow(plan.window);
        ReportReached();
        break;
    case Misbehaviour::ThrowAtMessage:
        ReportReached();
        RaiseException(kExceptionCode, 0, 0, nullptr);
        break;
    default:
        break;
    }
}

void Pump(DWORD milliseconds) {
    const ULONGLONG end = GetTickCount64() + milliseconds;
    do {
        for (MSG message; PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE);) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
        Sleep(1);
    } while (GetTickCount64() < end);
}

void FillQueue(HWND window) {
    constexpr int kMostMessages = 10000; // the system's own limit
    for (int count = 0; count < kMostMessages && PostMessageA(window, WM_NULL, 0, 0); ++count) {
    }
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
        plans.push_back({window, what});
        return true;
    case Misbehaviour::HoldAtMessage:
    case Misbehaviour::DestroyAtMessage:
    case Misbehaviour::ThrowAtMessage:
        std::erase_if(plans, [](const Plan& plan) { return plan.ordinal != 0; }); // the last order counts
        if (HIWORD(number) != 0)
            plans.push_back({window, what, LOWORD(number), HIWORD(number)});
        return true;
    case Misbehaviour::PumpInMessages:
        pumpedFor[window] = static_cast<DWORD>(std::max<LPARAM>(number, 0));
        return true;
    case Misbehaviour::FullQueue:
        FillQueue(window);
        Sleep(static_cast<DWORD>(std::max<LPARAM>(number, 0)));
        return true;
    case Misbehaviour::FloatingBar:
        OpenFloatingBar();
        return true;
    case Misbehaviour::StubbornPopups:
    case Misbehaviour::HidePopups:
        SpoilPopups(what, static_cast<DWORD>(std::max<LPARAM>(number, 0)));
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

void MisbehaveInMessage(const MSG& message) {
    const auto plan = std::ranges::find_if(plans, [&](const Plan& candidate) {
        return candidate.ordinal != 0 && (candidate.message == 0 || candidate.message == message.message);
    });
    if (plan == plans.end() || --plan->ordinal != 0)
        return;
    const Plan due = *plan;
    plans.erase(plan); // first: what it does may bring further messages
    ActInMessage(due);
}

void PumpBeforeAnswer(const MSG& message) {
    for (const auto& [window, milliseconds] : std::map(pumpedFor)) // a copy: the loop may change it
        if (milliseconds != 0 && message.message >= WM_USER &&
            (window == message.hwnd || IsChild(window, message.hwnd)))
            Pump(milliseconds);
}

void ForgetMisbehaviour(HWND window) {
    std::erase_if(plans, [&](const Plan& plan) { return plan.window == window; });
    restlessUntil.erase(window);
    pumpedFor.erase(window);
    ForgetAnswerStyle(window);
}

} // namespace sample_host
