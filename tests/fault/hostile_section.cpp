#include "fault/modes.h"

#include "fault/bench.h"

#include <algorithm>
#include <atomic>
#include <cstring>
#include <map>
#include <random>
#include <set>
#include <thread>

namespace fault_tests {

namespace {

using hostlink::SharedSection;

constexpr double kShortMinutes = 0.2;
constexpr std::byte kGuard{0x5A};

// What somebody who means harm would write, and where.
struct Aim {
    std::size_t offset;
    std::size_t size;
    std::vector<std::uint64_t> values;
};

std::vector<Aim> Aims(HWND frame) {
    const std::uint64_t own = RegisterWindowMessageA("MSG_GH_SEND_REMOTELY");
    const std::uint64_t window = hostlink::FromHandle(frame);
    const std::uint64_t desktop = hostlink::FromHandle(GetDesktopWindow());
    const std::uint64_t broadcast = hostlink::FromHandle(HWND_BROADCAST);
    const std::uint64_t all = ~std::uint64_t{0};
    const std::vector<std::uint64_t> identifiers = {0, WM_CLOSE, WM_DESTROY, WM_QUIT, WM_USER, 0xC123, all};
    const std::vector<std::uint64_t> hooks = {0, 1, window, 0x20001, all};
    const std::vector<std::uint64_t> windows = {0,       window,    window | 0xFFFFFFFF00000000,
                                                desktop, broadcast, all};
    return {
        {offsetof(SharedSection, sendRemotelyMsg), 4, identifiers},
        {offsetof(SharedSection, setKeyStateMsg), 4, identifiers},
        {offsetof(SharedSection, syncSeen), 4, {0, 1, all}},
        {offsetof(SharedSection, remoteHook), 8, hooks},
        {offsetof(SharedSection, foregroundHook), 8, hooks},
        {offsetof(SharedSection, menuCaptureHook), 8, hooks},
        {offsetof(SharedSection, syncCreateHook), 8, hooks},
        {offsetof(SharedSection, syncQueueHook), 8, hooks},
        {offsetof(SharedSection, mouseBlockHook), 8, hooks},
        {offsetof(SharedSection, localeHook), 8, hooks},
        {offsetof(SharedSection, remoteMsg),
         4,
         {WM_CLOSE, WM_DESTROY, WM_SYSCOMMAND, WM_SETTEXT, WM_COPYDATA, own, all,
          0x1101 /* TVM_DELETEITEM */}},
        {offsetof(SharedSection, remoteTarget), 8, windows},
        {offsetof(SharedSection, syncPopup), 8, windows},
        {offsetof(SharedSection, capturedMenuWindow), 8, windows},
        {offsetof(SharedSection, capturedBarWindow), 8, windows},
        {offsetof(SharedSection, remoteStringOffset), 8, {0, 1012, 1013, 1024, 0x7FFFFFFF, all - 7, all}},
        {offsetof(SharedSection, remoteResult), 8, {0, 1, 0x7FFFFFFF, all}},
        {offsetof(SharedSection, remoteWParam), 8, {0, 1, SC_CLOSE, 0x7FFFFFFF, all}},
        {offsetof(SharedSection, mouseBlocked), 1, {0, 1, 0xFF}},
        {offsetof(SharedSection, allowMouseBlocks), 1, {0, 1, 0xFF}},
        {offsetof(SharedSection, hostLocale), 4, {0, 0x409, 0x411, all}},
    };
}

// Writes from a thread of this process, which is neither the script nor the driven program.
class SectionWriter {
public:
    SectionWriter(ModuleSection& section, HWND frame, unsigned seed)
        : m_bytes(section.Bytes()), m_own(section.Own()), m_aims(Aims(frame)), m_random(seed),
          m_thread([this] { Write(); }) {}
    ~SectionWriter() {
        m_stops = true;
        m_thread.join();
    }
    SectionWriter(const SectionWriter&) = delete;
    SectionWriter& operator=(const SectionWriter&) = delete;

private:
    void Write() {
        for (unsigned count = 0; !m_stops; ++count) {
            switch (m_random() % 10) {
            case 0:
                WriteRandom(m_bytes, m_bytes.size());
                break;
            case 1:
            case 2:
                WriteRandom(m_bytes, 64);
                break;
            case 3:
                FillText();
                break;
            case 4:
                WriteRandom(m_own, 64);
                break;
            default:
                WriteAim(m_aims[m_random() % m_aims.size()]);
                break;
            }
            // An exchange takes some hundred microseconds: several writes fall into each.
            for (const auto end = Ticks() + 50; Ticks() < end;) {
            }
            if (count % 16 == 0)
                Sleep(1);
        }
    }

    static std::int64_t Ticks() { // microseconds
        LARGE_INTEGER now, frequency;
        QueryPerformanceCounter(&now);
        QueryPerformanceFrequency(&frequency);
        return now.QuadPart * 1000000 / frequency.QuadPart;
    }
    void WriteAim(const Aim& aim) {
        const std::uint64_t value = aim.values[m_random() % aim.values.size()];
        std::memcpy(m_bytes.data() + aim.offset, &value, aim.size);
    }
    void WriteRandom(std::span<std::byte> bytes, std::size_t longest) {
        const std::size_t length = 1 + m_random() % longest;
        const std::size_t offset = m_random() % (bytes.size() - length + 1);
        for (std::size_t index = 0; index < length; ++index)
            bytes[offset + index] = static_cast<std::byte>(m_random());
    }
    // No terminator, and all that a descriptor may hold.
    void FillText() {
        std::memset(m_bytes.data() + offsetof(SharedSection, remoteString), 'w', hostlink::kRemoteStringSize);
    }

    std::span<std::byte> m_bytes;
    std::span<std::byte> m_own;
    std::vector<Aim> m_aims;
    std::mt19937 m_random;
    std::atomic<bool> m_stops = false;
    std::thread m_thread;
};

// Which requests the windows of the sample host get when nobody disturbs.
class KnownRequests {
public:
    void Learn(const DrivenProgram& program) {
        for (const sample_host::LogRecord& record : program.Log().Records())
            m_known.insert({record.name, record.message});
    }
    // Those that the log has and that no script sends, each once.
    std::vector<std::string> Unknown(const DrivenProgram& program) {
        std::vector<std::string> found;
        for (const sample_host::LogRecord& record : program.Log().Records()) {
            if (!IsRequest(record.message) || IsOfACaption(record) ||
                !m_known.insert({record.name, record.message}).second)
                continue;
            char text[96];
            wsprintfA(text, "0x%X to %s", record.message, record.name);
            found.emplace_back(text);
        }
        return found;
    }

private:
    // What the system makes of a real click that has met a caption or a border: a script that is disturbed
    // may look for its place in vain.
    static bool IsOfACaption(const sample_host::LogRecord& record) {
        const auto command = record.wParam & 0xFFF0;
        return record.message == WM_SYSCOMMAND && (command == SC_MOVE || command == SC_SIZE) &&
               command != record.wParam;
    }
    // What moves, shows and paints windows comes whenever it likes.
    static bool IsRequest(UINT message) {
        static const std::set<UINT> kLink = {
            RegisterWindowMessageA("MSG_GH_SEND_REMOTELY"), RegisterWindowMessageA("MSG_GH_SET_KEY_STATE"),
            RegisterWindowMessageA("MSG_GH_SYNC"), RegisterWindowMessageA("MSG_GH_GET_LOCALE"),
            RegisterWindowMessageA("MSG_GH_WALK")};
        return message == WM_CLOSE || message == WM_DESTROY || message == WM_QUIT ||
               message == WM_SYSCOMMAND || message == WM_SETTEXT || message == WM_ENABLE ||
               (message >= WM_USER && !kLink.contains(message));
    }

    std::set<std::pair<std::string, UINT>> m_known;
};

class HostileSection {
public:
    HostileSection(const Options& options, Report& report)
        : m_options(options), m_report(report), m_random(options.seed) {}

    void Run() {
        for (const Step& step : Steps()) {
            const std::string program = step.program;
            if (program == "sample_host" && step.inFaults && step.weight != 0)
                m_steps.push_back(&step);
            else if (program == "notepad")
                m_otherSteps.push_back(&step);
        }
        RunClean(m_first, m_steps, "before");
        RunClean(m_second, m_otherSteps, "before");
        m_first.RememberState();
        std::ranges::fill(m_first.Section().Beyond(), kGuard);
        Disturb();
        if (!std::ranges::all_of(m_first.Section().Beyond(), [](std::byte value) { return value == kGuard; }))
            m_report.Fail("something was written behind the shared section");
        std::ranges::fill(m_first.Section().Beyond(), std::byte{0});
        m_report.Progress("Nobody writes any more");
        RunClean(m_first, m_steps, "after");
        RunClean(m_second, m_otherSteps, "after");
        if (m_first.IsReady())
            for (const std::string& left : m_first.Leftovers())
                m_report.Fail("afterwards: " + left);
        SharedSection& data = m_first.Section().Data();
        std::ranges::fill(m_first.Section().Bytes(), std::byte{0}); // as it was at the start
        std::ranges::fill(m_first.Section().Own(), std::byte{0});
        data.allowMouseBlocks = 1;
        PrintTable();
    }

private:
    // Each step has to succeed twice: the second time it may find what the first has opened. With two
    // programs on a desktop without a window manager one or the other try loses the foreground: all steps are
    // done again then, as the program at the end, whose state is remembered, has to have done them all.
    void RunClean(Bench& bench, const std::vector<const Step*>& steps, const std::string& when) {
        std::map<const Step*, int> failures;
        for (auto step = steps.begin(); step != steps.end();) {
            std::string error;
            for (int time = 0; time < 2 && error.empty(); ++time)
                error = RunClean(bench, **step, when);
            if (error.empty()) {
                ++step;
            } else if (++failures[*step] < 3) {
                bench.DropScript();
                bench.DropProgram();
                step = steps.begin();
            } else {
                m_report.Fail(std::string((*step)->name) + " " + when + ": " + error);
                ++step;
            }
        }
    }
    std::string RunClean(Bench& bench, const Step& step, const std::string& when) {
        std::string error = bench.TryStep(step);
        if (error.empty() && bench.Program().IsSampleHost()) {
            if (when == "before")
                m_known.Learn(bench.Program());
            Settle(bench.Program());
            bench.Program().ClearLog();
        }
        return error;
    }

    const Step& Choose(const std::vector<const Step*>& steps) { return *steps[m_random() % steps.size()]; }

    void Disturb() {
        const double minutes = m_options.isShort ? kShortMinutes : m_options.minutes;
        const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(minutes * 60000);
        auto writer =
            std::make_unique<SectionWriter>(m_first.Section(), m_first.Program().Frame(), m_random());
        std::atomic<bool> stops = false;
        std::thread second([&] {
            for (unsigned count = 0; !stops && !m_otherSteps.empty(); ++count) {
                const std::string result = m_second.TryStep(*m_otherSteps[count % m_otherSteps.size()]);
                CountOther(result);
            }
        });
        ULONGLONG next = GetTickCount64();
        while (GetTickCount64() < end) {
            if (GetTickCount64() >= next) {
                m_report.Progress("Writing for another " + std::to_string((end - next) / 1000) + " s");
                next += 30000;
            }
            const Step& step = Choose(m_steps);
            const std::string result = DoForAWhile(step);
            if (result.find("hangs in") != result.npos) {
                writer.reset(); // it has to end when nobody disturbs it any more
                ++m_late;
                if (!m_first.Script().Wait(70000)) {
                    m_report.Fail(std::string(step.name) + ": the script " + result);
                    m_first.DropScript();
                }
                writer =
                    std::make_unique<SectionWriter>(m_first.Section(), m_first.Program().Frame(), m_random());
            }
            Judge(step, result);
        }
        writer.reset();
        stops = true;
        second.join();
        if (m_otherCrashes != 0)
            m_report.Fail("notepad or its script ended " + std::to_string(m_otherCrashes) + " times");
    }

    // Several times, as most steps are over in no time. The result of the last one.
    std::string DoForAWhile(const Step& step) {
        std::string result = m_first.Prepare(step);
        const ULONGLONG end = GetTickCount64() + 1000;
        do {
            const ULONGLONG start = GetTickCount64();
            if (result.empty())
                result = m_first.Do(step);
            m_longest = std::max(m_longest, GetTickCount64() - start);
            ++m_done;
            m_wrong += result.empty() ? 0 : 1;
        } while (result.empty() && GetTickCount64() < end);
        return result;
    }

    void Judge(const Step& step, const std::string& result) {
        if (result.find("the script has ended") != result.npos)
            m_report.Fail(std::string(step.name) + ": the script has crashed");
        DrivenProgram& program = m_first.Program();
        if (program.HasEnded() || !program.Answers()) {
            m_report.Fail(std::string(step.name) + ": the sample host has ended");
            m_first.DropProgram();
            m_first.TryStep(step);
            return;
        }
        for (const std::string& request : m_known.Unknown(program))
            m_report.Fail(std::string(step.name) + ": nobody asked for " + request);
        if (const std::string place = m_first.NewViolation(); !place.empty())
            m_report.Fail(std::string(step.name) + ": access violation at " + place);
        if (!result.empty())
            Settle(program);
        program.ClearLog();
    }

    void CountOther(const std::string& result) {
        ++m_otherDone;
        if (result.find("the script has ended") != result.npos || m_second.Program().HasEnded())
            ++m_otherCrashes;
        if (result.find("hangs in") != result.npos)
            m_second.DropScript();
        if (!result.empty()) {
            ++m_otherWrong;
            Settle(m_second.Program());
        }
    }

    void PrintTable() {
        m_report.Table("Scripts while somebody writes to the shared section",
                       {{"program", "steps", "disturbed", "over 30 s", "longest"},
                        {"sample host", std::to_string(m_done), std::to_string(m_wrong),
                         std::to_string(m_late), std::to_string(m_longest) + " ms"},
                        {"notepad", std::to_string(m_otherDone), std::to_string(m_otherWrong), "", ""}});
    }

    const Options& m_options;
    Report& m_report;
    std::mt19937 m_random;
    Bench m_first;
    Bench m_second;
    std::vector<const Step*> m_steps;
    std::vector<const Step*> m_otherSteps;
    KnownRequests m_known;
    int m_done = 0, m_wrong = 0, m_late = 0;
    int m_otherDone = 0, m_otherWrong = 0, m_otherCrashes = 0;
    ULONGLONG m_longest = 0; // ms
};

} // namespace

void RunHostileSection(const Options& options, Report& report) {
    HostileSection(options, report).Run();
}

} // namespace fault_tests
