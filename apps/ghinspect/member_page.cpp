#include "ghinspect/member_page.h"

#include <utility>

#include <windows.h>

#include <commctrl.h>

#include "explain/utf8.h"
#include "ghinspect/call_reader.h"
#include "ghinspect/control.h"
#include "ghinspect/control_ids.h"

namespace inspector {

namespace {

std::wstring Signature(const Member& member) {
    switch (member.kind) {
    case Member::Kind::Value:
        return L"";
    case Member::Kind::Put:
        return L"= value";
    default:
        return L"(" + member.parameters + L")";
    }
}

} // namespace

void MemberPage::Create(HWND parent) {
    m_table.Create(parent, ids::kMembers, {{L"Member", 160}, {L"Value now", 160}, {L"Arguments", 160}});
    m_help = CreateControl(parent, WC_STATICW, L"", SS_NOPREFIX | SS_ENDELLIPSIS, ids::kHelp);
    m_argumentsLabel = CreateControl(parent, WC_STATICW, L"&Arguments", SS_LEFT, ids::kArgumentsLabel);
    m_arguments =
        CreateControl(parent, WC_EDITW, L"", WS_TABSTOP | ES_AUTOHSCROLL, ids::kArguments, WS_EX_CLIENTEDGE);
    m_do = CreateControl(parent, WC_BUTTONW, L"&Do it (Enter)", WS_TABSTOP | BS_PUSHBUTTON, ids::kDo);
    m_answerLabel = CreateControl(parent, WC_STATICW, L"Ans&wer", SS_LEFT, ids::kAnswerLabel);
    m_answer = CreateControl(parent, WC_EDITW, L"", WS_TABSTOP | ES_AUTOHSCROLL | ES_READONLY, ids::kAnswer,
                             WS_EX_CLIENTEDGE);
}

void MemberPage::ShowMessage(const std::wstring& message) {
    m_report = {};
    m_report.obstacle = message;
    m_table.Set({{message, L"", L""}});
    m_shown.clear();
    OnSelection();
}

void MemberPage::Show(ObjectReport report) {
    if (!report.obstacle.empty()) {
        ShowMessage(report.obstacle);
        return;
    }
    m_report = std::move(report);
    std::vector<Table::Cells> rows;
    if (!m_report.answer.empty()) {
        rows.push_back({L"(the call itself)", m_report.answer, L""});
    }
    m_firstRow = rows.size();
    for (const Member& member : m_report.members) {
        rows.push_back({member.name, member.value, Signature(member)});
    }
    m_table.Set(rows);
    OnSelection();
}

void MemberPage::ShowAnswer(const std::wstring& answer) {
    SetText(m_answer, answer);
}

void MemberPage::OnSelection() {
    const std::size_t row = m_table.Selected().value_or(0);
    const std::size_t index = row - m_firstRow;
    const bool isMember = m_table.Selected() && row >= m_firstRow && index < m_report.members.size();
    const Member member = isMember ? m_report.members[index] : Member{};
    const bool isAction = isMember && member.kind != Member::Kind::Value;
    EnableWindow(m_do, isAction);
    EnableWindow(m_arguments, isAction && !member.parameters.empty());
    SetText(m_help, isMember ? m_report.interfaceName + L"." + member.name + L": " + member.help
                             : L"Select a member. Enter does an action.");
    // What somebody has typed stays until another member is selected.
    if (const std::wstring shown = member.name + Signature(member); shown != m_shown) {
        m_shown = shown;
        SetText(m_arguments, isAction ? member.arguments : L"");
        SetText(m_answer, L"");
    }
}

bool MemberPage::Wanted(explain::Language language, Member& member,
                        std::vector<explain::Argument>& arguments) {
    const auto row = m_table.Selected();
    if (!row || *row < m_firstRow || *row - m_firstRow >= m_report.members.size()) {
        return false;
    }
    member = m_report.members[*row - m_firstRow];
    if (member.kind == Member::Kind::Value) {
        return false;
    }
    auto read = ReadArguments(explain::ToUtf8(TextOf(m_arguments)), language);
    if (!read) {
        ShowAnswer(L"Not done: the arguments cannot be read. Texts stand in quotes, commas in between.");
        return false;
    }
    arguments = std::move(*read);
    return true;
}

void MemberPage::SetVisible(bool isVisible) {
    for (const HWND control :
         {m_table.Window(), m_help, m_argumentsLabel, m_arguments, m_do, m_answerLabel, m_answer}) {
        ShowWindow(control, isVisible ? SW_SHOWNA : SW_HIDE);
    }
}

} // namespace inspector
