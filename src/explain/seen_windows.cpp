#include "explain/seen_windows.h"

#include <algorithm>
#include <cstring>

#include "engine/enumerate.h"
#include "engine/search_text.h"
#include "hostlink/window_class.h"

namespace explain {

namespace {

// More levels than the system allows.
constexpr std::size_t kMostLevels = 256;

bool Has(const std::string& text, const std::string& part) noexcept {
    return engine::HasWantedText(text.c_str(), part.c_str(), true);
}

} // namespace

SeenWindow::SeenWindow(HWND window)
    : m_window(window), m_parent(GetParent(window)), m_id(GetWindowLongPtrA(window, GWLP_ID)),
      m_isVisible(IsWindowVisible(window) != FALSE), m_className(hostlink::WindowClass(window).Name()) {}

const std::string& SeenWindow::Caption() const {
    if (!m_caption) {
        char text[engine::kSearchTextSize] = "";
        GetWindowTextA(m_window, text, sizeof text);
        m_caption = text;
    }
    return *m_caption;
}

SeenDescendants::SeenDescendants(HWND topLevel) : m_topLevel(topLevel) {
    if (topLevel == nullptr) {
        return;
    }
    engine::EnumerateWindows(topLevel, [&](HWND window) {
        m_indices.emplace(window, m_windows.size());
        m_windows.emplace_back(window);
        return true;
    });
}

const SeenWindow* SeenDescendants::Find(HWND window) const {
    const auto found = m_indices.find(window);
    return found == m_indices.end() ? nullptr : &m_windows[found->second];
}

std::vector<HWND> SeenDescendants::Ancestors(HWND window) const {
    std::vector<HWND> ancestors;
    for (const SeenWindow* seen = Find(window); seen != nullptr && ancestors.size() < kMostLevels;
         seen = Find(seen->Parent())) {
        ancestors.push_back(seen->Parent());
    }
    return ancestors;
}

bool SeenDescendants::IsBelow(const SeenWindow& seen, HWND from, bool atAnyDepth) const {
    if (!atAnyDepth || from == m_topLevel) {
        return atAnyDepth || seen.Parent() == from;
    }
    const SeenWindow* current = &seen;
    for (std::size_t level = 0; current != nullptr && level < kMostLevels; ++level) {
        if (current->Parent() == from) {
            return true;
        }
        current = Find(current->Parent());
    }
    return false;
}

// As a search does, the cheapest test first.
bool SeenDescendants::Matches(const SeenWindow& seen, HWND from, const Wanted& wanted,
                              const ClassTest& test) const {
    return (wanted.id < 1 || seen.Id() == wanted.id) && (wanted.includeHidden || seen.IsVisible()) &&
           engine::HasWantedText(seen.ClassName().c_str(), test.name.data(), test.contains) &&
           Has(seen.ClassName(), wanted.className) && IsBelow(seen, from, wanted.anyDescendant) &&
           (wanted.caption.empty() || Has(seen.Caption(), wanted.caption));
}

SeenDesktop::SeenDesktop() {
    engine::EnumerateWindows(nullptr, [&](HWND window) {
        m_windows.emplace_back(window);
        return true;
    });
}

const SeenWindow* SeenDesktop::Find(HWND window) const {
    const auto found = std::ranges::find(m_windows, window, &SeenWindow::Window);
    return found == m_windows.end() ? nullptr : &*found;
}

Standing SeenDesktop::StandingOf(const SeenWindow& wanted, const std::string& program,
                                 const std::string& caption, const std::string& className) {
    Standing standing;
    for (const SeenWindow& seen : m_windows) {
        const bool mayPass = (wanted.Parent() != nullptr || seen.Parent() == nullptr) &&
                             (!wanted.IsVisible() || seen.IsVisible());
        if (mayPass && _strnicmp(program.c_str(), ProgramOf(seen.Window()).c_str(), program.size()) == 0 &&
            Has(seen.ClassName(), className) && (caption.empty() || Has(seen.Caption(), caption))) {
            ++standing.count;
            standing.position = &seen == &wanted ? standing.count : standing.position;
        }
    }
    return standing;
}

} // namespace explain
