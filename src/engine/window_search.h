// The search over the windows of the desktop that every navigation ends in.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include <windows.h>

#include "engine/program_name.h"
#include "engine/search_text.h"

namespace engine {

// Flag bits, the low half of WindowCriteria::flags; scripts pass them through a_flags.
enum SearchFlag : std::uint32_t {
    kCaptionContains = 0x0001, // the window text contains the caption instead of being equal
    kClassContains = 0x0002,   // the class name contains the wanted one instead of being equal
    kIgnoreCaption = 0x0004,
    kIgnoreClass = 0x0008,
    kIgnoreId = 0x0010,
    kIgnoreStyle = 0x0020,
    kAnyDescendant = 0x0040, // below the parent at any depth instead of a direct child
    kIncludeHidden = 0x0080,
    kEnabledOnly = 0x0100,
    kTopLevelWithParent = 0x0200, // without a parent: windows that have a parent or owner match too
};

// The styles that a style test compares.
inline constexpr std::uint64_t kComparedStyles = 0xC0CC0000;

// Which window is wanted.
struct WindowCriteria {
    // Without a parent: a case-insensitive prefix of the file name of the window's program; empty matches
    // every program.
    char moduleName[kSearchTextSize] = "";
    char caption[kSearchTextSize] = "";
    char className[kSearchTextSize] = "";
    std::int64_t controlId = 0;
    std::uint64_t style = 0;
    // High half: which match is wanted, counted from 1; 0 means the first.
    std::uint32_t flags = 0;
    HWND parent = nullptr; // null: among top-level windows
    HWND result = nullptr;
    std::uint32_t matchCount = 0;
    bool (*customTest)(HWND) = nullptr;
    std::string_view customKind; // what the custom test tells, in words: "check box"
};

// Fills a text field of the criteria, in the system code page.
void SetSearchText(char (&field)[kSearchTextSize], std::string_view text) noexcept;

// Tests a text by containment; an empty one is not tested at all.
void WantCaption(WindowCriteria& criteria, std::string_view caption) noexcept;
void WantClass(WindowCriteria& criteria, std::string_view className) noexcept;
// An id below 1 is not tested.
void WantId(WindowCriteria& criteria, std::int64_t id) noexcept;

// Whether the window's place satisfies the criteria's parent, descendant and hidden flags; the start of
// every test, also of searches with a callback of their own.
bool HasWantedParent(const WindowCriteria& criteria, HWND window) noexcept;
bool HasWantedVisibility(const WindowCriteria& criteria, HWND window) noexcept;

// What a window must pass, in the order of a search: first what one call to the system tells, then what takes
// one for each window above or a look at the program, then what a window of this process is asked for, last
// what any program is asked for.
enum class WindowTest { Id, Class, Style, Enabled, Place, Visibility, Module, Caption, Custom };
inline constexpr WindowTest kWindowTests[] = {
    WindowTest::Id,         WindowTest::Class,  WindowTest::Style,   WindowTest::Enabled, WindowTest::Place,
    WindowTest::Visibility, WindowTest::Module, WindowTest::Caption, WindowTest::Custom};

// The tests of one search, each for itself. What the criteria ignore is passed without a question.
class WindowTests {
public:
    explicit WindowTests(const WindowCriteria& criteria) noexcept : m_criteria(criteria) {}

    // Only the custom test asks the window's program, and waits as long as it takes.
    bool Passes(WindowTest test, HWND window);

    // As ProgramNames.
    const std::string& ProgramOf(HWND window) { return m_programs.NameOf(window); }

private:
    bool Has(SearchFlag flag) const noexcept { return (m_criteria.flags & flag) != 0; }
    bool HasWantedModule(HWND window);
    bool HasWantedCaption(HWND window) const noexcept;
    bool HasWantedClass(HWND window) const noexcept;

    const WindowCriteria& m_criteria;
    ProgramNames m_programs;
};

// Whether two searches look for the same, whatever each has found.
bool IsSameSearch(const WindowCriteria& one, const WindowCriteria& other) noexcept;

// Looks through the descendants of the parent, then, if there was no match, through the top-level windows
// (an owned popup counts as a child of its owner). True when a window was found: `result`.
bool Search(WindowCriteria& criteria);

} // namespace engine
