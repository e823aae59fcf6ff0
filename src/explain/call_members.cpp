#include "explain/call_members.h"

#include <algorithm>
#include <string>

#include "controlbars/ghToolbar.h"
#include "controlbars/popup_menu.h"
#include "controls/ghOpenSaveDialog.h"
#include "controls/host_control_search.h"
#include "engine/ghSharedUtils.h"
#include "engine/window_finders.h"
#include "explain/utf8.h"
#include "explain/window_call.h"
#include "hostlink/host_classes.h"
#include "hostlink/host_text.h"

namespace explain {

namespace {

constexpr ClassTest TestOf(const engine::ControlKind& kind) {
    return {kind.className, kind.classContains};
}

constexpr ClassTest kTree[] = {TestOf(engine::kTreeView)};
constexpr ClassTest kList[] = {TestOf(engine::kListView)};
constexpr ClassTest kBox[] = {TestOf(engine::kListBox)};
constexpr ClassTest kCombo[] = {TestOf(engine::kComboBox)};
constexpr ClassTest kOptions[] = {TestOf(engine::kOptionTree)};
constexpr ClassTest kSlider[] = {TestOf(engine::kTrackBar)};
constexpr ClassTest kEditField[] = {TestOf(engine::kEdit)};
constexpr ClassTest kTabs[] = {
    {"SysTabControl32"}, {"BCGTab", true}, {"BCGPTabWnd", true}, {"GXTabBeam", true}};
constexpr ClassTest kButtons[] = {{"Button", true}};
constexpr ClassTest kLabels[] = {{"Static", true}};
constexpr ClassTest kBars[] = {
    {"ToolbarWindow32", true}, {hostlink::kPlainBarClass, true}, {hostlink::kProfessionalBarClass, true}};
constexpr ClassTest kDialogs[] = {{hostlink::kDialogClass, true}};

constexpr FindingMember kFindingMembers[] = {
    {"CADTree", "CADTree", Shape::IdFlags, kTree, true},
    {"TreeCtrl", "TreeControl", Shape::IdFlags, kTree},
    {"OptionTree", "OptionTree", Shape::IdFlags, kOptions},
    {"GroupCombo", "GroupCombo", Shape::IdFlags, kCombo, true},
    {"ComboBox", "ComboBox", Shape::IdFlags, kCombo},
    {"ListBox", "ListBox", Shape::IdFlags, kBox},
    {"ListView", "ListView", Shape::IdFlags, kList},
    {"TabCtrl", "TabControl", Shape::IdFlags, kTabs},
    {"TrackBar", "TrackBar", Shape::IdFlags, kSlider},
    {"CheckBox", "CheckBox", Shape::CaptionIdFlags, kButtons},
    {"Toolbar", "ControlBar", Shape::CaptionIdFlags, kBars},
    {"RibCustomisationWidget", "RibCustomisationWidget", Shape::CaptionIdFlags, kLabels, true},
    {"GXGrid", "GXGrid", Shape::IdFlags, {}, true},
    {"CADView", "CADView", Shape::None, {}, true},
    {"Edit", "BaseWindow", Shape::IdFlags, kEditField},
    {"Button", "BaseWindow", Shape::CaptionIdFlags, kButtons},
    {"ChildDialog", "BaseWindow", Shape::RequiredCaptionIdFlags, kDialogs},
    {"ChildWindow", "BaseWindow", Shape::CaptionClassIdFlags, {}},
};

// The arguments of a step as the searches take them; what was left out has its default value.
class Arguments {
public:
    explicit Arguments(const Step& step) : m_arguments(step.arguments) {}

    std::string Text(std::size_t index) const {
        const auto* text =
            index < m_arguments.size() ? std::get_if<std::string>(&m_arguments[index]) : nullptr;
        return text == nullptr ? std::string() : hostlink::ToAnsi(ToUtf16(*text));
    }
    std::int64_t Number(std::size_t index) const {
        if (index >= m_arguments.size()) {
            return 0;
        }
        if (const auto* flags = std::get_if<explain::Flags>(&m_arguments[index])) {
            return flags->value;
        }
        const auto* number = std::get_if<std::int64_t>(&m_arguments[index]);
        return number == nullptr ? 0 : *number;
    }
    std::uint32_t Flags(std::size_t index) const { return static_cast<std::uint32_t>(Number(index)); }

private:
    const std::vector<Argument>& m_arguments;
};

struct Search {
    std::string_view member;
    HWND (*find)(HWND from, const Arguments& arguments);
};

template <const engine::ControlKind& kKind>
HWND FindKind(HWND from, const Arguments& arguments) {
    return engine::FindControl(from, kKind, arguments.Number(0), arguments.Flags(1));
}

HWND FindNamed(HWND from, const Arguments& arguments) {
    return engine::FindWindowByName(from, arguments.Text(0));
}

constexpr Search kSearches[] = {
    {"MainWindow",
     [](HWND, const Arguments& arguments) {
         return engine::FindMainWindow(arguments.Text(0), arguments.Text(1), arguments.Text(2),
                                       arguments.Flags(3));
     }},
    {"Parent", [](HWND from, const Arguments&) { return GetParent(from); }},
    {"ActiveDialog", [](HWND from, const Arguments&) { return ghSharedUtils::active_dialog(from); }},
    {"ActiveDocument", [](HWND from, const Arguments&) { return engine::FindActiveDocument(from); }},
    {"OpenSaveDialog", [](HWND from, const Arguments&) { return controls::FindOpenSaveDialog(from); }},
    {"CurrentContextMenu",
     [](HWND from, const Arguments&) { return controlbars::FindCurrentPopup(ghBaseWindow(from)); }},
    {"ChildWindow",
     [](HWND from, const Arguments& arguments) {
         return engine::FindChildWindow(from, arguments.Text(0), arguments.Text(1), arguments.Number(2),
                                        arguments.Flags(3));
     }},
    {"ChildDialog",
     [](HWND from, const Arguments& arguments) {
         return engine::FindChildDialog(from, arguments.Text(0), arguments.Number(1), arguments.Flags(2));
     }},
    {"ChildDialogByControl",
     [](HWND from, const Arguments& arguments) {
         return engine::FindChildDialogByControl(from, arguments.Text(0), arguments.Number(1), false);
     }},
    {"ChildDialogByVisibleControl",
     [](HWND from, const Arguments& arguments) {
         return engine::FindChildDialogByControl(from, arguments.Text(0), arguments.Number(1), true);
     }},
    {"TreeCtrl", FindKind<engine::kTreeView>},
    {"CADTree", FindKind<controls::kCadTree>},
    {"OptionTree", FindKind<engine::kOptionTree>},
    {"ComboBox", FindKind<engine::kComboBox>},
    {"GroupCombo", FindKind<controls::kGroupCombo>},
    {"ListBox", FindKind<engine::kListBox>},
    {"ListView", FindKind<engine::kListView>},
    {"TrackBar", FindKind<engine::kTrackBar>},
    {"Edit", FindKind<engine::kEdit>},
    {"TabCtrl",
     [](HWND from, const Arguments& arguments) {
         return engine::FindTabControl(from, arguments.Number(0), arguments.Flags(1));
     }},
    {"Button",
     [](HWND from, const Arguments& arguments) {
         return engine::FindButton(from, arguments.Text(0), arguments.Number(1), arguments.Flags(2));
     }},
    {"CheckBox",
     [](HWND from, const Arguments& arguments) {
         return engine::FindCheckBox(from, arguments.Text(0), arguments.Number(1), arguments.Flags(2));
     }},
    {"Toolbar",
     [](HWND from, const Arguments& arguments) {
         return controlbars::FindToolbar(from, arguments.Text(0), arguments.Number(1), arguments.Flags(2));
     }},
    {"RibCustomisationWidget",
     [](HWND from, const Arguments& arguments) {
         return controls::FindRibbonWidget(from, arguments.Text(0), arguments.Number(1), arguments.Flags(2));
     }},
    {"GXGrid",
     [](HWND from, const Arguments& arguments) {
         return controls::FindGrid(from, arguments.Number(0), arguments.Flags(1));
     }},
    {"CADView", [](HWND from, const Arguments&) { return controls::FindCadView(from); }},
};

} // namespace

const FindingMember* MemberForKind(std::string_view kind) noexcept {
    const auto member = std::ranges::find(kFindingMembers, kind, &FindingMember::kind);
    return member == std::end(kFindingMembers) ? nullptr : member;
}

const FindingMember* MemberByName(std::string_view name) noexcept {
    const auto member = std::ranges::find(kFindingMembers, name, &FindingMember::name);
    return member == std::end(kFindingMembers) ? nullptr : member;
}

std::string_view KindOfMember(std::string_view name) noexcept {
    if (const FindingMember* const member = MemberByName(name)) {
        return member->kind;
    }
    return name == "OpenSaveDialog" ? name : name == "CurrentContextMenu" ? "ControlBar" : "BaseWindow";
}

HWND FollowStep(HWND from, const Step& step) {
    if (step.member.ends_with("ByID") && step.member != "GetItemByID") {
        return FindNamed(from, Arguments(step));
    }
    const auto search = std::ranges::find(kSearches, std::string_view(step.member), &Search::member);
    return search == std::end(kSearches) ? nullptr : search->find(from, Arguments(step));
}

HWND Follow(const Call& call) {
    HWND window = nullptr;
    for (const Step& step : call) {
        const bool isFirst = &step == &call.front();
        // Only the entry object needs no window to start from.
        window = isFirst == (step.member == "MainWindow") ? FollowStep(window, step) : nullptr;
        if (window == nullptr) {
            return nullptr;
        }
    }
    return window;
}

} // namespace explain
