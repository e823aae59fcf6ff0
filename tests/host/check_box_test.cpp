// How often a check box is clicked to bring it to a state.
#include "controls/ghCheckBox.h"
#include "engine/synchronise.h"
#include "host/control_page.h"

namespace {

using support::Posted;
using testing::Each;
using testing::SizeIs;
namespace ids = sample_host::ids;

class CheckBoxTest : public support::ControlPage<CheckBoxTest> {
public:
    static constexpr const char* kPage = "check-boxes";
    static constexpr const char* kName = "Check boxes";

protected:
    // The clicks since the last call.
    static std::size_t Clicks(const ghCheckBox& box) {
        const auto clicks = SeenBy(box.Window(), {WM_LBUTTONDOWN});
        EXPECT_THAT(clicks, Each(Posted(WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(1, 1))));
        Host().ClearLog();
        return clicks.size();
    }
};

TEST_F(CheckBoxTest, TwoStatesTakeOneClick) {
    const ghCheckBox box(Control(ids::kCheckBox));
    box.SetChecked(false);
    EXPECT_EQ(Clicks(box), 0u);
    box.SetChecked(true);
    EXPECT_EQ(Clicks(box), 1u);
    box.SetCheckedState(BST_CHECKED);
    box.SetCheckedState(BST_INDETERMINATE); // which it does not have
    EXPECT_EQ(Clicks(box), 0u);
    EXPECT_EQ(box.CheckedState(), BST_CHECKED);
}

TEST_F(CheckBoxTest, ThreeStatesTakeUpToTwoClicks) {
    for (const unsigned id : {ids::kTriStateBox, ids::kManualTriStateBox}) {
        const ghCheckBox box(Control(id));
        for (int from = 0; from < 3; ++from) {
            for (int to = 0; to < 3; ++to) {
                SendMessageA(box.Window(), BM_SETCHECK, static_cast<WPARAM>(from), 0);
                box.SetCheckedState(to);
                EXPECT_EQ(box.CheckedState(), to) << "from " << from;
                EXPECT_EQ(Clicks(box), static_cast<std::size_t>((to - from + 3) % 3));
            }
        }
        SendMessageA(box.Window(), BM_SETCHECK, BST_INDETERMINATE, 0);
        EXPECT_FALSE(box.Checked());
        box.SetChecked(true);
        EXPECT_TRUE(box.Checked());
        EXPECT_EQ(Clicks(box), 2u);
    }
}

// The box answers before it gets the clicks: the program has other messages to work through first.
TEST_F(CheckBoxTest, UnsynchronisedClicksAreNotRepeated) {
    for (const unsigned id : {ids::kCheckBox, ids::kTriStateBox, ids::kManualTriStateBox}) {
        ghCheckBox box(Control(id));
        const int states = box.ThreeState() ? 3 : 2;
        for (int from = 0; from < states; ++from) {
            for (int to = 0; to < states; ++to) {
                SendMessageA(box.Window(), BM_SETCHECK, static_cast<WPARAM>(from), 0);
                for (int busy = 0; busy < 10; ++busy) {
                    PostMessageA(box.Window(), RegisterWindowMessageA(sample_host::kMisbehaveMessage),
                                 static_cast<WPARAM>(sample_host::Misbehaviour::Busy), 20);
                }
                box.SetSynchronization(false);
                box.SetCheckedState(to);
                box.SetSynchronization(true);
                engine::Synchronise(box);
                EXPECT_EQ(box.CheckedState(), to) << "from " << from;
                EXPECT_EQ(Clicks(box), static_cast<std::size_t>((to - from + states) % states));
            }
        }
    }
}

TEST_F(CheckBoxTest, AStateThatCannotBeReachedTakesTwoClicks) {
    const ghCheckBox stubborn(Control(ids::kStubbornBox));
    stubborn.SetChecked(true);
    EXPECT_EQ(Clicks(stubborn), 2u);
    const ghCheckBox box(Control(ids::kCheckBox));
    const int before = box.CheckedState();
    box.SetCheckedState(7);
    EXPECT_EQ(Clicks(box), 2u);
    EXPECT_EQ(box.CheckedState(), before);
}

TEST_F(CheckBoxTest, IsNotWaitedForOnceItHasGoneWithTheClick) {
    ghCheckBox box(Control(ids::kTriStateBox));
    SendMessageA(box.Window(), BM_SETCHECK, BST_UNCHECKED, 0);
    Host().Misbehave(box.Window(), sample_host::Misbehaviour::DestroyOnClick);
    box.SetEnabledTimeout(600); // ten minutes would be the second click's wait
    box.SetChecked(true);
    EXPECT_FALSE(IsWindow(box.Window()));
    EXPECT_EQ(Clicks(box), 1u);
}

} // namespace
