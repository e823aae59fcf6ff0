// What the module exports to COM; ghosthand.def names the exports.
#include <windows.h>

#include <objbase.h>
#include <olectl.h>

#include "server/CGhosthandApp.h"
#include "server/CGhosthandModule.h"

namespace {

constinit CGhosthandApp app;
constinit CGhosthandModule module;

} // namespace

// The threads' notifications stay on: the run-time library, linked statically, needs them.
extern "C" BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, void*) {
    if (reason != DLL_PROCESS_ATTACH)
        return TRUE;
    module.Initialize(instance, server::ObjectMap());
    return app.InitInstance(instance);
}

STDAPI DllGetClassObject(REFCLSID classId, REFIID iid, void** object) {
    return module.GetClassObject(classId, iid, object);
}

STDAPI DllCanUnloadNow() {
    return module.CanUnloadNow();
}

STDAPI DllRegisterServer() {
    return module.RegisterServer();
}

STDAPI DllUnregisterServer() {
    return module.UnregisterServer();
}
