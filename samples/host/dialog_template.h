// Dialog templates in memory, so that a dialog's look stands beside what it does.
#pragma once

#include "control.h"

#include <span>
#include <vector>
#include <windows.h>

namespace sample_host {

// What DialogBoxIndirectParamA and CreateDialogIndirectParamA take. The area, and those of the
// controls, are in dialog units.
class DialogTemplate {
public:
    DialogTemplate(const char* caption, DWORD style, DWORD exStyle, Area area,
                   std::span<const ControlSpec> controls);

    LPCDLGTEMPLATEA Data() const { return reinterpret_cast<LPCDLGTEMPLATEA>(m_words.data()); }

private:
    void AddNumber(DWORD number);
    void AddArea(Area area);
    void AddText(const char* text);
    void AlignToDword();

    std::vector<WORD> m_words;
};

} // namespace sample_host
