// The members of the selected object: values as they are now, and actions that can be done.
#pragma once

#include <functional>
#include <string>

#include <windows.h>

#include "explain/call_text.h"
#include "ghinspect/object_members.h"
#include "ghinspect/table.h"

namespace inspector {

class MemberPage {
public:
    void Create(HWND parent);
    const Table& List() const noexcept { return m_table; }

    // In place of members: why there are none (yet).
    void ShowMessage(const std::wstring& message);
    void Show(ObjectReport report);
    void ShowAnswer(const std::wstring& answer);
    // Another row is selected: its help and arguments.
    void OnSelection();
    // What the user wants done; false (with an answer that says why) if nothing can be.
    bool Wanted(explain::Language language, Member& member, std::vector<explain::Argument>& arguments);
    void SetVisible(bool isVisible);

private:
    Table m_table;
    HWND m_help = nullptr;
    HWND m_argumentsLabel = nullptr;
    HWND m_arguments = nullptr;
    HWND m_do = nullptr;
    HWND m_answerLabel = nullptr;
    HWND m_answer = nullptr;
    ObjectReport m_report;
    std::size_t m_firstRow = 0; // of the members
    std::wstring m_shown;       // the member that the arguments belong to
};

} // namespace inspector
