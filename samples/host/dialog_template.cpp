#include "dialog_template.h"

namespace sample_host {

DialogTemplate::DialogTemplate(const char* caption, DWORD style, DWORD exStyle, Area area,
                               std::span<const ControlSpec> controls) {
    AddNumber(style | DS_SETFONT);
    AddNumber(exStyle);
    m_words.push_back(static_cast<WORD>(controls.size()));
    AddArea(area);
    m_words.push_back(0); // no menu
    m_words.push_back(0); // the class of dialogs, "#32770"
    AddText(caption);
    m_words.push_back(8); // font size in points
    AddText("MS Shell Dlg");

    for (const ControlSpec& control : controls) {
        AlignToDword();
        AddNumber(control.style | WS_CHILD | (control.hidden ? 0 : WS_VISIBLE));
        AddNumber(control.exStyle);
        AddArea(control.area);
        m_words.push_back(static_cast<WORD>(control.id));
        AddText(control.className);
        AddText(control.text);
        m_words.push_back(0); // no creation data
    }
}

void DialogTemplate::AddNumber(DWORD number) {
    m_words.push_back(LOWORD(number));
    m_words.push_back(HIWORD(number));
}

void DialogTemplate::AddArea(Area area) {
    for (const int value : {area.x, area.y, area.width, area.height})
        m_words.push_back(static_cast<WORD>(value));
}

// The texts of the host are ASCII.
void DialogTemplate::AddText(const char* text) {
    for (; *text; ++text)
        m_words.push_back(static_cast<unsigned char>(*text));
    m_words.push_back(0);
}

void DialogTemplate::AlignToDword() {
    if (m_words.size() % 2 != 0)
        m_words.push_back(0);
}

} // namespace sample_host
