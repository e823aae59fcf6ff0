// The line of a script that would have worked.
#include <algorithm>

#include "explain/call_text.h"
#include "explain/failed_call.h"
#include "explain/utf8.h"
#include "explain/window_facts.h"
#include "hostlink/host_text.h"

namespace explain {

namespace {

using engine::WindowCriteria;

constexpr int kNone = -1;

// Where a member takes the criteria; kNone where it does not.
struct Places {
    std::string_view member;
    int program = kNone;
    int caption = kNone;
    int className = kNone;
    int id = kNone;
    int flags = kNone;
};

constexpr Places kPlaces[] = {{"MainWindow", 0, 1, 2, kNone, 3},
                              {"ChildWindow", kNone, 0, 1, 2, 3},
                              {"ChildDialog", kNone, 0, kNone, 1, 2},
                              {"ChildDialogByControl", kNone, 0, kNone, 1, kNone},
                              {"ChildDialogByVisibleControl", kNone, 0, kNone, 1, kNone},
                              {"Button", kNone, 0, kNone, 1, 2},
                              {"CheckBox", kNone, 0, kNone, 1, 2},
                              {"Toolbar", kNone, 0, kNone, 1, 2},
                              {"RibCustomisationWidget", kNone, 0, kNone, 1, 2}};
// All other searches, by number alone.
constexpr std::string_view kNumberMembers[] = {"TreeCtrl", "CADTree",  "OptionTree", "ComboBox",
                                               "ListBox",  "ListView", "TabCtrl",    "TrackBar",
                                               "Edit",     "GXGrid",   "GroupCombo"};

std::optional<Places> PlacesOf(std::string_view member) {
    if (const auto found = std::ranges::find(kPlaces, member, &Places::member); found != std::end(kPlaces)) {
        return *found;
    }
    if (std::ranges::find(kNumberMembers, member) != std::end(kNumberMembers)) {
        return Places{member, kNone, kNone, kNone, 0, 1};
    }
    return std::nullopt;
}

// Arguments that are left out before one that is given get their defaults.
void Put(const Places& places, std::vector<Argument>& arguments, int place, Argument argument) {
    while (arguments.size() <= static_cast<std::size_t>(place)) {
        const int next = static_cast<int>(arguments.size());
        const bool isNumber = next == places.id || next == places.flags;
        arguments.push_back(isNumber ? Argument(std::int64_t{0}) : Argument(std::string()));
    }
    arguments[static_cast<std::size_t>(place)] = std::move(argument);
}

// The criteria of a search and the arguments of the member, changed alike.
class MendedSearch {
public:
    MendedSearch(const FailedCall& call, const Places& places, const WindowCriteria& search, HWND window)
        : m_places(places), m_criteria(search), m_window(window), m_arguments(call.arguments),
          m_flags(static_cast<std::uint32_t>(NumberAt(call, static_cast<std::size_t>(places.flags)))) {}

    bool Mend(Rejection rejection, std::uint32_t matches);
    bool Finds() {
        m_criteria.result = nullptr;
        m_criteria.matchCount = 0;
        return engine::Search(m_criteria) && m_criteria.result == m_window;
    }
    // Tells the window from one that is found before it.
    bool WantId();
    bool WantOccurrence(std::uint32_t number) {
        SetFlags(0xFFFF0000, number << 16);
        return m_places.flags != kNone;
    }
    const std::vector<Argument>& Arguments() const noexcept { return m_arguments; }

private:
    bool SetFlags(std::uint32_t cleared, std::uint32_t set) {
        if (m_places.flags == kNone) {
            return false;
        }
        m_criteria.flags = (m_criteria.flags & ~cleared) | set;
        m_flags = (m_flags & ~cleared) | set;
        Put(m_places, m_arguments, m_places.flags, Flags{m_flags});
        return true;
    }
    bool WantCaption();
    bool WantClass();
    bool WantProgram();

    const Places& m_places;
    WindowCriteria m_criteria;
    HWND m_window;
    std::vector<Argument> m_arguments;
    std::uint32_t m_flags;
};

bool MendedSearch::Mend(Rejection rejection, std::uint32_t matches) {
    switch (rejection) {
    case Rejection::Occurrence:
        return WantOccurrence(matches);
    case Rejection::Disabled:
        return SetFlags(engine::kEnabledOnly, 0);
    case Rejection::NotDirectChild:
        return SetFlags(0, engine::kAnyDescendant);
    case Rejection::Owned:
        return m_criteria.parent == nullptr ? SetFlags(0, engine::kTopLevelWithParent)
                                            : SetFlags(engine::kAnyDescendant, 0);
    case Rejection::Hidden:
        return SetFlags(0, engine::kIncludeHidden);
    case Rejection::Id:
        return WantId();
    case Rejection::Caption:
        return WantCaption();
    case Rejection::Class:
        return WantClass();
    case Rejection::Program:
        return WantProgram();
    default:
        return false;
    }
}

bool MendedSearch::WantId() {
    const auto id = static_cast<std::int64_t>(GetWindowLongPtrA(m_window, GWLP_ID));
    if (m_places.id == kNone || id < 1) {
        return false;
    }
    m_criteria.flags &= ~std::uint32_t{engine::kIgnoreId};
    m_criteria.controlId = id;
    Put(m_places, m_arguments, m_places.id, id);
    return true;
}

// As the search sees it: characters that the system code page lacks are not those of the caption.
bool MendedSearch::WantCaption() {
    char caption[engine::kSearchTextSize] = "";
    const std::string whole = FactsOf(m_window).caption;
    engine::SetSearchText(caption, hostlink::ToAnsi(ToUtf16(whole)));
    if (m_places.caption == kNone || caption[0] == '\0') {
        return false;
    }
    m_criteria.flags &= ~std::uint32_t{engine::kIgnoreCaption};
    engine::SetSearchText(m_criteria.caption, caption);
    Put(m_places, m_arguments, m_places.caption, AnsiToUtf8(caption));
    return true;
}

bool MendedSearch::WantClass() {
    if (m_places.className == kNone) {
        return false;
    }
    GetClassNameA(m_window, m_criteria.className, sizeof m_criteria.className);
    Put(m_places, m_arguments, m_places.className, AnsiToUtf8(m_criteria.className));
    return true;
}

bool MendedSearch::WantProgram() {
    engine::ProgramNames programs;
    const std::string& name = programs.NameOf(m_window);
    if (m_places.program == kNone || name.empty()) {
        return false;
    }
    engine::SetSearchText(m_criteria.moduleName, name);
    Put(m_places, m_arguments, m_places.program, AnsiToUtf8(name));
    return true;
}

bool Distinguish(MendedSearch& search) {
    constexpr std::uint32_t kMostOccurrences = 5;
    if (search.Finds() || (search.WantId() && search.Finds())) {
        return true;
    }
    for (std::uint32_t number = 2; number <= kMostOccurrences && search.WantOccurrence(number); ++number) {
        if (search.Finds()) {
            return true;
        }
    }
    return false;
}

} // namespace

bool GoesByCriteria(std::string_view member) {
    return PlacesOf(member).has_value();
}

std::string TextAt(const FailedCall& call, std::size_t place) {
    const std::string* const text =
        place < call.arguments.size() ? std::get_if<std::string>(&call.arguments[place]) : nullptr;
    return text != nullptr ? *text : std::string();
}

std::int64_t NumberAt(const FailedCall& call, std::size_t place) {
    if (place >= call.arguments.size()) {
        return 0;
    }
    if (const auto* const flags = std::get_if<Flags>(&call.arguments[place])) {
        return flags->value;
    }
    const auto* const number = std::get_if<std::int64_t>(&call.arguments[place]);
    return number != nullptr ? *number : 0;
}

std::string LineWith(const FailedCall& call, std::size_t place, Argument argument) {
    Step step{call.member, call.arguments};
    if (place >= step.arguments.size()) {
        return {};
    }
    step.arguments[place] = std::move(argument);
    return LineOf(call, {step});
}

std::string LineOf(const FailedCall& call, const Call& steps) {
    Call line = call.reached;
    if (line.empty() && call.window != nullptr) {
        return {};
    }
    line.insert(line.end(), steps.begin(), steps.end());
    return CallText(line, Language::VBScript);
}

std::string MendedLine(const FailedCall& call, const RejectedWindow& rejected) {
    const auto places = PlacesOf(call.member);
    if (!places || rejected.search >= call.searches.size()) {
        return {};
    }
    const WindowCriteria& search = call.searches[rejected.search];
    MendedSearch mended(call, *places, search, rejected.window);
    const bool isMended = std::ranges::all_of(
        rejected.rejections, [&](Rejection rejection) { return mended.Mend(rejection, rejected.matches); });
    // Which of the occurrences that exist was meant is open.
    const bool isOccurrence =
        !rejected.rejections.empty() && rejected.rejections.front() == Rejection::Occurrence;
    return isMended && (isOccurrence || Distinguish(mended))
               ? LineOf(call, {Step{call.member, mended.Arguments()}})
               : std::string();
}

} // namespace explain
