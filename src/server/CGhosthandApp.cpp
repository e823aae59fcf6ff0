#include "server/CGhosthandApp.h"

#include "automation/activation_context.h"
#include "hostlink/module_instance.h"
#include "inhouse/resbase.h"

bool CGhosthandApp::InitInstance(HINSTANCE instance) noexcept {
    automation::CaptureActivationContext();
    hostlink::SetModuleInstance(instance);
    try {
        init_resources();
        return true;
    } catch (...) {
        return false;
    }
}
