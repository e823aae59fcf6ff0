// One program, one script and the desktop between them.
#pragma once

#include "fault/driven_program.h"
#include "fault/module_section.h"
#include "fault/resources.h"
#include "fault/script_process.h"
#include "fault/steps.h"

#include <memory>
#include <string>
#include <vector>

namespace fault_tests {

class Bench {
public:
    ModuleSection& Section() { return m_section; }
    DrivenProgram& Program() { return *m_program; }
    ScriptProcess& Script() { return *m_script; }
    bool IsReady() const { return m_program && m_script && !m_program->HasEnded() && !m_script->HasEnded(); }
    void DropProgram() { m_program.reset(); }
    void DropScript() { m_script.reset(); }

    // Starts program and script where they are missing and does the step's setup. What is wrong; empty if
    // nothing is.
    std::string Prepare(const Step& step, DWORD milliseconds = 30000);
    // What a script that is prepared does otherwise than expected in the step itself; empty if it works.
    std::string Do(const Step& step, DWORD milliseconds = 30000);
    // Both.
    std::string TryStep(const Step& step, DWORD milliseconds = 30000);

    // Keeps what the desktop and the processes hold now.
    void RememberState();

    // What there is beyond that, in plain words: hooks, atoms, pressed buttons and keys, a blocked mouse,
    // kernel handles, access violations. Each is told once.
    std::vector<std::string> Leftovers(bool scriptWasEnded = false);

    // Where there was an access violation in the sample host since the last time; empty if nowhere.
    std::string NewViolation();

private:
    ModuleSection m_section;
    std::unique_ptr<DrivenProgram> m_program;
    std::unique_ptr<ScriptProcess> m_script;
    std::vector<GlobalAtom> m_atoms;
    DWORD m_programId = 0; // whose handles are counted
    std::size_t m_programHandles = 0;
    DWORD m_scriptId = 0;
    std::size_t m_scriptHandles = 0;
    DWORD m_hookedId = 0; // which has hooks of a script that was ended
    DWORD m_violatedId = 0;
    LRESULT m_violations = 0;
};

} // namespace fault_tests
