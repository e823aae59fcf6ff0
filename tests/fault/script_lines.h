// A small language for the tables of this folder. Its calls are a script's: by name, through IDispatch.
#pragma once

#include "com/com_pointer.h"
#include "com/late_bound.h"

#include <functional>
#include <map>
#include <string>
#include <string_view>

namespace fault_tests {

// Lines such as
//   tree = page.TreeCtrl(1140); item = tree.ItemByPath('Box|Hole 1'); item.Selected = True; item.Text
// Texts are ASCII. A name on the left keeps an object, a member on the left is set.
class ScriptLines {
public:
    // Called with the member's name before a call and with an empty one after it.
    explicit ScriptLines(std::function<void(const std::string&)> watch) : m_watch(std::move(watch)) {}

    void Define(const std::string& name, support::ComPointer<IDispatch> object);
    void Forget() { m_variables.clear(); }

    // What the last line gave: a text, a number, "True", "False", "Nothing", or "" where there is no result.
    // The first member that fails ends the lines: "Member: 80004005". So does a member of "Nothing".
    std::string Run(std::string_view lines);

private:
    struct Stop {
        std::string reason;
    };
    void RunLine(std::string_view line);
    support::Variant Call(IDispatch& object, const std::string& member,
                          std::vector<support::Argument> arguments, WORD flags);

    std::function<void(const std::string&)> m_watch;
    std::map<std::string, support::ComPointer<IDispatch>> m_variables;
    std::string m_result;
};

} // namespace fault_tests
