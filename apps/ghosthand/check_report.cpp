#include "ghosthand/check_report.h"

#include <algorithm>

namespace apps {

namespace {

using Lines = std::vector<CheckLine>;

void Good(Lines& lines, std::string text) {
    lines.push_back({Verdict::Good, std::move(text), {}});
}
void Note(Lines& lines, std::string text, std::string advice) {
    lines.push_back({Verdict::Note, std::move(text), std::move(advice)});
}
void Problem(Lines& lines, std::string text, std::string advice) {
    lines.push_back({Verdict::Problem, std::move(text), std::move(advice)});
}

std::string List(const std::vector<std::string>& items) {
    std::string text;
    for (const std::string& item : items) {
        text += (text.empty() ? "" : ", ") + item;
    }
    return text;
}

std::string Option(const RegisteredCopy& copy) {
    return copy.isForCurrentUser ? " --user" : "";
}

std::string Where(const RegisteredCopy& copy) {
    return copy.isForCurrentUser ? "for the current user" : "for all users";
}

std::string Rights(const RegisteredCopy& copy) {
    return copy.isForCurrentUser ? "" : ", in a prompt that was started as administrator";
}

std::string HowToRegister(const RegisteredCopy& copy) {
    return "ghosthand register" + Option(copy) + Rights(copy);
}

void ReportFile(Lines& lines, const CheckFacts& facts, const RegisteredCopy& copy) {
    switch (copy.kind) {
    case ModuleKind::Missing:
        Problem(lines, "The registered file is not there: " + copy.path,
                "Put it back, or register the one that you have: " + HowToRegister(copy));
        return;
    case ModuleKind::NotAModule:
        Problem(lines, "The registered file is damaged or something else: " + copy.path,
                "Install again, then: " + HowToRegister(copy));
        return;
    case ModuleKind::Bits32:
    case ModuleKind::OtherProcessor:
        Problem(lines, "The registered file is not a 64-bit one: " + copy.path,
                "Register the 64-bit one: " + HowToRegister(copy));
        return;
    case ModuleKind::Bits64:
        break;
    }
    Good(lines, "The file is there, is a 64-bit one and has the version " +
                    (copy.version.empty() ? "(none)" : copy.version));
    if (copy.version != facts.toolVersion) {
        Note(lines, "This tool has another version: " + facts.toolVersion,
             "Use the ghosthand.exe that came with the registered file, or register the file that came with "
             "this "
             "tool: " +
                 HowToRegister(copy));
    }
}

void ReportRegistration(Lines& lines, const CheckFacts& facts, const RegisteredCopy& copy) {
    if (copy.path.empty()) {
        Problem(lines, "A registration " + Where(copy) + " stopped halfway: it names no file",
                "To mend it: " + HowToRegister(copy) +
                    "\nTo remove what there is of it: ghosthand unregister" + Option(copy));
        return;
    }
    Good(lines, "Registered " + Where(copy) + ": " + copy.path);
    ReportFile(lines, facts, copy);
    if (!copy.faults.empty()) {
        const std::size_t others = copy.faults.size() - 1;
        Problem(lines,
                "The registration " + Where(copy) + " stopped halfway or was changed: " +
                    copy.faults.front() + (others == 0 ? "" : ", and " + std::to_string(others) + " more"),
                "To mend it: " + HowToRegister(copy));
    }
}

// The shared data of a module belongs to the file that it was loaded from.
void ReportCopies(Lines& lines, const CheckFacts& facts) {
    std::vector<std::string> paths;
    const auto add = [&paths](const std::string& path) {
        if (!path.empty() &&
            std::ranges::none_of(paths, [&](const std::string& known) { return IsSamePath(known, path); })) {
            paths.push_back(path);
        }
    };
    for (const RegisteredCopy& copy : facts.registrations) {
        add(copy.path);
    }
    if (facts.registrations.size() > 1 && paths.size() > 1) {
        Problem(lines, "Two copies are registered; scripts of the current user get the first: " + List(paths),
                "Keep one of them: ghosthand unregister --user, or ghosthand unregister as administrator");
    }
    const std::size_t registered = paths.size();
    for (const LoadedCopy& copy : facts.loaded) {
        add(copy.path);
        Note(lines, "Held at the moment by " + List(copy.programs) + ": " + copy.path,
             "Only for an update or removal: close these programs first");
    }
    if (registered > 0 && paths.size() > registered) {
        Problem(lines,
                "Programs hold a copy that is not the registered one; copies do not see each other's data",
                "Close the programs named above and start them again");
    }
    if (!facts.neighbour.empty() && registered > 0) {
        const std::size_t before = paths.size();
        add(facts.neighbour);
        if (paths.size() > before) {
            Note(lines, "There is another copy beside this tool, which is not registered: " + facts.neighbour,
                 "Nothing, unless it is the one that you mean: ghosthand register");
        }
    }
    if (facts.isRegisteredFor32Bit) {
        Note(lines, "There is a registration for 32-bit programs, too, which cannot work",
             "Something else than this tool has made it. It does no harm to 64-bit scripts");
    }
}

void ReportObject(Lines& lines, const CheckFacts& facts) {
    if (facts.objectError.empty()) {
        Good(lines, "CreateObject(\"Ghosthand.Ghosthand\") works");
    } else if (!facts.registrations.empty()) {
        const bool isForUserAlone =
            std::ranges::all_of(facts.registrations, &RegisteredCopy::isForCurrentUser);
        Problem(lines, "CreateObject(\"Ghosthand.Ghosthand\") fails: " + facts.objectError,
                isForUserAlone && facts.isElevated
                    ? "This prompt runs as administrator, where a registration for the current user does not "
                      "count. "
                      "Run scripts in an ordinary prompt, or register for all users: ghosthand register"
                    : "Mend what is said above; then allow ghosthand.dll in the software that protects this "
                      "machine");
    }
    if (!facts.typeLibraryError.empty()) {
        Problem(lines, "The type library cannot be read: " + facts.typeLibraryError,
                "Register again: ghosthand register");
    } else if (!facts.typeLibraryVersion.empty()) {
        Good(lines, "The type library can be read; its version is " + facts.typeLibraryVersion);
    }
}

void ReportDesktop(Lines& lines, const CheckFacts& facts) {
    if (facts.isService) {
        Problem(lines, "There is no interactive desktop here: this is a service's session",
                "Run scripts, and the agent that starts them, in the session of a user who has logged on");
    } else if (facts.isLocked) {
        Problem(lines, "The desktop is locked, or its input belongs to another one",
                "Unlock it. For runs at night: no screen saver, no lock, a user who stays logged on");
    } else {
        Good(lines, "The desktop is interactive");
    }
    if (facts.isRemote) {
        Note(lines, "This is a remote desktop session",
             "Input stops when it is minimised or disconnected: leave it open, or hand it to the console "
             "(tscon NUMBER /dest:console, as administrator)");
    }
    std::vector<std::string> scales;
    for (const int scale : facts.scales) {
        scales.push_back(std::to_string(scale) + " %");
    }
    const bool isMixed =
        std::ranges::adjacent_find(facts.scales, std::not_equal_to<>()) != facts.scales.end();
    if (isMixed) {
        Note(lines, "The displays have different scales: " + List(scales),
             "Coordinates are the driven program's own pixels. Keep its windows on one display");
    } else if (!scales.empty()) {
        Good(lines, "Display scale: " + scales.front());
    }
    if (facts.areCountersReadable) {
        Good(lines, "The performance counters can be read");
    } else {
        Note(lines,
             "The performance counters of threads cannot be read: waits cannot see that a program is idle",
             "As administrator: lodctr /R, then start the machine again. Scripts work without them, but a "
             "step "
             "may come before the program has finished the last one");
    }
}

void ReportProgram(Lines& lines, const CheckFacts& facts, const ProgramState& program) {
    if (program.isInOtherSession) {
        Problem(lines, program.name + " runs in another session",
                "Start it on the desktop on which the scripts run");
        return;
    }
    if (!program.isReadable || (program.isElevated && !facts.isElevated)) {
        Problem(lines, program.name + " has more rights than this prompt; nothing reaches its windows",
                "Start it without administrator's rights, or the scripts with them");
        return;
    }
    if (program.is32Bit) {
        Problem(lines, program.name + " is a 32-bit program", "Only 64-bit programs can be driven");
        return;
    }
    if (!program.hasWindow) {
        Problem(lines, program.name + " shows no window",
                "Wait until it has started, or look for one that asks");
    } else if (!program.answers) {
        Problem(lines, program.name + " does not answer",
                "Wait until it is ready, or end it and start it again");
    } else {
        Good(lines,
             program.name + " runs, is a 64-bit program, has no more rights than this prompt and answers");
    }
}

const char* Word(Verdict verdict) {
    switch (verdict) {
    case Verdict::Good:
        return "OK       ";
    case Verdict::Note:
        return "Note     ";
    case Verdict::Problem:
        break;
    }
    return "PROBLEM  ";
}

} // namespace

std::vector<CheckLine> CheckReport(const CheckFacts& facts) {
    Lines lines;
    if (facts.registrations.empty()) {
        Problem(lines, "Ghosthand is not registered",
                "ghosthand register, in a prompt that was started as administrator, or without such rights: "
                "ghosthand register --user");
    }
    for (const RegisteredCopy& copy : facts.registrations) {
        ReportRegistration(lines, facts, copy);
    }
    ReportCopies(lines, facts);
    ReportObject(lines, facts);
    ReportDesktop(lines, facts);
    if (facts.program && facts.programs.empty()) {
        Problem(lines, "No program runs whose file name begins with '" + *facts.program + "'",
                "Start it. The name is that of its file, as the task manager shows it among the details");
    }
    for (const ProgramState& program : facts.programs) {
        ReportProgram(lines, facts, program);
    }
    return lines;
}

bool IsSamePath(const std::string& left, const std::string& right) {
    return std::ranges::equal(left, right, [](char one, char other) {
        const auto plain = [](char character) {
            if (character >= 'A' && character <= 'Z') {
                return static_cast<char>(character - 'A' + 'a');
            }
            return character == '/' ? '\\' : character;
        };
        return plain(one) == plain(other);
    });
}

std::string TextOf(const std::vector<CheckLine>& lines) {
    constexpr const char* kMargin = "\n         ";
    std::string text;
    for (const CheckLine& line : lines) {
        text += Word(line.verdict) + line.text;
        std::string advice = line.advice;
        for (std::size_t place = 0; (place = advice.find('\n', place)) != std::string::npos;) {
            advice.replace(place, 1, kMargin);
            place += std::char_traits<char>::length(kMargin);
        }
        text += (advice.empty() ? "" : kMargin + advice) + "\n";
    }
    return text;
}

} // namespace apps
