// Windows as a search sees them, in the order in which it does, read once so that many searches can be
// thought through without asking the system again.
#pragma once

#include <cstddef>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include <windows.h>

#include "engine/program_name.h"
#include "explain/call_members.h"

namespace explain {

class SeenWindow {
public:
    explicit SeenWindow(HWND window);

    HWND Window() const noexcept { return m_window; }
    HWND Parent() const noexcept { return m_parent; } // of a popup its owner
    bool IsVisible() const noexcept { return m_isVisible; }
    std::int64_t Id() const noexcept { return m_id; }
    // In the system code page, cut as a search cuts them.
    const std::string& ClassName() const noexcept { return m_className; }
    const std::string& Caption() const;

private:
    HWND m_window;
    HWND m_parent;
    std::int64_t m_id;
    bool m_isVisible;
    std::string m_className;
    mutable std::optional<std::string> m_caption; // read when it is asked for
};

// What a member looks for below a window. Texts are in the system code page.
struct Wanted {
    const FindingMember* member;
    std::string caption;
    std::string className; // of ChildWindow
    std::int64_t id = 0;
    bool anyDescendant = false;
    bool includeHidden = false;
};

// Which of the windows that a search could answer with one is.
struct Standing {
    std::size_t position = 0; // counted from 1; 0: not among them
    std::size_t count = 0;
};

// The descendants of a top-level window.
class SeenDescendants {
public:
    explicit SeenDescendants(HWND topLevel);

    const SeenWindow* Find(HWND window) const;
    // The windows above it, from its parent to the top-level window; empty for one that is not known.
    std::vector<HWND> Ancestors(HWND window) const;
    // `isOfKind` is asked only what the other tests leave.
    template <class IsOfKind>
    Standing StandingOf(HWND window, HWND from, const Wanted& wanted, IsOfKind&& isOfKind) const {
        const std::span<const ClassTest> any(kAnyClass);
        const auto& classes = wanted.member->classes.empty() ? any : wanted.member->classes;
        for (const ClassTest& test : classes) {
            Standing standing;
            for (const SeenWindow& seen : m_windows) {
                if (Matches(seen, from, wanted, test) && isOfKind(seen.Window())) {
                    ++standing.count;
                    standing.position = seen.Window() == window ? standing.count : standing.position;
                }
            }
            if (standing.count > 0) {
                return standing;
            }
        }
        return {};
    }

private:
    static constexpr ClassTest kAnyClass[] = {{"", true}};

    bool IsBelow(const SeenWindow& seen, HWND from, bool atAnyDepth) const;
    bool Matches(const SeenWindow& seen, HWND from, const Wanted& wanted, const ClassTest& test) const;

    HWND m_topLevel;
    std::vector<SeenWindow> m_windows;
    std::map<HWND, std::size_t> m_indices;
};

// The top-level windows, from the front to the back.
class SeenDesktop {
public:
    SeenDesktop();

    const std::vector<SeenWindow>& Windows() const noexcept { return m_windows; }
    const SeenWindow* Find(HWND window) const;
    // The file name of the window's program, in the system code page.
    std::string ProgramOf(HWND window) { return m_programs.NameOf(window); }
    // Of `wanted`, one of these windows, in the search for a main window that lets it pass.
    Standing StandingOf(const SeenWindow& wanted, const std::string& program, const std::string& caption,
                        const std::string& className);

private:
    std::vector<SeenWindow> m_windows;
    engine::ProgramNames m_programs;
};

} // namespace explain
