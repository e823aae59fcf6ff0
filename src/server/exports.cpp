// What the module exports; ghosthand.def names the exports.
#include <windows.h>

#include <objbase.h>
#include <olectl.h>

#include "engine/ghSharedUtils.h"
#include "server/CGhosthandApp.h"
#include "server/CGhosthandModule.h"
#include "trace/trace.h"

namespace {

constinit CGhosthandApp app;
constinit CGhosthandModule comServer;

} // namespace

// The threads' notifications stay on: the run-time library, linked statically, needs them.
extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void*) {
    if (reason == DLL_PROCESS_DETACH)
        trace::Finish();
    if (reason != DLL_PROCESS_ATTACH)
        return TRUE;
    comServer.Initialize(instance, server::ObjectMap());
    return app.InitInstance(instance);
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
    return comServer.GetClassObject(classId, iid, object);
}

STDAPI DllCanUnloadNow() {
    return comServer.CanUnloadNow();
}

STDAPI DllRegisterServer() {
    return comServer.RegisterServer();
}

STDAPI DllUnregisterServer() {
    return comServer.UnregisterServer();
}

// ghSharedUtils for other programs. Each compiler has names of its own for its members: these names are the
// same to both, and the module exports them under the names of either.
extern "C" HWND ghosthand_active_dialog(HWND window) {
    return ghSharedUtils::active_dialog(window);
}

extern "C" int ghosthand_is_popup_dialog(HWND window) {
    return ghSharedUtils::is_popup_dialog(window);
}

extern "C" bool ghosthand_is_starts_from(const char* text, const char* prefix) {
    return ghSharedUtils::is_starts_from(text, prefix);
}
