#include "ghinspect/window_finder.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "explain/utf8.h"

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

bool Matches(const explain::WindowFacts& facts, const std::wstring& lowered) {
    const std::wstring id = facts.controlId == 0 ? L"" : std::to_wstring(facts.controlId);
    return Contains(facts.className, lowered) || Contains(facts.caption, lowered) ||
           (!id.empty() && (id == lowered || L"id " + id == lowered));
}

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

Found FindNext(const std::wstring& text, const Target& from, bool backwards, bool withHidden) {
    Snapshot snapshot = TakeSnapshot({}, withHidden);
    for (const explain::ProgramFacts& program : snapshot.programs) {
        snapshot.branches.push_back({{program.processId, nullptr}, RowsOf(program, withHidden)});
    }
    const std::vector<Target> targets = EveryTarget(snapshot);
    const std::wstring lowered = Lower(text);
    std::vector<std::size_t> matches;
    for (std::size_t index = 0; index < targets.size(); ++index) {
        const Target& target = targets[index];
        const auto* const program = [&]() -> const explain::ProgramFacts* {
            const auto found =
                std::ranges::find(snapshot.programs, target.processId, &explain::ProgramFacts::processId);
            return target.window != nullptr || found == snapshot.programs.end() ? nullptr : &*found;
        }();
        if (program != nullptr ? Contains(program->name, lowered)
                               : Matches(explain::FactsOf(target.window), lowered)) {
            matches.push_back(index);
        }
    }
    Found found;
    found.count = static_cast<int>(matches.size());
    if (matches.empty()) {
        return found;
    }
    const auto place = static_cast<std::size_t>(std::ranges::find(targets, from) - targets.begin());
    const std::size_t position = place == targets.size() ? 0 : place;
    std::size_t chosen = 0;
    if (backwards) {
        const auto next = std::ranges::lower_bound(matches, position);
        chosen = next == matches.begin() ? matches.size() - 1
                                         : static_cast<std::size_t>(next - matches.begin()) - 1;
    } else {
        const bool isNothingSelected = place == targets.size();
        const auto next = isNothingSelected ? matches.begin() : std::ranges::upper_bound(matches, position);
        chosen = next == matches.end() ? 0 : static_cast<std::size_t>(next - matches.begin());
    }
    found.target = targets[matches[chosen]];
    found.ordinal = static_cast<int>(chosen) + 1;
    return found;
}

} // namespace inspector
