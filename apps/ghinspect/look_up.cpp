#include "ghinspect/look_up.h"

#include <array>
#include <cstdio>

#include "explain/utf8.h"
#include "ghinspect/object_members.h"
#include "shared/ghosthand_module.h"

namespace inspector {

namespace {

std::wstring FoundIn(const std::wstring& kind, double milliseconds) {
    std::array<wchar_t, 40> time = {};
    std::swprintf(time.data(), time.size(), L"%.1f ms", milliseconds);
    return kind + L", found by the search itself in " + time.data();
}

std::wstring RemarksOn(const explain::ProgramFacts* program) {
    std::wstring text;
    if (program != nullptr) {
        for (const std::string& remark : explain::Remarks(*program)) {
            text += (text.empty() ? L"" : L" ") + explain::ToUtf16(remark);
        }
    }
    return text;
}

void AddRemarks(LookedUp& result, const explain::ProgramFacts* program) {
    const std::wstring remarks = RemarksOn(program);
    if (!remarks.empty()) {
        result.verdict += (result.verdict.empty() ? L"" : L". ") + remarks;
    }
}

void AddItem(LookedUp& result, HWND window, const explain::ItemAtPoint& item) {
    std::wstring what = explain::ToUtf16(item.kind) + L" of a " + result.kind;
    CharUpperBuffW(what.data(), 1);
    if (item.steps.empty()) {
        result.verdict = what + L": scripts cannot reach the item. The call leads to the control";
        return;
    }
    result.call.insert(result.call.end(), item.steps.begin(), item.steps.end());
    if (LookingPart(result.call) != result.call) {
        result.verdict = what + L". The call selects it or opens a menu, so it was not tried";
    } else if (explain::Answers(window)) {
        const double milliseconds = Time(result.call);
        result.verdict =
            milliseconds < 0 ? what + L": the call did not find it just now" : FoundIn(what, milliseconds);
    }
}

Target TargetOf(HWND window) {
    Target target;
    GetWindowThreadProcessId(window, &target.processId);
    target.window = window;
    return target;
}

} // namespace

LookedUp LookUpWindow(HWND window, const std::optional<explain::ItemAtPoint>& item,
                      const explain::ProgramFacts* program) {
    // From here on what has to run inside the program goes through the carried module.
    apps::GhosthandModule();
    const explain::WindowCall found = explain::CallTo(window);
    LookedUp result;
    result.kind = explain::ToUtf16(found.kind);
    result.call = found.call;
    if (found.call.empty()) {
        result.verdict = explain::ToUtf16(found.obstacle);
    } else {
        result.verdict = found.isVerified ? FoundIn(result.kind, found.milliseconds)
                                          : result.kind + L". The search was not run";
        if (item) {
            AddItem(result, window, *item);
        }
    }
    AddRemarks(result, program);
    return result;
}

LookedUp LookUpProgram(const explain::ProgramFacts& program) {
    LookedUp result;
    result.kind = L"Program";
    const std::string name = program.name.substr(0, program.name.rfind('.'));
    if (name.empty()) {
        result.verdict = L"The name of its file cannot be read";
    } else {
        const explain::Call call = {{"MainWindow", {name}}};
        LARGE_INTEGER frequency;
        LARGE_INTEGER begin;
        LARGE_INTEGER end;
        QueryPerformanceFrequency(&frequency);
        QueryPerformanceCounter(&begin);
        const HWND found = explain::Follow(call);
        QueryPerformanceCounter(&end);
        const DWORD owner = TargetOf(found).processId;
        if (found == nullptr) {
            result.verdict = L"It has no main window that a script would find";
        } else if (owner != program.processId) {
            result.verdict = L"MainWindow finds another program of that name, process " +
                             std::to_wstring(owner) + L". Select a window for a call that tells them apart";
        } else {
            result.call = call;
            result.verdict = FoundIn(L"Its main window", static_cast<double>(end.QuadPart - begin.QuadPart) *
                                                             1000 / static_cast<double>(frequency.QuadPart));
        }
    }
    AddRemarks(result, &program);
    return result;
}

std::optional<Picked> PickAt(POINT screenPoint) {
    apps::GhosthandModule();
    const HWND window = explain::WindowAtPoint(screenPoint);
    Picked picked;
    picked.target = TargetOf(window);
    if (window == nullptr || picked.target.processId == GetCurrentProcessId()) {
        return std::nullopt;
    }
    GetWindowRect(window, &picked.frame);
    if (explain::Answers(window)) {
        picked.item = explain::ItemOf(window, screenPoint);
    }
    if (picked.item && !IsRectEmpty(&picked.item->rectangle)) {
        picked.frame = picked.item->rectangle;
    }
    return picked;
}

Followed FollowCall(const explain::Call& call) {
    explain::Call way = call;
    while (!way.empty()) {
        if (const HWND window = explain::Follow(way); window != nullptr) {
            Followed followed{TargetOf(window), L"The call leads to this window."};
            if (way.size() < call.size()) {
                followed.message = L"The call gets as far as this window; " +
                                   explain::ToUtf16(call[way.size()].member) + L", its next step, " +
                                   L"finds no window below it now.";
            }
            return followed;
        }
        way.pop_back();
    }
    return {std::nullopt, L"Nothing: no program runs that MainWindow of this call would find."};
}

} // namespace inspector
