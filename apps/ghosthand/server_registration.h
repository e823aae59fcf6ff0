// The registration of the server's module: made, removed, and compared with what a whole one has.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include <windows.h>

#include "ghosthand/module_file.h"

namespace apps {

// Where COM looks for classes: a current user's registration comes before the one for all users.
enum class Scope { AllUsers, CurrentUser };

// The folder-independent, full form of a path that a user has typed.
std::wstring FullPath(const std::wstring& path);
// The module that belongs to this tool: the one beside its file, or where a build puts it. Empty if there is
// none.
std::wstring NeighbourModule();
ModuleKind KindOfFile(const std::wstring& path);
// "1.2.3.0"; empty if the file has no version.
std::string FileVersion(const std::wstring& path);

// Each loads the module and lets it do the work, for its type library, too.
HRESULT RegisterModule(const std::wstring& path, Scope scope);
HRESULT UnregisterModule(const std::wstring& path, Scope scope);

struct Registration {
    std::wstring path;               // of the module; empty if the entry class names none
    std::vector<std::string> faults; // what a whole registration of that module has and this one has not
};

// None when nothing is registered in that scope. What a whole registration has is asked of the registered
// module, where it can be loaded, otherwise of `substitute`, which may be empty: then faults stay unknown.
std::optional<Registration> FindRegistration(Scope scope, const std::wstring& substitute);

// A registration among those for 32-bit programs.
bool IsRegisteredFor32Bit();

// "0x80070005 (Access is denied.)"
std::string ResultText(HRESULT result);

} // namespace apps
