#include "message_loop.h"

#include "bar_popup.h"
#include "dialog.h"
#include "frame.h"
#include "host_ids.h"

#include <iterator>
#include <windows.h>

namespace sample_host {
namespace {

HACCEL CreateAccelerators() {
    ACCEL keys[] = {
        {FVIRTKEY | FCONTROL, 'N', ids::kFileNew},
        {FVIRTKEY | FCONTROL, 'O', ids::kFileOpen},
        {FVIRTKEY | FCONTROL, 'S', ids::kFileSave},
        {FVIRTKEY, VK_F7, ids::kViewGrid},
    };
    return CreateAcceleratorTableA(keys, static_cast<int>(std::size(keys)));
}

} // namespace

int RunMessageLoop() {
    const HACCEL accelerators = CreateAccelerators();
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        if (IsBarPopupMessage(message) || IsModelessDialogMessage(message) ||
            TranslateMDISysAccel(MdiClient(), &message) ||
            TranslateAcceleratorA(Frame(), accelerators, &message))
            continue;
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    DestroyAcceleratorTable(accelerators);
    return static_cast<int>(message.wParam);
}

} // namespace sample_host
