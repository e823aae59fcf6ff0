#include "explain/call_ways.h"

#include "engine/window_search.h"
#include "explain/utf8.h"
#include "explain/window_facts.h"
#include "hostlink/window_kind.h"

namespace explain {

namespace {

// An id beyond 16 bits cannot be named in a command: it is a number that the program made up for itself. The
// last one of 16 bits is what labels get that have none.
constexpr std::int64_t kLargestId = 0xFFFE;

// The id, 0 if it tells nothing: those of MDI children are numbered in the order of their opening.
std::int64_t StableId(const SeenWindow& window) noexcept {
    const bool isHandle =
        window.Id() == static_cast<std::int32_t>(reinterpret_cast<INT_PTR>(window.Window()));
    return window.Id() < 1 || window.Id() > kLargestId || isHandle || IsMdiChild(window.Window())
               ? 0
               : window.Id();
}

Flags FlagsOf(bool anyDescendant, bool includeHidden, std::size_t occurrence) noexcept {
    return {(anyDescendant ? engine::kAnyDescendant : 0u) | (includeHidden ? engine::kIncludeHidden : 0u) |
            static_cast<std::uint32_t>(occurrence) << 16};
}

} // namespace

std::string_view StablePart(std::string_view className) noexcept {
    for (const std::string_view framework : {"Afx:", "ATL:"}) {
        if (className.starts_with(framework)) {
            return framework;
        }
    }
    if (className.starts_with("WindowsForms10.")) {
        return className.substr(0, className.find(".app."));
    }
    return className;
}

std::string WritableCaption(const SeenWindow& window) {
    const std::string& caption = window.Caption();
    return AnsiToUtf8(caption) == FactsOf(window.Window()).caption ? caption : std::string();
}

bool IsMdiChild(HWND window) noexcept {
    return (hostlink::WindowExtendedStyle(window) & WS_EX_MDICHILD) != 0;
}

Step MakeStep(std::string_view member, std::vector<Argument> arguments, std::size_t required) {
    const auto isDefault = [](const Argument& argument) {
        return argument == Argument(std::string()) || argument == Argument(std::int64_t{0}) ||
               argument == Argument(Flags{0});
    };
    while (arguments.size() > required && isDefault(arguments.back())) {
        arguments.pop_back();
    }
    return {std::string(member), std::move(arguments)};
}

Step StepFor(const Wanted& wanted, std::size_t occurrence) {
    const std::string caption = AnsiToUtf8(wanted.caption);
    const Flags flags = FlagsOf(wanted.anyDescendant, wanted.includeHidden, occurrence);
    const std::string_view name = wanted.member->name;
    switch (wanted.member->shape) {
    case Shape::None:
        return {std::string(name), {}};
    case Shape::IdFlags:
        return MakeStep(name, {wanted.id, flags}, 0);
    case Shape::CaptionIdFlags:
        return MakeStep(name, {caption, wanted.id, flags}, 0);
    case Shape::RequiredCaptionIdFlags:
        return MakeStep(name, {caption, wanted.id, flags}, 1);
    case Shape::CaptionClassIdFlags:
        return MakeStep(name, {caption, AnsiToUtf8(wanted.className), wanted.id, flags}, 1);
    }
    return {};
}

std::vector<Wanted> WaysToWant(const FindingMember& member, const SeenWindow& window, bool anyDescendant,
                               bool includeHidden) {
    const bool takesCaption = member.shape != Shape::IdFlags && member.shape != Shape::None;
    const bool takesClass = member.shape == Shape::CaptionClassIdFlags;
    const std::int64_t id = member.shape == Shape::None ? 0 : StableId(window);
    const std::string caption = takesCaption ? WritableCaption(window) : std::string();
    const std::string className = takesClass ? std::string(StablePart(window.ClassName())) : std::string();
    std::vector<Wanted> ways;
    const auto add = [&](bool isPossible, const std::string& wantedCaption, const std::string& wantedClass,
                         std::int64_t wantedId) {
        if (isPossible) {
            ways.push_back({&member, wantedCaption, wantedClass, wantedId, anyDescendant, includeHidden});
        }
    };
    const bool needsNoFlags = !anyDescendant && !includeHidden;
    add(needsNoFlags && (member.shape == Shape::IdFlags || member.shape == Shape::CaptionIdFlags), "", "", 0);
    add(id > 0, "", "", id);
    add(id > 0 && takesClass, "", className, id);
    add(!caption.empty(), caption, "", 0);
    add(!caption.empty() && id > 0, caption, "", id);
    add(!takesClass, "", "", 0);
    add(takesClass, "", className, 0);
    add(takesClass && !caption.empty(), caption, className, 0);
    add(takesClass && !caption.empty() && id > 0, caption, className, id);
    return ways;
}

} // namespace explain
