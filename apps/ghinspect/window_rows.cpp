#include "ghinspect/window_rows.h"

#include <algorithm>

#include "explain/utf8.h"

namespace inspector {

namespace {

constexpr std::size_t kLongestCaption = 80;

bool IsShown(HWND window) {
    return IsWindowVisible(window) != FALSE;
}

Row RowOf(const explain::WindowFacts& facts) {
    Row row;
    row.target = {facts.processId, facts.window};
    row.label = NameOf(facts);
    row.isVisible = facts.isVisible;
    row.hasChildren = GetWindow(facts.window, GW_CHILD) != nullptr;
    if (!facts.isVisible) {
        row.label += L" (hidden)";
    } else if (!facts.isEnabled) {
        row.label += L" (disabled)";
    }
    return row;
}

std::vector<Row> ProgramRows(const std::vector<explain::ProgramFacts>& programs) {
    std::vector<Row> rows;
    for (const explain::ProgramFacts& program : programs) {
        Row row;
        row.target.processId = program.processId;
        row.label = program.name.empty() ? L"(unknown)" : explain::ToUtf16(program.name);
        const auto hasSameName = [&](const explain::ProgramFacts& other) {
            return other.processId != program.processId && other.name == program.name;
        };
        if (program.name.empty() || std::ranges::any_of(programs, hasSameName)) {
            row.label += L" (" + std::to_wstring(program.processId) + L")";
        }
        const std::wstring note = NoteOn(program);
        row.label += (note.empty() ? L"" : L" - ") + note;
        row.isVisible = std::ranges::any_of(program.windows, IsShown);
        row.hasChildren = true;
        rows.push_back(std::move(row));
    }
    return rows;
}

} // namespace

std::wstring OneLine(std::wstring text, std::size_t longest) {
    std::ranges::replace_if(
        text, [](wchar_t character) { return character < L' ' || character == 0x7F; }, L' ');
    if (text.size() > longest) {
        const bool isPair = text[longest - 1] >= 0xD800 && text[longest - 1] < 0xDC00;
        text.resize(longest - (isPair ? 1 : 0));
        text += L"\u2026";
    }
    return text;
}

std::wstring NameOf(const explain::WindowFacts& facts) {
    std::wstring name = explain::ToUtf16(facts.className);
    if (!facts.caption.empty()) {
        name += L" '" + OneLine(explain::ToUtf16(facts.caption), kLongestCaption) + L"'";
    }
    if (facts.controlId != 0) {
        name += L" id " + std::to_wstring(facts.controlId);
    }
    return name;
}

std::wstring NoteOn(const explain::ProgramFacts& program) {
    if (program.isHung) {
        return L"does not answer";
    }
    if (program.isElevated) {
        return L"runs as administrator";
    }
    return program.is32Bit ? L"32-bit" : L"";
}

std::vector<Row> RowsOf(const std::vector<HWND>& windows) {
    std::vector<Row> rows;
    rows.reserve(windows.size());
    for (const HWND window : windows) {
        const explain::WindowFacts facts = explain::FactsOf(window);
        if (facts.window != nullptr) {
            rows.push_back(RowOf(facts));
        }
    }
    return rows;
}

std::vector<Row> RowsBelow(HWND window) {
    return RowsOf(explain::ChildrenOf(window));
}

std::vector<Row> RowsOf(const explain::ProgramFacts& program, bool withHidden) {
    std::vector<HWND> windows = program.windows;
    if (!withHidden) {
        std::erase_if(windows, [](HWND window) { return !IsShown(window); });
    }
    return RowsOf(windows);
}

Snapshot TakeSnapshot(const std::vector<Target>& open, bool withHidden) {
    Snapshot snapshot;
    snapshot.programs = explain::Programs();
    std::erase_if(snapshot.programs, [&](const explain::ProgramFacts& program) {
        return program.processId == GetCurrentProcessId() ||
               (!withHidden && std::ranges::none_of(program.windows, IsShown));
    });
    snapshot.programRows = ProgramRows(snapshot.programs);
    for (const Target& target : open) {
        if (target.window != nullptr) {
            snapshot.branches.push_back({target, RowsBelow(target.window)});
            continue;
        }
        const auto program =
            std::ranges::find(snapshot.programs, target.processId, &explain::ProgramFacts::processId);
        if (program != snapshot.programs.end()) {
            snapshot.branches.push_back({target, RowsOf(*program, withHidden)});
        }
    }
    return snapshot;
}

} // namespace inspector
