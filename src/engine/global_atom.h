// Texts that cross the process boundary as global atoms.
#pragma once

#include <string>

#include <windows.h>

#include "hostlink/script_holds.h"

namespace engine {

// An atom of the global table for the lifetime of the object.
class GlobalAtom {
public:
    explicit GlobalAtom(const std::string& name) noexcept
        : m_atom(CanBeAtom(name) ? GlobalAddAtomA(name.c_str()) : ATOM{0}) {
        hostlink::NoteHeldAtom(m_atom);
    }
    ~GlobalAtom() {
        if (m_atom != 0) {
            GlobalDeleteAtom(m_atom);
            hostlink::NoteHeldAtom(0);
        }
    }
    GlobalAtom(const GlobalAtom&) = delete;
    GlobalAtom& operator=(const GlobalAtom&) = delete;

    // 0 for a name that cannot become an atom: an empty one or one of more than 255 bytes.
    ATOM Value() const noexcept { return m_atom; }

private:
    static bool CanBeAtom(const std::string& name) noexcept { return !name.empty() && name.size() <= 255; }

    ATOM m_atom;
};

} // namespace engine
