#include "ghinspect/facts_page.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <string_view>
#include <utility>

#include "explain/utf8.h"

namespace inspector {

namespace {

constexpr std::size_t kLongestCaption = 500;
constexpr std::size_t kStyleLineLength = 60;

template <class... Values>
std::wstring Format(const wchar_t* format, Values... values) {
    std::array<wchar_t, 120> text = {};
    std::swprintf(text.data(), text.size(), format, values...);
    return text.data();
}

std::wstring HandleText(HWND window) {
    return Format(L"0x%08llX", static_cast<unsigned long long>(reinterpret_cast<std::uintptr_t>(window)));
}

std::wstring YesOrNo(bool value) {
    return value ? L"yes" : L"no";
}

std::wstring RectangleText(const RECT& area) {
    return Format(L"left %ld, top %ld, right %ld, bottom %ld (%ld x %ld pixels)", area.left, area.top,
                  area.right, area.bottom, area.right - area.left, area.bottom - area.top);
}

std::wstring NameOfWindow(HWND window) {
    const explain::WindowFacts facts = explain::FactsOf(window);
    return facts.window == nullptr ? std::wstring() : NameOf(facts) + L"  (" + HandleText(window) + L")";
}

constexpr std::string_view kExtended = "WS_EX_";

// The number, then the names, in lines that fit into the column.
std::vector<std::wstring> StyleLines(const explain::WindowFacts& facts, bool isExtended) {
    std::vector<std::wstring> lines = {Format(L"0x%08lX", isExtended ? facts.extendedStyle : facts.style)};
    const std::vector<std::string> names = explain::StyleNames(facts);
    const auto first = std::ranges::find_if(
        names, [](const std::string& name) { return std::string_view(name).starts_with(kExtended); });
    for (auto name = isExtended ? first : names.begin(); name != (isExtended ? names.end() : first); ++name) {
        const std::wstring text = explain::ToUtf16(*name);
        if (lines.back().size() + text.size() < kStyleLineLength) {
            lines.back() += L" " + text;
        } else {
            lines.push_back(text);
        }
    }
    return lines;
}

} // namespace

void FactsPage::Create(HWND parent, int id) {
    m_table.Create(parent, id, {{L"Fact", 110}, {L"Value", 300}});
}

void FactsPage::Show(std::vector<Fact> facts) {
    m_facts = std::move(facts);
    std::vector<Table::Cells> rows;
    for (const Fact& fact : m_facts) {
        rows.push_back({fact.name, fact.value});
    }
    m_table.Set(rows);
}

bool FactsPage::ShowWindowFacts(HWND window, const std::wstring& kind, const explain::ProgramFacts* program) {
    const explain::WindowFacts facts = explain::FactsOf(window);
    if (facts.window == nullptr) {
        return false;
    }
    std::vector<Fact> rows;
    rows.push_back({L"Class", explain::ToUtf16(facts.className), {}});
    rows.push_back({L"Caption", OneLine(explain::ToUtf16(facts.caption), kLongestCaption), {}});
    rows.push_back({L"Control id", Format(L"%d (0x%X)", facts.controlId, facts.controlId), {}});
    rows.push_back({L"Kind", kind, {}});
    rows.push_back({L"Visible", YesOrNo(facts.isVisible), {}});
    rows.push_back({L"Enabled", YesOrNo(facts.isEnabled), {}});
    rows.push_back({L"Rectangle", RectangleText(facts.rectangle), {}});
    for (const auto& [name, other] : {std::pair(L"Parent", facts.parent), std::pair(L"Owner", facts.owner)}) {
        if (other != nullptr) {
            rows.push_back({name, NameOfWindow(other), Target{facts.processId, other}});
        }
    }
    for (const bool isExtended : {false, true}) {
        const wchar_t* title = isExtended ? L"Extended style" : L"Style";
        for (std::wstring& line : StyleLines(facts, isExtended)) {
            rows.push_back({std::exchange(title, L""), std::move(line), {}});
        }
    }
    rows.push_back({L"Handle", HandleText(window), {}});
    if (program != nullptr) {
        rows.push_back({L"Program", explain::ToUtf16(program->path.empty() ? program->name : program->path),
                        Target{facts.processId, nullptr}});
    }
    rows.push_back({L"Process", Format(L"%lu, thread %lu", facts.processId, facts.threadId), {}});
    Show(std::move(rows));
    return true;
}

void FactsPage::ShowProgram(const explain::ProgramFacts& program) {
    std::vector<Fact> rows;
    rows.push_back({L"Program", explain::ToUtf16(program.name), {}});
    rows.push_back({L"File", explain::ToUtf16(program.path), {}});
    rows.push_back({L"Process", std::to_wstring(program.processId), {}});
    rows.push_back({L"Windows", std::to_wstring(program.windows.size()) + L" top-level", {}});
    rows.push_back({L"Answers", YesOrNo(!program.isHung), {}});
    rows.push_back({L"64-bit", YesOrNo(!program.is32Bit), {}});
    rows.push_back({L"More rights", YesOrNo(program.isElevated), {}});
    Show(std::move(rows));
}

std::optional<Target> FactsPage::LinkOfSelected() const {
    const auto selected = m_table.Selected();
    return selected && *selected < m_facts.size() ? m_facts[*selected].link : std::nullopt;
}

} // namespace inspector
