// What is known of the selected window or program, as rows of a name and a value.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "ghinspect/table.h"
#include "ghinspect/window_rows.h"

namespace inspector {

class FactsPage {
public:
    void Create(HWND parent, int id);
    const Table& List() const noexcept { return m_table; }

    // `kind`: the kind of control as the engine sees it, empty while it is not known. `program`: may be null.
    // False when the window is gone; what was known of it stays.
    bool ShowWindowFacts(HWND window, const std::wstring& kind, const explain::ProgramFacts* program);
    void ShowProgram(const explain::ProgramFacts& program);
    // The window or program that the selected row names, if it names one.
    std::optional<Target> LinkOfSelected() const;

private:
    struct Fact {
        std::wstring name;
        std::wstring value;
        std::optional<Target> link;
    };
    void Show(std::vector<Fact> facts);

    Table m_table;
    std::vector<Fact> m_facts;
};

} // namespace inspector
