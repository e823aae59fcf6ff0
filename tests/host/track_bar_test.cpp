// What a host sees when a track bar is moved.
#include "controls/ghTrackBar.h"
#include "host/control_page.h"

#include <commctrl.h>

namespace {

using support::Handle;
using support::Posted;
using testing::ElementsAre;
using testing::IsEmpty;
namespace ids = sample_host::ids;

class TrackBarTest : public support::ControlPage<TrackBarTest> {
public:
    static constexpr const char* kPage = "track-bars";
    static constexpr const char* kName = "Track bars";
};

TEST_F(TrackBarTest, AMoveEndsLikeADragAlongTheBarsDirection) {
    const HWND horizontal = Control(ids::kHorizontalBar);
    ghTrackBar(horizontal).SetPos(101);
    EXPECT_THAT(SeenBy(horizontal, {TBM_SETPOS}), ElementsAre(Posted(TBM_SETPOS, TRUE, 101)));
    EXPECT_THAT(SeenBy(Page(), {WM_HSCROLL, WM_VSCROLL}),
                ElementsAre(Posted(WM_HSCROLL, TB_ENDTRACK, Handle(horizontal))));
    EXPECT_EQ(ghTrackBar(horizontal).Pos(), 100); // the control's own limit

    Host().ClearLog();
    const HWND vertical = Control(ids::kVerticalBar);
    ghTrackBar(vertical).SetPos(-2147483647 - 1);
    EXPECT_THAT(SeenBy(vertical, {TBM_SETPOS}), ElementsAre(Posted(TBM_SETPOS, TRUE, INT_MIN)));
    EXPECT_THAT(SeenBy(Page(), {WM_HSCROLL, WM_VSCROLL}),
                ElementsAre(Posted(WM_VSCROLL, TB_ENDTRACK, Handle(vertical))));
    EXPECT_EQ(ghTrackBar(vertical).Pos(), ghTrackBar(vertical).Min());
}

TEST_F(TrackBarTest, ADestroyedOneIsNotNotifiedAboutNorThisThread) {
    const HWND window = Control(ids::kHorizontalBar);
    ghTrackBar bar(window);
    bar.SetEnabledTimeout(0);
    SendMessageA(window, WM_CLOSE, 0, 0);
    ASSERT_FALSE(IsWindow(window));
    bar.SetSynchronization(false);
    bar.SetPos(3);
    MSG astray;
    EXPECT_FALSE(PeekMessageA(&astray, reinterpret_cast<HWND>(-1), WM_HSCROLL, WM_VSCROLL, PM_REMOVE));
    EXPECT_EQ(bar.Pos(), 0);
    EXPECT_THAT(SeenBy(Page(), {WM_HSCROLL, WM_VSCROLL}), IsEmpty());
}

} // namespace
