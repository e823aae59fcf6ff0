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
std::vector<Target> EveryTarget(const Snapshot& snapshot) {
    std::vector<Target> targets;
    std::vector<Target> left; // the next one is the last
    for (const Branch& branch : snapshot.branches) {
        targets.push_back(branch.parent);
        for (auto row = branch.rows.rbegin(); row != branch.rows.rend(); ++row) {
            left.push_back(row->target);
        }
        while (!left.empty() && targets.size() < kMostWindows) {
            const Target next = left.back();
            left.pop_back();
            targets.push_back(next);
            const std::vector<HWND> children = explain::ChildrenOf(next.window);
            for (auto child = children.rbegin(); child != children.rend(); ++child) {
                left.push_back({next.processId, *child});
            }
        }
    }
    return targets;
}

} // namespace

Found FindNext(const Search& search, const Target& from) {
    Snapshot snapshot = TakeSnapshot({}, search.withHidden);
    for (const explain::ProgramFacts& program : snapshot.programs) {
        snapshot.branches.push_back({{program.processId, nullptr}, RowsOf(program, search.withHidden)});
    }
    const std::vector<Target> targets = EveryTarget(snapshot);
    Matcher matcher(search, snapshot.programs);
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
