#include "trace/recorder.h"

#include <algorithm>
#include <exception>
#include <type_traits>

#include "explain/call_text.h"
#include "explain/explain_nothing.h"
#include "explain/system_text.h"
#include "explain/utf8.h"
#include "trace/desktop_picture.h"
#include "trace/wording.h"

namespace trace {

namespace {

using engine::diagnostics::Call;
using engine::diagnostics::CallResult;
using engine::diagnostics::Step;
using engine::diagnostics::StepResult;
using explain::JsonWriter;

constexpr int kVersion = 1;
// A script that asks again and again whether something is there is explained, but not for ever.
constexpr int kMostExplanationsOfCall = 2;
constexpr int kMostPictures = 200;

// "TreeControl" for the C++ class ghATLTreeControl, however its compiler decorates it.
std::string ClassName(std::string_view decorated) {
    constexpr std::string_view kPrefix = "ghATL";
    const auto begin = decorated.find(kPrefix);
    return std::string(begin == std::string_view::npos ? decorated
                                                       : decorated.substr(begin + kPrefix.size()));
}

std::string ProgramPath() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return explain::ToUtf8(path);
}

// A value as VBScript writes it.
std::string ValueText(const engine::diagnostics::Value& value) {
    if (const auto* flag = std::get_if<bool>(&value)) {
        return *flag ? "True" : "False";
    }
    if (const auto* number = std::get_if<std::int64_t>(&value)) {
        return std::to_string(*number);
    }
    if (const auto* text = std::get_if<std::wstring>(&value)) {
        return explain::ArgumentText(explain::ToUtf8(*text), explain::Language::VBScript);
    }
    return "Empty";
}

explain::Argument ToArgument(const engine::diagnostics::Value& value, bool isFlags) {
    if (const auto* text = std::get_if<std::wstring>(&value)) {
        return explain::ToUtf8(*text);
    }
    const auto* flag = std::get_if<bool>(&value);
    const auto* integer = std::get_if<std::int64_t>(&value);
    const std::int64_t number = flag != nullptr ? *flag : integer != nullptr ? *integer : 0;
    return isFlags ? explain::Argument(explain::Flags{static_cast<std::uint32_t>(number)})
                   : explain::Argument(number);
}

// What is left to its default is not written.
std::size_t WrittenArguments(const Call& call, const MemberFacts& member) {
    std::size_t count = call.arguments.size();
    while (count > 0 && count <= member.parameters.size() &&
           member.parameters[count - 1].defaultValue == ToArgument(call.arguments[count - 1], false)) {
        --count;
    }
    return count;
}

std::string CallText(const std::string& object, const Call& call, const MemberFacts& member) {
    std::string arguments;
    for (std::size_t index = 0; index < WrittenArguments(call, member); ++index) {
        const bool isFlags = index < member.parameters.size() && member.parameters[index].isFlags;
        const bool isPlain = std::holds_alternative<bool>(call.arguments[index]);
        arguments += index == 0 ? "" : ", ";
        arguments += isPlain ? ValueText(call.arguments[index])
                             : explain::ArgumentText(ToArgument(call.arguments[index], isFlags),
                                                     explain::Language::VBScript);
    }
    std::string text = object + "." + member.name;
    if (member.access == "put") {
        return text + " = " + arguments;
    }
    return arguments.empty() ? text : text + "(" + arguments + ")";
}

void WriteValue(JsonWriter& json, const engine::diagnostics::Value& value) {
    if (const auto* flag = std::get_if<bool>(&value)) {
        json.Bool(*flag);
    } else if (const auto* number = std::get_if<std::int64_t>(&value)) {
        json.Number(*number);
    } else if (const auto* text = std::get_if<std::wstring>(&value)) {
        json.Text(explain::ToUtf8(*text));
    } else {
        json.Null();
    }
}

void WriteRectangle(JsonWriter& json, const RECT& rectangle) {
    json.BeginArray();
    for (const LONG edge : {rectangle.left, rectangle.top, rectangle.right, rectangle.bottom}) {
        json.Number(std::int64_t{edge});
    }
    json.EndArray();
}

// A member that answers a question may well answer False; one that does something has not done it.
bool HasFailed(const MemberFacts& member, const CallResult& result) {
    const auto* flag = std::get_if<bool>(&result.value);
    const bool isQuestion = member.access == "get" || member.name.starts_with("Is");
    return FAILED(result.result) || (result.givesObject && result.object == nullptr) ||
           (flag != nullptr && !*flag && !isQuestion);
}

bool IsEmpty(const RECT& rectangle) {
    return rectangle.left >= rectangle.right || rectangle.top >= rectangle.bottom;
}

} // namespace

Recorder::Recorder(const std::wstring& folder) noexcept : m_file(folder) {
    Record([&](std::unique_lock<std::mutex>&, ThreadState&) { WriteStart(); });
}

// The trace never fails a call: what it has no memory for is not told.
template <class Body>
void Recorder::Record(Body body) noexcept {
    if (!m_file.IsOpen()) {
        return;
    }
    try {
        std::unique_lock lock(m_mutex);
        ThreadState& state = m_threads[GetCurrentThreadId()];
        if (!state.isExplaining) {
            body(lock, state);
        }
    } catch (const std::exception&) {
        return;
    }
}

double Recorder::Milliseconds() const noexcept {
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - m_start).count();
}

JsonWriter& Recorder::BeginEvent(JsonWriter& json, std::string_view name) const {
    return json.BeginObject().Key("event").Text(name).Key("t").Number(Milliseconds());
}

void Recorder::WriteStart() {
    JsonWriter json;
    json.BeginObject().Key("event").Text("start").Key("version").Number(std::int64_t{kVersion});
    json.Key("process").Number(std::int64_t{GetCurrentProcessId()});
    json.Key("program").Text(ProgramPath());
    json.Key("commandLine").Text(explain::ToUtf8(GetCommandLineW()));
    json.Key("time").Text(explain::LocalTimeText());
    json.Key("module").Text(GHOSTHAND_VERSION).EndObject();
    Write(json);
}

// At the end of a process its other threads are gone, and one of them may have held the lock.
void Recorder::Finish() noexcept {
    if (!m_mutex.try_lock()) {
        return;
    }
    try {
        JsonWriter json;
        BeginEvent(json, "stop").EndObject();
        Write(json);
    } catch (const std::exception&) {
    }
    m_mutex.unlock();
}

void Recorder::CallBegins(const Call& call) noexcept {
    Record([&](std::unique_lock<std::mutex>&, ThreadState& state) {
        const MemberFacts& member = m_members.Of(*call.interfaceId, call.member);
        const std::string className = ClassName(call.className);
        const auto known = m_objects.find(call.object);
        const Reached object = className == "Ghosthand"   ? Reached{"gh", {}}
                               : known == m_objects.end() ? Reached{className, {}}
                                                          : known->second;
        const std::string text = CallText(object.text, call, member);
        OpenCall open = {++m_calls, className, object, text, &member, {}, call.window, {}};
        JsonWriter json;
        BeginEvent(json, "call").Key("call").Number(std::int64_t{open.number});
        json.Key("thread").Number(std::int64_t{GetCurrentThreadId()}).Key("object").Text(object.text);
        json.Key("class").Text(className).Key("member").Text(member.name).Key("kind").Text(member.access);
        const std::size_t written = WrittenArguments(call, member);
        json.Key("arguments").BeginArray();
        for (std::size_t index = 0; index < call.arguments.size(); ++index) {
            const bool isFlags = index < member.parameters.size() && member.parameters[index].isFlags;
            if (index < written) {
                open.arguments.push_back(ToArgument(call.arguments[index], isFlags));
            }
            WriteValue(json, call.arguments[index]);
        }
        json.EndArray().Key("text").Text(open.text).EndObject();
        state.calls.push_back(std::move(open));
        Write(json);
    });
}

void Recorder::CallEnds(const CallResult& result) noexcept {
    Record([&](std::unique_lock<std::mutex>& lock, ThreadState& state) {
        if (state.calls.empty()) {
            return;
        }
        const OpenCall call = std::move(state.calls.back());
        state.calls.pop_back();
        const bool failed = HasFailed(*call.member, result);
        const std::string resultText = ResultText(call, result);
        if (result.object != nullptr) {
            m_objects[result.object] = ReachedBy(call);
        }
        WriteSearches(call);
        const double ended = Milliseconds();
        if (failed && ++m_explained[call.text] <= kMostExplanationsOfCall) {
            Explain(lock, state, call);
        }
        JsonWriter json;
        json.BeginObject().Key("event").Text("end").Key("t").Number(ended);
        json.Key("call").Number(std::int64_t{call.number}).Key("result").Text(resultText);
        json.Key("failed").Bool(failed).EndObject();
        Write(json);
    });
}

// Nothing is known of what lies behind an object that was reached in an unknown way.
Recorder::Reached Recorder::ReachedBy(const OpenCall& call) const {
    Reached reached = {call.text, {}};
    if (call.className == "Ghosthand" || !call.object.call.empty()) {
        reached.call = call.object.call;
        reached.call.push_back({call.member->name, call.arguments});
    }
    return reached;
}

std::string Recorder::ResultText(const OpenCall& call, const CallResult& result) const {
    if (FAILED(result.result)) {
        return ErrorText(result.result);
    }
    if (!result.givesObject) {
        return std::holds_alternative<std::monostate>(result.value) ? std::string() : ValueText(result.value);
    }
    if (result.object == nullptr) {
        return "Nothing";
    }
    return call.member->resultClass.empty() ? "an object" : call.member->resultClass;
}

void Recorder::WriteSearches(const OpenCall& call) {
    for (const RepeatedSearch& search : call.searches) {
        JsonWriter json;
        BeginEvent(json, "search").Key("call").Number(std::int64_t{call.number});
        json.Key("text").Text(SearchText(search.criteria));
        json.Key("windows")
            .Number(std::int64_t{search.windows})
            .Key("rounds")
            .Number(std::int64_t{search.rounds});
        json.Key("found").Bool(search.criteria.result != nullptr).EndObject();
        Write(json);
    }
}

void Recorder::Explain(std::unique_lock<std::mutex>& lock, ThreadState& state, const OpenCall& call) {
    std::vector<engine::WindowCriteria> searches;
    for (const RepeatedSearch& search : call.searches) {
        if (search.criteria.result == nullptr) {
            searches.push_back(search.criteria);
        }
    }
    const bool hasPicture = m_pictures < kMostPictures;
    const std::string picture =
        std::to_string(GetCurrentProcessId()) + "-" + std::to_string(call.number) + ".png";
    state.isExplaining = true;
    lock.unlock();
    explain::Explanation explanation;
    std::optional<RECT> desktop;
    try {
        // The picture first: it shows the moment of the failure.
        if (hasPicture) {
            desktop = SaveDesktopPicture(m_file.Folder() + L"\\" + explain::ToUtf16(picture));
        }
        explanation = explain::ExplainNothing(
            {call.member->name, call.className, call.window, call.arguments, searches, call.object.call});
    } catch (const std::exception&) {
        explanation = {};
    }
    lock.lock();
    state.isExplaining = false;

    if (!explanation.reason.empty()) {
        explain::Miss whole;
        whole.name = explanation.wanted;
        whole.reasons = {explanation.reason};
        explanation.misses.insert(explanation.misses.begin(), std::move(whole));
    }
    for (const explain::Miss& miss : explanation.misses) {
        const bool isFirst = &miss == &explanation.misses.front();
        WriteMiss(call.number, miss, isFirst && miss.line.empty() ? explanation.line : miss.line);
    }
    if (desktop) {
        ++m_pictures;
        JsonWriter json;
        BeginEvent(json, "picture").Key("call").Number(std::int64_t{call.number}).Key("file").Text(picture);
        json.Key("desktop");
        WriteRectangle(json, *desktop);
        // The window that was searched; without one, as for a main window, what came nearest.
        RECT searched = explanation.rectangle;
        GetWindowRect(call.window, &searched);
        if (!IsEmpty(searched)) {
            json.Key("frame");
            WriteRectangle(json, searched);
        }
        json.EndObject();
        Write(json);
    }
}

void Recorder::WriteMiss(int call, const explain::Miss& miss, const std::string& line) {
    JsonWriter json;
    BeginEvent(json, "miss").Key("call").Number(std::int64_t{call}).Key("name").Text(miss.name);
    json.Key("reasons").BeginArray();
    for (const std::string& reason : miss.reasons) {
        json.Text(reason);
    }
    json.EndArray().Key("hint").Text(miss.hint).Key("line").Text(line);
    if (!IsEmpty(miss.rectangle)) {
        json.Key("rectangle");
        WriteRectangle(json, miss.rectangle);
    }
    json.EndObject();
    Write(json);
}

void Recorder::StepBegins(const Step& step) noexcept {
    Record([&](std::unique_lock<std::mutex>&, ThreadState& state) {
        state.steps.push_back({++m_steps, step.kind, step.limitMilliseconds});
        JsonWriter json;
        BeginEvent(json, "step");
        if (!state.calls.empty()) {
            json.Key("call").Number(std::int64_t{state.calls.back().number});
        }
        json.Key("step").Number(std::int64_t{m_steps}).Key("kind").Text(StepKindName(step.kind));
        json.Key("text").Text(StepText(step)).EndObject();
        Write(json);
    });
}

void Recorder::StepEnds(const StepResult& result) noexcept {
    Record([&](std::unique_lock<std::mutex>&, ThreadState& state) {
        if (state.steps.empty()) {
            return;
        }
        const OpenStep step = state.steps.back();
        state.steps.pop_back();
        JsonWriter json;
        BeginEvent(json, "stepEnd").Key("step").Number(std::int64_t{step.number});
        json.Key("outcome").Text(OutcomeText({step.kind, {}, step.limitMilliseconds}, result)).EndObject();
        Write(json);
    });
}

void Recorder::Searched(const engine::WindowCriteria& criteria, int windows) noexcept {
    Record([&](std::unique_lock<std::mutex>&, ThreadState& state) {
        if (state.calls.empty()) {
            return;
        }
        std::vector<RepeatedSearch>& searches = state.calls.back().searches;
        auto same = std::ranges::find_if(searches, [&](const RepeatedSearch& search) {
            return engine::IsSameSearch(search.criteria, criteria);
        });
        if (same == searches.end()) {
            same = searches.insert(searches.end(), RepeatedSearch());
        }
        same->criteria = criteria;
        same->windows += windows;
        ++same->rounds;
    });
}

void Recorder::Reported(std::string_view text) noexcept {
    Record([&](std::unique_lock<std::mutex>&, ThreadState& state) {
        JsonWriter json;
        BeginEvent(json, "note");
        if (!state.calls.empty()) {
            json.Key("call").Number(std::int64_t{state.calls.back().number});
        }
        json.Key("text").Text(explain::AnsiToUtf8(text)).EndObject();
        Write(json);
    });
}

} // namespace trace
