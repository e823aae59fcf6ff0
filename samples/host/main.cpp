// The sample host: a desktop program of the kind that Ghosthand drives, and the pattern for the host
// side of the contract in ghosthand/host_contract.h.
#include "command_line.h"
#include "frame.h"
#include "host_ids.h"
#include "journal.h"
#include "log_writer.h"
#include "message_loop.h"
#include "message_names.h"
#include "page_table.h"
#include "self_report.h"
#include "watch.h"

#include <commctrl.h>
#include <cstdio>
#include <cstdlib>
#include <windows.h>

namespace sample_host {

void OpenManyChildrenWindow(int count);

namespace {

constexpr int kBadCommandLine = 2;

// Starts what the command line says about misbehaviour; orders for a control wait until it exists.
void ScheduleMisbehaviours(const std::vector<MisbehaviourOrder>& orders) {
    std::vector<MisbehaviourOrder> forControls;
    for (const MisbehaviourOrder& order : orders) {
        if (order.controlId != 0)
            forControls.push_back(order);
        else
            PostMessageA(Frame(), Messages().misbehave, static_cast<WPARAM>(order.what), order.number);
    }
    MisbehaveWhenWatched(std::move(forControls));
}

int Fail(const std::string& error) {
    std::fprintf(stderr, "sample_host: %s\n%s", error.c_str(), kUsage);
    return kBadCommandLine;
}

// Before the first window is made, which keeps the awareness that its thread has then. Wine gives a thread
// the whole of it only when the thread itself asks.
void SetDpiAwareness(DPI_AWARENESS_CONTEXT awareness) {
    SetProcessDpiAwarenessContext(awareness);
    SetThreadDpiAwarenessContext(awareness);
}

int Run(const Options& options) {
    if (options.dpiAwareness)
        SetDpiAwareness(options.dpiAwareness);
    if (!options.logFile.empty() && !Log().OpenFile(options.logFile))
        return Fail(options.logFile + ": cannot be written");
    if (!options.journalFile.empty() && !OpenJournal(options.journalFile))
        return Fail(options.journalFile + ": cannot be written");

    INITCOMMONCONTROLSEX classes{sizeof classes, ICC_WIN95_CLASSES | ICC_BAR_CLASSES};
    InitCommonControlsEx(&classes);
    CountAccessViolations();
    const PostedMessageWatch watch;
    if (!CreateFrame(options.frameClass))
        return Fail("the main window cannot be made");
    ScheduleMisbehaviours(options.misbehaviours);
    ShowWindow(Frame(), options.maximized ? SW_SHOWMAXIMIZED : SW_SHOW);
    for (int document = 0; document < 3; ++document)
        OpenPage("document");
    if (options.manyChildren > 0)
        OpenManyChildrenWindow(options.manyChildren);
    for (const std::string& page : options.pages)
        // Posted, so that a modal dialog does not keep the others from opening.
        for (const Page& known : Pages())
            if (known.name == page)
                PostMessageA(Frame(), WM_COMMAND, known.command, 0);
    if (options.script.file.empty())
        return RunMessageLoop();
    ScriptThread script(options.script);
    RunMessageLoop();
    return script.Wait();
}

} // namespace
} // namespace sample_host

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int) {
    std::string error;
    const auto options = sample_host::ParseCommandLine(__argc, __argv, error);
    return options ? sample_host::Run(*options) : sample_host::Fail(error);
}
