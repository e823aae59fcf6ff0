// Writes what happens in this process to the trace's file.
#pragma once

#include <chrono>
#include <map>
#include <mutex>
#include <set>
#include <string>
#include <vector>

#include "engine/diagnostics.h"
#include "engine/window_search.h"
#include "explain/call.h"
#include "explain/json_writer.h"
#include "explain/nearest_misses.h"
#include "trace/member_facts.h"
#include "trace/trace_file.h"

namespace trace {

// Does nothing once its file is closed.
class Recorder final : public engine::diagnostics::Listener {
public:
    explicit Recorder(const std::wstring& folder) noexcept;

    bool IsWriting() const noexcept { return m_file.IsOpen(); }
    void Finish() noexcept;

    void CallBegins(const engine::diagnostics::Call& call) noexcept override;
    void CallEnds(const engine::diagnostics::CallResult& result) noexcept override;
    void StepBegins(const engine::diagnostics::Step& step) noexcept override;
    void StepEnds(const engine::diagnostics::StepResult& result) noexcept override;
    void Searched(const engine::WindowCriteria& criteria, int windows) noexcept override;
    void Reported(std::string_view text) noexcept override;

private:
    // The searches of a call that look for the same.
    struct RepeatedSearch {
        engine::WindowCriteria criteria; // as it ended the last time
        int windows = 0;                 // all rounds together
        int rounds = 0;
    };

    // How a script reached an object.
    struct Reached {
        std::string text; // in VBScript
        explain::Call call;
    };

    struct OpenCall {
        int number;
        std::string className;
        Reached object;
        std::string text;                         // in VBScript
        const MemberFacts* member;                // of the table
        std::vector<explain::Argument> arguments; // without those that are left to their defaults
        HWND window;
        std::vector<RepeatedSearch> searches;
    };

    struct OpenStep {
        int number;
        engine::diagnostics::StepKind kind;
        int limitMilliseconds;
    };

    struct ThreadState {
        std::vector<OpenCall> calls;
        std::vector<OpenStep> steps;
        bool isExplaining = false; // what the explanation itself searches is not told
    };

    template <class Body>
    void Record(Body body) noexcept;
    explain::JsonWriter& BeginEvent(explain::JsonWriter& json, std::string_view name) const;
    void Write(const explain::JsonWriter& json) noexcept { m_file.Write(json.Result()); }

    void WriteStart();
    void WriteSearches(const OpenCall& call);
    std::string ResultText(const OpenCall& call, const engine::diagnostics::CallResult& result) const;
    // Lets go of the lock meanwhile: the explanation asks the driven program.
    void Explain(std::unique_lock<std::mutex>& lock, ThreadState& state, const OpenCall& call);

    void WriteMiss(int call, const explain::Miss& miss, const std::string& line);

    double Milliseconds() const noexcept;

    std::mutex m_mutex;
    TraceFile m_file;
    std::chrono::steady_clock::time_point m_start = std::chrono::steady_clock::now();
    MemberFactsTable m_members;
    std::map<DWORD, ThreadState> m_threads;
    Reached ReachedBy(const OpenCall& call) const;

    std::map<const void*, Reached> m_objects;
    std::map<std::string, int> m_explained; // how often, by the call's text
    int m_calls = 0;
    int m_steps = 0;
    int m_pictures = 0;
};

} // namespace trace
