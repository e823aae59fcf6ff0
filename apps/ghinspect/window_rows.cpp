#include "ghinspect/window_rows.h"

#include <algorithm>

#include "explain/utf8.h"

namespace inspector {

namespace {

constexpr std::size_t kLongestCaption = 80;

bool IsShown(HWND window) {
    return IsWindowVisible(window) != FALSE;
}

Label LabelOf(const explain::ProgramFacts& program, const std::vector<explain::ProgramFacts>& programs) {
    Label label;
    label.text = program.name.empty() ? L"(unknown)" : explain::ToUtf16(program.name);
    const auto hasSameName = [&](const explain::ProgramFacts& other) {
        return other.processId != program.processId && other.name == program.name;
    };
    if (program.name.empty() || std::ranges::any_of(programs, hasSameName)) {
        label.text += L" (" + std::to_wstring(program.processId) + L")";
    }
    const std::wstring note = NoteOn(program);
    label.text += (note.empty() ? L"" : L" - ") + note;
    label.isVisible = std::ranges::any_of(program.windows, IsShown);
    label.hasChildren = true;
    return label;
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

Label LabelOf(HWND window) {
    const explain::WindowFacts facts = explain::FactsOf(window);
    Label label;
    if (facts.window == nullptr) {
        label.text = L"(gone)";
        return label;
    }
    label.text = NameOf(facts);
    if (!facts.isVisible) {
        label.text += L" (hidden)";
    } else if (!facts.isEnabled) {
        label.text += L" (disabled)";
    }
    label.isVisible = facts.isVisible;
    label.hasChildren = GetWindow(window, GW_CHILD) != nullptr;
    return label;
}

std::vector<HWND> WindowsOf(const explain::ProgramFacts& program, bool withHidden) {
    std::vector<HWND> windows = program.windows;
    if (!withHidden) {
        std::erase_if(windows, [](HWND window) { return !IsShown(window); });
    }
    return windows;
}

Snapshot TakeSnapshot(const std::vector<Target>& open, bool withHidden) {
    std::vector<explain::ProgramFacts> programs = explain::Programs();
    std::erase_if(programs, [&](const explain::ProgramFacts& program) {
        return program.processId == GetCurrentProcessId() ||
               (!withHidden && std::ranges::none_of(program.windows, IsShown));
    });
    Snapshot snapshot;
    for (const explain::ProgramFacts& program : programs) {
        snapshot.programs.push_back({program, LabelOf(program, programs)});
    }
    for (const Target& target : open) {
        if (target.window != nullptr) {
            snapshot.branches.push_back({target, explain::ChildrenOf(target.window)});
            continue;
        }
        const auto program = std::ranges::find(programs, target.processId, &explain::ProgramFacts::processId);
        if (program != programs.end()) {
            snapshot.branches.push_back({target, WindowsOf(*program, withHidden)});
        }
    }
    return snapshot;
}

} // namespace inspector
