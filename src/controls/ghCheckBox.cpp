#include "controls/ghCheckBox.h"

#include <cstdint>

#include "hostlink/window_kind.h"
#include "input/mouse.h"

namespace {

// Two clicks reach every state of a box. Without synchronisation a click is still on its way when the box is
// asked again, so they are counted out beforehand, in the order in which boxes take on their states.
std::int64_t MostClicks(const ghCheckBox& box, int state) {
    if (box.Synchronization()) {
        return 2;
    }
    const int states = box.ThreeState() ? 3 : 2;
    return (std::int64_t{state} - box.CheckedState() + states) % states;
}

// A click may end in the box's own end, as when a page is built anew.
void ClickUntil(const ghCheckBox& box, int state) {
    const auto isWanting = [&] { return IsWindow(box.Window()) && box.CheckedState() != state; };
    const std::int64_t mostClicks = MostClicks(box, state);
    for (int clicks = 0; clicks < mostClicks && isWanting(); ++clicks) {
        input::Click(box, input::kLeftButton, 1, 1, 0);
    }
}

} // namespace

bool ghCheckBox::ThreeState() const noexcept {
    const DWORD type = hostlink::WindowStyle(Window()) & BS_TYPEMASK;
    return type == BS_3STATE || type == BS_AUTO3STATE;
}

int ghCheckBox::CheckedState() const noexcept {
    return static_cast<int>(SendMessageA(Window(), BM_GETCHECK, 0, 0));
}

void ghCheckBox::SetCheckedState(int state) const {
    if (state == BST_INDETERMINATE && !ThreeState()) {
        return;
    }
    ClickUntil(*this, state);
}

bool ghCheckBox::Checked() const noexcept {
    return CheckedState() == BST_CHECKED;
}

void ghCheckBox::SetChecked(bool checked) const {
    ClickUntil(*this, checked ? BST_CHECKED : BST_UNCHECKED);
}
