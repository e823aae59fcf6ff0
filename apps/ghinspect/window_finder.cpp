#include "ghinspect/window_finder.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "explain/utf8.h"
#include "explain/window_call.h"

namespace inspector {

namespace {

constexpr std::size_t kMostWindows = 100000;

std::wstring Lower(std::wstring text) {
    CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

bool Contains(const std::string& text, const std::wstring& lowered) {
    return Lower(explain::ToUtf16(text)).find(lowered) != std::wstring::npos;
}

class Matcher {
public:
    Matcher(const Search& search, const std::vector<explain::ProgramFacts>& programs)
        : m_lowered(Lower(search.text)), m_looksAtCalls(search.text.find(L'(') != std::wstring::npos),
          m_language(search.language), m_programs(programs) {}

    bool Matches(const Target& target) {
        if (target.window == nullptr) {
            const auto program =
                std::ranges::find(m_programs, target.processId, &explain::ProgramFacts::processId);
            return program != m_programs.end() && Contains(program->name, m_lowered);
        }
        const explain::WindowFacts facts = explain::FactsOf(target.window);
        const std::wstring id = facts.controlId == 0 ? L"" : std::to_wstring(facts.controlId);
        return Contains(facts.className, m_lowered) || Contains(facts.caption, m_lowered) ||
               (!id.empty() && (id == m_lowered || L"id " + id == m_lowered)) ||
               (m_looksAtCalls &&
                Contains(CallText(m_calls.CallTo(target.window).call, m_language), m_lowered));
    }

private:
    std::wstring m_lowered;
    bool m_looksAtCalls;
    explain::Language m_language;
    const std::vector<explain::ProgramFacts>& m_programs;
    explain::CallFinder m_calls{0};
};

// Everything that the tree can show, in its order.
std::vector<Target> EveryTarget(const std::vector<explain::ProgramFacts>& programs, bool withHidden) {
    std::vector<Target> targets;
    std::vector<HWND> left; // the next one is the last
    for (const explain::ProgramFacts& program : programs) {
        targets.push_back({program.processId, nullptr});
        left = WindowsOf(program, withHidden);
        std::ranges::reverse(left);
        while (!left.empty() && targets.size() < kMostWindows) {
            const HWND next = left.back();
            left.pop_back();
            targets.push_back({program.processId, next});
            const std::vector<HWND> children = explain::ChildrenOf(next);
            left.insert(left.end(), children.rbegin(), children.rend());
        }
    }
    return targets;
}

} // namespace

Found FindNext(const Search& search, const Target& from) {
    std::vector<explain::ProgramFacts> programs;
    for (ProgramRow& row : TakeSnapshot({}, search.withHidden).programs) {
        programs.push_back(std::move(row.facts));
    }
    const std::vector<Target> targets = EveryTarget(programs, search.withHidden);
    Matcher matcher(search, programs);
    std::vector<std::size_t> matches;
    for (std::size_t index = 0; index < targets.size(); ++index) {
        if (matcher.Matches(targets[index])) {
            matches.push_back(index);
        }
    }
    Found found;
    found.count = static_cast<int>(matches.size());
    if (matches.empty()) {
        return found;
    }
    const auto place = static_cast<std::size_t>(std::ranges::find(targets, from) - targets.begin());
    // Where the tree does not have the place, it counts as the end, and the search begins at the top.
    auto match = std::ranges::lower_bound(matches, place);
    if (search.isBackwards) {
        match = match == matches.begin() ? matches.end() - 1 : match - 1;
    } else {
        match += match != matches.end() && *match == place ? 1 : 0;
        match = match == matches.end() ? matches.begin() : match;
    }
    found.target = targets[*match];
    found.ordinal = static_cast<int>(match - matches.begin()) + 1;
    return found;
}

} // namespace inspector
