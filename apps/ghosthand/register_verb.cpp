#include "ghosthand/verbs.h"

#include <optional>

#include "explain/utf8.h"
#include "ghosthand/server_registration.h"
#include "shared/console.h"

namespace apps {

namespace {

struct Request {
    Scope scope = Scope::AllUsers;
    std::wstring file; // full path; empty: none was named
};

// No value: wrong usage.
std::optional<Request> ParseRequest(Arguments arguments) {
    Request request;
    for (const std::string& argument : arguments) {
        if (argument == "--user") {
            request.scope = Scope::CurrentUser;
        } else if (argument.empty() || argument.starts_with("-") || !request.file.empty()) {
            return std::nullopt;
        } else {
            request.file = FullPath(explain::ToUtf16(argument));
        }
    }
    return request;
}

const char* Whom(Scope scope) {
    return scope == Scope::CurrentUser ? "for the current user" : "for all users";
}

// What is wrong with a file that is to be registered; empty if nothing is.
std::string Refusal(const std::wstring& file) {
    const std::string name = explain::ToUtf8(file);
    switch (KindOfFile(file)) {
    case ModuleKind::Missing:
        return "There is no such file, or it cannot be read: " + name + "\n";
    case ModuleKind::NotAModule:
        return "This is not a DLL, or it is damaged: " + name + "\n";
    case ModuleKind::Bits32:
    case ModuleKind::OtherProcessor:
        return "This DLL is not a 64-bit one, as Ghosthand's is: " + name + "\n";
    case ModuleKind::Bits64:
        break;
    }
    return {};
}

int ReportFailure(const char* what, HRESULT result, Scope scope) {
    std::string text = std::string(what) + " failed: " + ResultText(result) + "\n";
    if (result == E_ACCESSDENIED && scope == Scope::AllUsers) {
        text += "Type it again in a prompt that was started as administrator, or for yourself alone with "
                "--user.\n";
    } else {
        text += "What is registered now: ghosthand check\n";
    }
    PrintError(text);
    return kFailed;
}

} // namespace

int Register(Arguments arguments) {
    const std::optional<Request> request = ParseRequest(arguments);
    if (!request) {
        return kWrongUsage;
    }
    const std::wstring file = request->file.empty() ? NeighbourModule() : request->file;
    if (file.empty()) {
        PrintError(
            "There is no ghosthand.dll beside this program. Type where it is: ghosthand register FILE\n");
        return kFailed;
    }
    if (const std::string refusal = Refusal(file); !refusal.empty()) {
        PrintError(refusal);
        return kFailed;
    }
    const std::optional<Registration> before = FindRegistration(request->scope, file);
    if (const HRESULT result = RegisterModule(file, request->scope); FAILED(result)) {
        return ReportFailure("Registering", result, request->scope);
    }
    const std::optional<Registration> after = FindRegistration(request->scope, file);
    if (!after || after->path.empty() || !after->faults.empty()) {
        PrintError("The registry does not hold what was registered" +
                   (after && !after->faults.empty() ? ": " + after->faults.front() : std::string()) + "\n");
        return kFailed;
    }
    Print(std::string("Registered ") + Whom(request->scope) + ": " + explain::ToUtf8(after->path) + "\n");
    if (before && !before->path.empty() && before->path != after->path) {
        Print("It takes the place of " + explain::ToUtf8(before->path) + "\n");
    } else if (before && (before->path.empty() || !before->faults.empty())) {
        Print("A registration that had stopped halfway is whole again.\n");
    }
    if (request->scope == Scope::AllUsers) {
        const std::optional<Registration> own = FindRegistration(Scope::CurrentUser, file);
        if (own && own->path != after->path) {
            Print("Your scripts still get another registration, which is yours alone" +
                  (own->path.empty() ? std::string() : ": " + explain::ToUtf8(own->path)) +
                  "\nTo remove it: ghosthand unregister --user\n");
        }
    }
    return kDone;
}

int Unregister(Arguments arguments) {
    const std::optional<Request> request = ParseRequest(arguments);
    if (!request) {
        return kWrongUsage;
    }
    const std::wstring neighbour = NeighbourModule();
    const std::optional<Registration> before = FindRegistration(request->scope, neighbour);
    if (!before) {
        Print(std::string("Nothing is registered ") + Whom(request->scope) + ".\n");
        return kDone;
    }
    if (!request->file.empty() &&
        CompareStringOrdinal(before->path.c_str(), -1, request->file.c_str(), -1, TRUE) != CSTR_EQUAL) {
        Print("Left alone, as another file is registered: " + explain::ToUtf8(before->path) + "\n");
        return kDone;
    }
    // The registration's own file may be gone; any other of its kind knows what to remove.
    const bool isUsable = KindOfFile(before->path) == ModuleKind::Bits64;
    const std::wstring file = isUsable ? before->path : neighbour;
    if (file.empty()) {
        PrintError(
            "The registered file is gone and there is no ghosthand.dll beside this program, which is needed "
            "to remove the registration: " +
            explain::ToUtf8(before->path) + "\n");
        return kFailed;
    }
    // Removing stops where something is missing, and would leave the rest.
    const bool isWhole = isUsable && before->faults.empty();
    const HRESULT mended = isWhole ? S_OK : RegisterModule(file, request->scope);
    if (const HRESULT result = FAILED(mended) ? mended : UnregisterModule(file, request->scope);
        FAILED(result)) {
        return ReportFailure("Unregistering", result, request->scope);
    }
    Print(std::string("No longer registered ") + Whom(request->scope) + ": " +
          explain::ToUtf8(before->path.empty() ? file : before->path) + "\n");
    return kDone;
}

} // namespace apps
