#include "fault/modes.h"

#include "fault/bench.h"

#include <algorithm>
#include <map>
#include <random>

namespace fault_tests {

namespace {

using sample_host::Misbehaviour;

// What a script may take, beyond the waits that it asks for, once its window has gone, and once a program
// that stopped goes on. A second is the promise for the first; a busy machine gets another one.
constexpr ULONGLONG kGoneMilliseconds = 2000;
constexpr ULONGLONG kResumedMilliseconds = 8000;
// From here on a script is taken to hang for ever.
constexpr DWORD kHangMilliseconds = 15000;

void Stop(Bench& bench, DWORD milliseconds) {
    bench.Program().Suspend();
    bench.Program().Release();
    Sleep(milliseconds);
    bench.Program().Resume();
}

struct Fault {
    const char* name;
    Misbehaviour how; // what the sample host does in the middle
    void (*act)(Bench& bench);
    bool endsScript = false;
    bool goesOn = false;     // the program is there afterwards
    bool onlyInside = false; // nothing that can be done to a program from outside
    bool isRare = false;     // never in the short run, and once in a step of the long one
    int every = 1;           // in the short run, and if it is rare, only every so many-th step,
    int turn = 0;            // counted from this one
};

constexpr Fault kFaults[] = {
    {.name = "program ends",
     .how = Misbehaviour::HoldAtMessage,
     .act = [](Bench& bench) { bench.Program().Kill(); },
     .every = 3},
    {.name = "script ends",
     .how = Misbehaviour::HoldAtMessage,
     .act =
         [](Bench& bench) {
             bench.Script().Kill();
             bench.Program().Release();
         },
     .endsScript = true,
     .goesOn = true,
     .every = 3,
     .turn = 1},
    {.name = "window goes",
     .how = Misbehaviour::DestroyAtMessage,
     .act = [](Bench&) {},
     .onlyInside = true,
     .every = 3,
     .turn = 2},
    {.name = "program stops 3 s",
     .how = Misbehaviour::HoldAtMessage,
     .act = [](Bench& bench) { Stop(bench, 3000); },
     .goesOn = true,
     .every = 7,
     .turn = 1},
    {.name = "program stops 90 s",
     .how = Misbehaviour::HoldAtMessage,
     .act = [](Bench& bench) { Stop(bench, 90000); },
     .goesOn = true,
     .isRare = true,
     .every = 7,
     .turn = 3},
    {.name = "exception",
     .how = Misbehaviour::ThrowAtMessage,
     .act = [](Bench&) {},
     .onlyInside = true,
     .isRare = true},
};

// A program that is not broken, only rude, while a script does a step.
struct Rudeness {
    const char* name;
    const char* step;
    Misbehaviour how;
    int number;
    const char* window;
    bool sameResult = false; // the step has to succeed all the same
    bool inShortRun = false;
};

constexpr Rudeness kRudeness[] = {
    {"handlers pump", "tree text", Misbehaviour::PumpInMessages, 2, "Frame", true, true},
    {"handlers pump", "grid cell", Misbehaviour::PumpInMessages, 2, "Frame", true},
    {"handlers pump", "popup walk", Misbehaviour::PumpInMessages, 2, "Frame", true},
    {"never idle", "synchronisation", Misbehaviour::NeverIdle, 4000, "Frame", true},
    {"never idle", "menu walk", Misbehaviour::NeverIdle, 10000, "Frame", true, true},
    {"full queue", "synchronisation", Misbehaviour::FullQueue, 2000, "Frame", true, true},
    {"full queue", "real click", Misbehaviour::FullQueue, 2000, "Frame"},
    {"answers of 2 GB", "tree text", Misbehaviour::AnswerHuge, 0, "Trees.1140"},
    {"answers of 2 GB", "list view text", Misbehaviour::AnswerHuge, 0, "List views.1150", false, true},
    {"answers of 2 GB", "tool bar button", Misbehaviour::AnswerHuge, 0, "Frame.1080", false, true},
    {"answers of 2 GB", "grid cell", Misbehaviour::AnswerHuge, 0, "CAD.1103"},
    {"answers of 2 GB", "text", Misbehaviour::AnswerHuge, 0, "Document 1.1001"},
    {"answers of 2 GB", "combo box", Misbehaviour::AnswerHuge, 0, "Combo boxes.1020"},
    {"answers of 2 GB", "list box", Misbehaviour::AnswerHuge, 0, "List boxes.1201"},
    {"answers of 2 GB", "tabs", Misbehaviour::AnswerHuge, 0, "Tabs.1220"},
    {"answers of 2 GB", "camera", Misbehaviour::AnswerHuge, 0, "CAD.1101"},
    {"floating tool bar", "context menu", Misbehaviour::FloatingBar, 0, "Frame", true, true},
    {"floating tool bar", "popup walk", Misbehaviour::FloatingBar, 0, "Frame", true},
    {"popups ignore keys", "popup walk", Misbehaviour::StubbornPopups, 8000, "Frame", true},
    {"popups ignore keys", "context menu", Misbehaviour::StubbornPopups, 60000, "Frame", false, true},
    {"popups hide", "popup walk", Misbehaviour::HidePopups, 60000, "Frame", true},
    {"popups hide", "context menu", Misbehaviour::HidePopups, 60000, "Frame", true, true},
};

const Step* FindStep(const std::string& name) {
    return &*std::ranges::find_if(Steps(), [&](const Step& step) { return name == step.name; });
}

class FaultCases {
public:
    FaultCases(const Options& options, Report& report)
        : m_options(options), m_report(report), m_random(options.seed) {}

    void Run() {
        int number = 0;
        for (const Step& step : Steps()) {
            const std::string program = step.program;
            const bool isLeftOut = !step.inFaults ||
                                   std::string(step.name).find(m_options.only) == std::string::npos ||
                                   (m_options.isShort && program != "sample_host" && program != "notepad");
            if (isLeftOut)
                continue;
            if (Measure(step))
                RunStep(step, ++number);
        }
        RunRudeness();
        for (const char* name : {"tree text", "synchronisation", "held keys"})
            if (std::string(name).find(m_options.only) != std::string::npos)
                RunTwoScripts(*FindStep(name));
        PrintTable();
    }

private:
    struct Cell {
        int tried = 0;
        int survived = 0;
        int missed = 0;
        ULONGLONG longest = 0; // ms
    };
    struct Extent {
        unsigned messages = 0; // that the sample host sees in the step
        DWORD milliseconds = 0;
    };

    unsigned Random(unsigned limit) { return limit == 0 ? 0 : static_cast<unsigned>(m_random() % limit); }

    // Does the step without a fault and looks how much there is in it; false if it does not work.
    bool Measure(const Step& step) {
        std::string error = m_bench.Prepare(step);
        if (!error.empty()) {
            m_bench.DropProgram(); // a fresh one
            m_bench.DropScript();
            error = m_bench.Prepare(step);
        }
        const ULONGLONG start = GetTickCount64();
        if (error.empty()) {
            if (m_bench.Program().IsSampleHost())
                m_bench.Program().ClearLog();
            error = m_bench.Do(step);
        }
        if (!error.empty()) {
            m_report.Fail(std::string(step.name) + " without a fault: " + error);
            m_bench.DropProgram();
            m_bench.DropScript();
            return false;
        }
        m_extent.milliseconds = static_cast<DWORD>(GetTickCount64() - start);
        m_extent.messages = m_bench.Program().IsSampleHost()
                                ? static_cast<unsigned>(m_bench.Program().Log().Records().size())
                                : 0;
        m_report.Progress(std::string(step.name) + ": " + std::to_string(m_extent.messages) + " messages, " +
                          std::to_string(m_extent.milliseconds) + " ms");
        return true;
    }

    void RunStep(const Step& step, int number) {
        m_bench.RememberState();
        for (const Fault& fault : kFaults) {
            const bool isLeftOut = fault.onlyInside && std::string(step.program) != "sample_host";
            const bool isNotItsTurn =
                (m_options.isShort || fault.isRare) && number % fault.every != fault.turn;
            if (isLeftOut || isNotItsTurn || (m_options.isShort && fault.isRare))
                continue;
            for (int time = 0; time < (m_options.isShort || fault.isRare ? 1 : m_options.times); ++time)
                RunCase(step, fault);
        }
    }

    void RunCase(const Step& step, const Fault& fault) {
        Cell& cell = m_cells[{step.name, fault.name}];
        m_problems.clear();
        bool happens = false;
        // A step has a message more or less each time: the next try aims at an earlier one.
        for (unsigned part = 1; part <= 3 && !happens; ++part) {
            const bool isInside =
                m_extent.messages > 0 && (m_options.isShort || fault.onlyInside || Random(4) != 0);
            const unsigned ordinal = isInside ? 1 + Random((m_extent.messages + part - 1) / part) : 0;
            const DWORD delay = Random(m_extent.milliseconds / part + 1);
            m_moment = std::to_string(delay) + " ms";
            happens = Happens(step, fault, ordinal, delay, cell);
        }
        if (!happens) {
            ++cell.missed;
            return;
        }
        ++cell.tried;
        LookAfterwards(step, fault);
        if (m_problems.empty())
            ++cell.survived;
        for (const std::string& problem : m_problems)
            m_report.Fail(std::string(step.name) + ", " + fault.name + " at " + m_moment + ": " + problem);
    }

    // Starts the step and lets the fault happen in it. False if the step was over before.
    bool Happens(const Step& step, const Fault& fault, unsigned ordinal, DWORD delay, Cell& cell) {
        // The fault of the try before can have come when its step was over.
        if (!m_bench.Prepare(step).empty()) {
            m_bench.DropProgram();
            m_bench.DropScript();
            if (const std::string error = m_bench.Prepare(step); !error.empty()) {
                m_report.Fail(std::string(step.name) + " does not work before " + fault.name + ": " + error);
                return false;
            }
        }
        ScriptProcess& script = m_bench.Script();
        DrivenProgram& program = m_bench.Program();
        const HWND window = ordinal != 0 ? program.Window(step.window) : nullptr;
        if (ordinal != 0) {
            program.ClearLog();
            program.Misbehave(window, fault.how, sample_host::AtMessage(0, ordinal));
        }
        script.Start(step.lines);
        if (!IsReached(step, ordinal, delay)) {
            const bool isLate = WaitForSingleObject(program.Reached(), 0) == WAIT_OBJECT_0;
            program.Release();
            if (ordinal != 0)
                program.Misbehave(window, fault.how, 0);
            if (isLate) // it happens after the step
                m_bench.DropProgram();
            return false;
        }
        if (ordinal != 0)
            m_moment = Moment(ordinal);
        if (!fault.goesOn)
            script.RestartClock();
        fault.act(m_bench);
        if (fault.goesOn && !fault.endsScript)
            script.RestartClock();
        if (!fault.endsScript)
            WaitForScript(step, fault, cell);
        return true;
    }

    bool IsReached(const Step& step, unsigned ordinal, DWORD delay) {
        if (ordinal == 0)
            return !m_bench.Script().Wait(delay);
        const HANDLE objects[] = {m_bench.Program().Reached(), m_bench.Script().Done()};
        const DWORD limit = kHangMilliseconds + static_cast<DWORD>(step.askedSeconds) * 1000;
        return WaitForMultipleObjects(2, objects, FALSE, limit) == WAIT_OBJECT_0;
    }

    std::string Moment(unsigned ordinal) {
        const auto records = m_bench.Program().Log().Records();
        if (records.empty())
            return "message " + std::to_string(ordinal);
        char text[128];
        wsprintfA(text, "message %u, 0x%X to %s", ordinal, records.back().message, records.back().name);
        return text;
    }

    void WaitForScript(const Step& step, const Fault& fault, Cell& cell) {
        const auto asked = static_cast<DWORD>(step.askedSeconds) * 1000;
        m_bench.Script().Wait(kHangMilliseconds + asked);
        JudgeCall("the script", asked + (fault.goesOn ? kResumedMilliseconds : kGoneMilliseconds), cell);
        if (!fault.goesOn && m_problems.empty()) {
            // Its objects are those of a window that has gone.
            m_bench.Script().Run(step.lines, kHangMilliseconds + asked);
            JudgeCall("without its window the script", asked + kGoneMilliseconds, cell);
        }
    }

    // How the script that has been waited for gets on. One that hangs is given up.
    void JudgeCall(const std::string& who, DWORD limit, Cell& cell) {
        const ScriptChannel& channel = m_bench.Script().Channel();
        const ULONGLONG began = channel.callBegan;
        const ULONGLONG took =
            std::max<ULONGLONG>(channel.longestCall, began != 0 ? GetTickCount64() - began : 0);
        cell.longest = std::max(cell.longest, took);
        if (m_bench.Script().HasEnded()) {
            m_problems.push_back(who + " has crashed in " + channel.member);
        } else if (began != 0) {
            m_problems.push_back(who + " hangs in " + channel.member);
            m_bench.DropScript();
        } else if (took > limit) {
            m_problems.push_back(who + " takes " + std::to_string(took) + " ms in " + channel.longestMember);
        }
    }

    void LookAfterwards(const Step& step, const Fault& fault) {
        if (!fault.endsScript && TakePressedButton())
            m_problems.push_back("a mouse button stays down");
        if (fault.endsScript && !IsMouseFree())
            m_problems.push_back("the mouse stays blocked");
        if (fault.goesOn) {
            if (m_bench.Program().HasEnded())
                m_problems.push_back("the program has ended");
            else if (!m_bench.Program().Answers())
                m_problems.push_back("the program does not answer");
            else
                Settle(m_bench.Program());
        } else {
            m_bench.DropProgram(); // what is left of it
        }
        // The next script: another step first, as this one may undo what was left of itself.
        if (fault.endsScript && m_bench.Program().IsSampleHost()) {
            m_bench.TryStep(*FindStep("tree text"));
            if (m_bench.IsReady() && m_bench.Program().Ask(sample_host::Question::HeldKeys) != 0)
                m_problems.push_back("keys stay down in the program");
        }
        if (const std::string error = m_bench.TryStep(step); !error.empty()) {
            m_problems.push_back("the next script gets " + error);
            m_bench.DropProgram();
            m_bench.DropScript();
            if (const std::string again = m_bench.TryStep(step); !again.empty()) {
                m_problems.push_back("and a fresh one gets " + again);
                return;
            }
        }
        for (const std::string& left : m_bench.Leftovers(fault.endsScript))
            m_problems.push_back("left behind: " + left);
    }

    void RunRudeness() {
        for (const Rudeness& rudeness : kRudeness) {
            const bool isLeftOut = (m_options.isShort && !rudeness.inShortRun) ||
                                   std::string(rudeness.step).find(m_options.only) == std::string::npos;
            if (!isLeftOut)
                RunRudeCase(*FindStep(rudeness.step), rudeness);
        }
    }

    void RunRudeCase(const Step& step, const Rudeness& rudeness) {
        m_problems.clear();
        Cell& cell = m_cells[{step.name, rudeness.name}];
        ++cell.tried;
        std::string error = m_bench.TryStep(step);
        if (error.empty())
            error = m_bench.Prepare(step);
        if (!error.empty()) {
            m_report.Fail(std::string(step.name) + " does not work before " + rudeness.name + ": " + error);
            m_bench.DropScript();
            return;
        }
        m_bench.RememberState();
        ScriptProcess& script = m_bench.Script();
        const HWND window = m_bench.Program().Window(rudeness.window);
        if (rudeness.how == Misbehaviour::FullQueue) // while the script works
            SendNotifyMessageA(window, RegisterWindowMessageA(sample_host::kMisbehaveMessage),
                               static_cast<WPARAM>(rudeness.how), rudeness.number);
        else
            m_bench.Program().Misbehave(window, rudeness.how, rudeness.number);
        const ULONGLONG start = GetTickCount64();
        const std::string result = script.Run(step.lines, kHangMilliseconds);
        cell.longest = std::max(cell.longest, GetTickCount64() - start);
        if (script.HasEnded())
            m_problems.push_back("the script has crashed");
        else if (result.starts_with("hangs"))
            m_problems.push_back("the script " + result);
        else if (rudeness.sameResult && result != step.expected)
            m_problems.push_back(Mismatch(step, result));
        if (m_bench.Program().HasEnded())
            m_problems.push_back("the program has ended");
        if (!m_problems.empty())
            m_bench.DropScript();
        m_bench.DropProgram();
        error = m_bench.TryStep(step);
        if (!error.empty())
            m_problems.push_back("the next script gets " + error);
        else
            for (const std::string& left : m_bench.Leftovers())
                m_problems.push_back("left behind: " + left);
        for (const std::string& problem : m_problems)
            m_report.Fail(std::string(step.name) + ", " + rudeness.name + ": " + problem);
        if (m_problems.empty())
            ++cell.survived;
    }

    // The section is made for one script at a time, so that answers may get mixed up; no more than that.
    void RunTwoScripts(const Step& step) {
        Cell& cell = m_cells[{step.name, "two scripts at once"}];
        ++cell.tried;
        m_problems.clear();
        if (const std::string error = m_bench.TryStep(step); !error.empty()) {
            m_report.Fail(std::string(step.name) + " does not work before two scripts do it: " + error);
            return;
        }
        m_bench.RememberState();
        ScriptProcess second;
        ScriptProcess* const scripts[] = {&m_bench.Script(), &second};
        for (ScriptProcess* script : scripts)
            script->Run(SetupOf(step), kHangMilliseconds);
        const ULONGLONG end = GetTickCount64() + (m_options.isShort ? 2000 : 30000);
        while (m_problems.empty() && GetTickCount64() < end) {
            for (ScriptProcess* script : scripts)
                script->Start(step.lines);
            const ULONGLONG start = GetTickCount64();
            for (ScriptProcess* script : scripts)
                if (!script->Wait(2 * kHangMilliseconds))
                    m_problems.push_back(script->HasEnded()
                                             ? "a script has crashed"
                                             : std::string("a script hangs in ") + script->Channel().member);
            cell.longest = std::max(cell.longest, GetTickCount64() - start);
        }
        if (!m_problems.empty())
            m_bench.DropScript();
        if (const std::string error = m_bench.TryStep(step); !error.empty())
            m_problems.push_back("the next script gets " + error);
        else
            for (const std::string& left : m_bench.Leftovers())
                m_problems.push_back("left behind: " + left);
        for (const std::string& problem : m_problems)
            m_report.Fail(std::string(step.name) + ", two scripts at once: " + problem);
        cell.survived += m_problems.empty() ? 1 : 0;
        m_bench.DropProgram();
    }

    void PrintTable() {
        std::vector<std::vector<std::string>> rows = {
            {"step", "what happens", "survived", "longest", "not reached"}};
        for (const auto& [key, cell] : m_cells)
            rows.push_back({key.first, key.second,
                            std::to_string(cell.survived) + " of " + std::to_string(cell.tried),
                            cell.longest != 0 ? std::to_string(cell.longest) + " ms" : "",
                            cell.missed != 0 ? std::to_string(cell.missed) : ""});
        m_report.Table("Faults in the middle of a step; longest: how long the script took to come back",
                       rows);
    }

    const Options& m_options;
    Report& m_report;
    std::mt19937 m_random;
    Bench m_bench;
    Extent m_extent; // of the step under way
    std::map<std::pair<std::string, std::string>, Cell> m_cells;
    std::vector<std::string> m_problems; // of the case under way
    std::string m_moment;
};

} // namespace

void RunFaultCases(const Options& options, Report& report) {
    FaultCases(options, report).Run();
}

} // namespace fault_tests
