// The documents: MDI children that hold one edit control. The second one cannot be maximised.
#include "control.h"
#include "host_ids.h"
#include "mdi_page.h"

#include <string>

namespace sample_host {
namespace {

void Build(HWND page) {
    AddControl(page, {.className = "Edit",
                      .style = ES_MULTILINE | ES_AUTOVSCROLL | ES_WANTRETURN | WS_VSCROLL,
                      .id = ids::kEdit});
}

bool Handle(HWND page, UINT message, WPARAM, LPARAM lParam, LRESULT&) {
    if (message == WM_SIZE)
        MoveWindow(GetDlgItem(page, ids::kEdit), 0, 0, LOWORD(lParam), HIWORD(lParam), TRUE);
    else if (message == WM_SETFOCUS)
        SetFocus(GetDlgItem(page, ids::kEdit));
    return false; // DefMDIChildProcA needs to see both
}

} // namespace

void OpenDocument() {
    static int count = 0;
    const std::string name = "Document " + std::to_string(++count);
    OpenMdiPage({.name = name.c_str(),
                 .caption = name.c_str(),
                 .width = 460,
                 .height = 300,
                 .build = Build,
                 .handler = Handle,
                 .maximizable = count != 2,
                 .className = ids::kDocumentClass});
}

} // namespace sample_host
