#include "trace/wording.h"

#include "automation/interfaces.h"
#include "explain/utf8.h"

namespace trace {

namespace {

using engine::diagnostics::Step;
using engine::diagnostics::StepKind;
using engine::diagnostics::StepOutcome;
using engine::diagnostics::StepResult;

std::string Quoted(const char* text) {
    return "'" + explain::AnsiToUtf8(text) + "'";
}

std::string Seconds(int milliseconds) {
    return std::to_string(milliseconds / 1000) + " s";
}

std::string SynchronisationText(const StepResult& result) {
    std::string text = result.outcome == StepOutcome::InStep ? "in step" : "gave up";
    text += std::string(", marker ") + result.marker;
    if (result.popup != nullptr) {
        char caption[engine::kSearchTextSize] = "";
        GetWindowTextA(result.popup, caption, engine::kSearchTextSize);
        text += ", a dialog came: " + Quoted(caption);
    }
    return text + ", thread " +
           (result.idle == std::string_view("unknown") ? "idle or not: unknown" : result.idle);
}

std::string KnownResult(HRESULT result) {
    switch (result) {
    case E_FAIL:
        return "E_FAIL";
    case E_UNEXPECTED:
        return "E_UNEXPECTED: the object stands for nothing";
    case E_NOTIMPL:
        return "E_NOTIMPL: the member is not there for this class";
    case E_OUTOFMEMORY:
        return "E_OUTOFMEMORY";
    case E_POINTER:
        return "E_POINTER";
    case E_INVALIDARG:
        return "E_INVALIDARG";
    default:
        return engine::diagnostics::Format("0x%08lX", static_cast<unsigned long>(result));
    }
}

} // namespace

std::string_view StepKindName(StepKind kind) noexcept {
    switch (kind) {
    case StepKind::Wait:
        return "wait";
    case StepKind::Synchronise:
        return "synchronise";
    case StepKind::Pause:
        return "pause";
    }
    return {};
}

std::string StepText(const Step& step) {
    if (step.kind == StepKind::Pause) {
        return "pause of " + std::to_string(step.limitMilliseconds) + " ms";
    }
    if (step.kind == StepKind::Synchronise) {
        return "wait until the program has handled what it got, at most " + Seconds(step.limitMilliseconds);
    }
    // The engine's text says what did not come true: "Failed to wait for ...".
    constexpr std::string_view kFailed = "Failed to ";
    const auto text = step.text.starts_with(kFailed) ? step.text.substr(kFailed.size()) : step.text;
    return explain::AnsiToUtf8(text) + " At most " + Seconds(step.limitMilliseconds) + ".";
}

std::string OutcomeText(const Step& step, const StepResult& result) {
    const std::string tries =
        result.rounds == 1 ? "at the first try" : "after " + std::to_string(result.rounds) + " tries";
    switch (result.outcome) {
    case StepOutcome::CameTrue:
        return "there " + tries;
    case StepOutcome::TimedOut:
        return "timed out after " + Seconds(step.limitMilliseconds) + ", " + std::to_string(result.rounds) +
               (result.rounds == 1 ? " try" : " tries");
    case StepOutcome::WindowGone:
        return "ended: the window that was searched is gone";
    case StepOutcome::InStep:
    case StepOutcome::GaveUp:
        return SynchronisationText(result);
    case StepOutcome::Done:
        break;
    }
    return {};
}

std::string SearchText(const engine::WindowCriteria& criteria) {
    const auto has = [&](engine::SearchFlag flag) { return (criteria.flags & flag) != 0; };
    std::string text = criteria.parent == nullptr ? "top-level window" : "window";
    if (criteria.customTest != nullptr && !criteria.customKind.empty()) {
        text = explain::AnsiToUtf8(criteria.customKind);
    }
    if (criteria.parent == nullptr && criteria.moduleName[0] != '\0') {
        text += " of a program whose name begins with " + Quoted(criteria.moduleName);
    }
    if (!has(engine::kIgnoreCaption)) {
        text += (has(engine::kCaptionContains) ? ", caption contains " : ", caption is ") +
                Quoted(criteria.caption);
    }
    if (!has(engine::kIgnoreClass)) {
        text +=
            (has(engine::kClassContains) ? ", class contains " : ", class is ") + Quoted(criteria.className);
    }
    if (!has(engine::kIgnoreId)) {
        text += ", id " + std::to_string(criteria.controlId);
    }
    if (criteria.parent != nullptr) {
        text += has(engine::kAnyDescendant) ? ", at any depth" : ", direct child";
    }
    text += has(engine::kIncludeHidden) ? ", visible or hidden" : ", visible";
    if (has(engine::kEnabledOnly)) {
        text += ", enabled";
    }
    if (const std::uint32_t occurrence = criteria.flags >> 16; occurrence > 1) {
        text += ", number " + std::to_string(occurrence) + " of those";
    }
    return text;
}

std::string ErrorText(HRESULT result) {
    std::string text = "error " + KnownResult(result);
    IErrorInfo* information = nullptr;
    if (GetErrorInfo(0, &information) == S_OK) {
        BSTR description = nullptr;
        if (SUCCEEDED(information->GetDescription(&description)) && description != nullptr) {
            text += ": " + explain::ToUtf8({description, SysStringLen(description)});
            SysFreeString(description);
        }
        SetErrorInfo(0, information);
        information->Release();
    }
    return text;
}

} // namespace trace
