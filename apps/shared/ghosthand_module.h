// The automation module that a tool carries in itself: one file that needs no installation.
#pragma once

#include <filesystem>
#include <memory>

#include <windows.h>

#include <oaidl.h>

namespace apps {

struct DispatchReleaser {
    void operator()(IDispatch* object) const noexcept { object->Release(); }
};
using DispatchPointer = std::unique_ptr<IDispatch, DispatchReleaser>;

// The module, ghosthand.dll. The first call unpacks it into the user's temporary folder and loads it, for as
// long as the process lives; from then on remote sends of this process go through it. Safe from several
// threads. Throws std::runtime_error when the file cannot be written or loaded.
HMODULE GhosthandModule();

// A new object of the class Ghosthand, made by the carried module: no registration is needed, one of another
// copy does not matter. The calling thread has entered COM. Throws std::runtime_error.
DispatchPointer CreateEntryObject();

// Where in `folder` the carried module lies once it is unpacked.
std::filesystem::path UnpackedModulePath(const std::filesystem::path& folder);

// Loads the carried module from its place in `folder`. The file is written if it is not there with just the
// carried content; modules of other versions that nobody uses are removed. Throws std::runtime_error.
HMODULE LoadUnpackedModule(const std::filesystem::path& folder);

} // namespace apps
