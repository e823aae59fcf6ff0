#include "ghosthand/verbs.h"

#include <charconv>
#include <filesystem>
#include <fstream>

#include "explain/utf8.h"
#include "ghosthand/programs.h"
#include "ghosthand/server_registration.h"
#include "shared/console.h"

namespace apps {

namespace {

// The registered module, the current user's if there is one; empty if nothing is registered.
std::wstring RegisteredModule() {
    for (const Scope scope : {Scope::CurrentUser, Scope::AllUsers}) {
        if (const auto registration = FindRegistration(scope, {});
            registration && !registration->path.empty()) {
            return registration->path;
        }
    }
    return {};
}

// 0 for what is no number.
DWORD ProcessNumber(const std::string& text) {
    DWORD number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

bool WriteUtf16(const std::string& text, const std::string& file) {
    const std::wstring wide = L"\xFEFF" + explain::ToUtf16(text);
    std::ofstream output(std::filesystem::path(explain::ToUtf16(file)), std::ios::binary | std::ios::trunc);
    output.write(reinterpret_cast<const char*>(wide.data()),
                 static_cast<std::streamsize>(wide.size() * sizeof(wchar_t)));
    return output.flush().good();
}

} // namespace

int Holders(Arguments arguments) {
    const bool hasOutput = arguments.size() == 4 && arguments[1] == "--output";
    if (arguments.size() > 1 && !hasOutput) {
        return kWrongUsage;
    }
    const std::wstring place =
        arguments.empty() ? RegisteredModule() : FullPath(explain::ToUtf16(arguments[0]));
    if (place.empty()) {
        PrintError("Nothing is registered. Type what is to be looked for: ghosthand holders PATH\n");
        return kFailed;
    }
    const std::vector<std::string> holders = HoldersOf(place, hasOutput ? ProcessNumber(arguments[3]) : 0);
    std::string lines;
    for (const std::string& holder : holders) {
        lines += holder + "\r\n";
    }
    if (!hasOutput) {
        Print(lines);
    } else if (!WriteUtf16(lines, arguments[2])) {
        PrintError("Cannot be written: " + arguments[2] + "\n");
        return kFailed;
    }
    return holders.empty() ? kDone : kFailed;
}

} // namespace apps
