// What `check` says of what it has found. Needs no Windows. Texts are UTF-8.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ghosthand/module_file.h"

namespace apps {

struct RegisteredCopy {
    bool isForCurrentUser = false; // otherwise for all users
    std::string path;              // empty: remains of a registration that names no file
    ModuleKind kind = ModuleKind::Missing;
    std::string version;             // of the file; empty if it has none
    std::vector<std::string> faults; // what a whole registration has and this one has not
};

struct LoadedCopy {
    std::string path;
    std::vector<std::string> programs;
};

struct ProgramState {
    std::string name;       // with its process: "cad.exe (process 12)"
    bool isReadable = true; // otherwise nothing below but the session is known
    bool is32Bit = false;
    bool isElevated = false;
    bool isInOtherSession = false;
    bool hasWindow = false;
    bool answers = false;
};

struct CheckFacts {
    std::string toolVersion;
    std::string neighbour;                     // the copy that `register` would take; empty if there is none
    std::vector<RegisteredCopy> registrations; // the current user's first: it wins
    bool isRegisteredFor32Bit = false;
    std::vector<LoadedCopy> loaded;

    std::string objectError; // empty: a script gets its object
    std::string typeLibraryError;
    std::string typeLibraryVersion;

    bool isElevated = false;
    bool isService = false; // no desktop that a user could see
    bool isLocked = false;  // somebody else's desktop, or the one of the log-on, has the input
    bool isRemote = false;
    std::vector<int> scales; // percent, one a display
    bool areCountersReadable = true;

    std::optional<std::string> program; // what was asked for
    std::vector<ProgramState> programs;
};

enum class Verdict { Good, Note, Problem };

struct CheckLine {
    Verdict verdict;
    std::string text;
    std::string advice; // what to do; empty if there is nothing to do
};

std::vector<CheckLine> CheckReport(const CheckFacts& facts);

// Paths as the file system compares them, as far as that matters for ASCII letters.
bool IsSamePath(const std::string& left, const std::string& right);

// The lines as they are printed.
std::string TextOf(const std::vector<CheckLine>& lines);

} // namespace apps
