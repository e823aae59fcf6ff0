#include <algorithm>

#include "controls/ghOpenSaveDialog.h"
#include "controls/host_control_search.h"
#include "explain/call_members.h"
#include "explain/window_call.h"
#include "explain/window_facts.h"
#include "hostlink/host_classes.h"
#include "hostlink/window_kind.h"

namespace explain {

namespace {

bool IsOfClass(std::string_view className, std::span<const ClassTest> tests) noexcept {
    return std::ranges::any_of(tests, [&](const ClassTest& test) {
        return test.contains ? className.find(test.name) != std::string_view::npos : className == test.name;
    });
}

bool IsOfClassFor(std::string_view className, std::string_view kind) noexcept {
    return IsOfClass(className, MemberForKind(kind)->classes);
}

} // namespace

std::string_view KindOf(HWND window) {
    return KindOf(window, Answers(window));
}

std::string_view KindOf(HWND window, bool mayAsk) {
    const hostlink::WindowClass windowClass(window);
    const std::string_view name = windowClass.Name();
    if (hostlink::IsMenuClass(windowClass)) {
        return "ControlBar";
    }
    for (const std::string_view kind :
         {"OptionTree", "ListBox", "ListView", "TabControl", "TrackBar", "ControlBar"}) {
        if (IsOfClassFor(name, kind)) {
            return kind;
        }
    }
    if (IsOfClassFor(name, "CheckBox")) {
        return engine::IsCheckBox(window) ? "CheckBox" : "BaseWindow";
    }
    // The rest is told apart by what the window answers.
    if (IsOfClassFor(name, "TreeControl")) {
        return mayAsk && controls::IsCadTree(window) ? "CADTree" : "TreeControl";
    }
    if (IsOfClassFor(name, "ComboBox")) {
        return mayAsk && controls::IsGroupCombo(window) ? "GroupCombo" : "ComboBox";
    }
    if (hostlink::IsDialogClass(windowClass)) {
        return controls::IsOpenSaveDialog(window) ? "OpenSaveDialog" : "BaseWindow";
    }
    if (!mayAsk || IsOfClass(name, MemberByName("Edit")->classes)) {
        return "BaseWindow";
    }
    if (IsOfClassFor(name, "RibCustomisationWidget")) {
        return controls::IsRibbonWidget(window) ? "RibCustomisationWidget" : "BaseWindow";
    }
    return controls::IsCadView(window) ? "CADView" : controls::IsGrid(window) ? "GXGrid" : "BaseWindow";
}

} // namespace explain
