// The shared section of the built module, as any process that loads the module has it.
#pragma once

#include "com/built_module.h"
#include "hostlink/shared_section.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include <windows.h>

namespace fault_tests {

class ModuleSection {
public:
    // Throws std::runtime_error when the module has no such section.
    ModuleSection();

    hostlink::SharedSection& Data() const { return *m_data; }
    std::span<std::byte> Bytes() const {
        return {reinterpret_cast<std::byte*>(m_data), sizeof(hostlink::SharedSection)};
    }
    // The other shared section, of what crosses beside the contract: seals and walks.
    std::span<std::byte> Own() const { return m_own; }
    // From its end to the end of its page: nobody's, and shared all the same.
    std::span<std::byte> Beyond() const;

    // The names of the hook handles that are not 0. Those of the locale and of the mouse block stay by
    // design.
    std::vector<std::string> HooksRecorded() const;

    // What a hook of the host link that is still at work in the thread of that window changes; empty if there
    // is none: it reacts to a message that nobody waits for.
    std::string HookAtWork(HWND window) const;

private:
    support::BuiltModule m_module;
    hostlink::SharedSection* m_data;
    std::span<std::byte> m_own;
};

} // namespace fault_tests
