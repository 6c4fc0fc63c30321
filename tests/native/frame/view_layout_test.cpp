#include "frame/view_layout.h"

#include <gtest/gtest.h>

namespace tessel {
namespace {

int Width(const RectI& r) { return r.right - r.left; }
int Height(const RectI& r) { return r.bottom - r.top; }
bool Empty(const RectI& r) { return Width(r) <= 0 || Height(r) <= 0; }

// What each layout shows, as the table of the layouts says.
TEST(ViewLayout, EveryLayoutShowsItsViewsInItsShape) {
    const RectI area{0, 0, 1000, 800};
    for (int layout = 0; layout < kLayoutCount; ++layout) {
        ViewLayout state;
        ApplyLayout(state, layout);
        ResetPositionsForButton(state, layout);
        const Arrangement a = Arrange(state, area, 4);
        for (int v = 0; v < 4; ++v) EXPECT_EQ(!Empty(a.views[v]), state.visible[v]) << "layout " << layout << " view " << v;
    }
    auto arranged = [&](int layout) {
        ViewLayout state;
        ApplyLayout(state, layout);
        ResetPositionsForButton(state, layout);
        return Arrange(state, area, 4);
    };
    Arrangement a = arranged(0);  // 1 2 above, 3 4 below
    EXPECT_LT(a.views[0].right, a.views[1].left);
    EXPECT_LT(a.views[0].bottom, a.views[2].top);
    a = arranged(1);  // 1 across the top
    EXPECT_EQ(Width(a.views[0]), 1000);
    EXPECT_TRUE(Empty(a.views[1]));
    a = arranged(5);  // four columns of one height
    for (int v = 0; v < 3; ++v) EXPECT_LT(a.views[v].right, a.views[v + 1].left);
    EXPECT_EQ(Height(a.views[3]), 800);
    a = arranged(6);  // four rows
    for (int v = 0; v < 3; ++v) EXPECT_LT(a.views[v].bottom, a.views[v + 1].top);
    a = arranged(7);  // three nearly equal columns: SP0 at 6600, SP1 at 5000
    EXPECT_NEAR(Width(a.views[0]), Width(a.views[1]), 4);
    EXPECT_NEAR(Width(a.views[1]), Width(a.views[2]), 12);
    EXPECT_TRUE(Empty(a.views[3]));
    a = arranged(9);  // 1 on the left at full height, 3 above 4 on the right
    EXPECT_EQ(Height(a.views[0]), 800);
    EXPECT_LT(a.views[2].bottom, a.views[3].top);
    EXPECT_LT(a.views[0].right, a.views[2].left);
    a = arranged(10);  // 1 above 2 on the left, 3 on the right at full height
    EXPECT_LT(a.views[0].bottom, a.views[1].top);
    EXPECT_EQ(Height(a.views[2]), 800);
    a = arranged(11);
    EXPECT_EQ(a.views[0], area);
    EXPECT_TRUE(Empty(a.bars[0]) && Empty(a.bars[1]) && Empty(a.bars[2]));
}

TEST(ViewLayout, ButtonsResetPositionsCommandsDoNot) {
    ViewLayout state;
    for (SplitterState& s : state.splitters) s.position = 1234;
    ApplyLayout(state, 7);  // as sent from a saved file: positions stay
    EXPECT_EQ(state.splitters[0].position, 1234);
    ResetPositionsForButton(state, 7);  // as clicked
    EXPECT_EQ(state.splitters[0].position, 6600);
    EXPECT_EQ(state.splitters[1].position, 5000);
    EXPECT_EQ(state.splitters[2].position, 1234);
    ResetPositionsForButton(state, 11);
    EXPECT_EQ(state.splitters[0].position, 6600) << "the single view resets nothing";
    ResetPositionsForButton(state, 3);
    EXPECT_EQ(state.splitters[0].position, 6600);
    EXPECT_EQ(state.splitters[2].position, 5000);
    ApplyLayout(state, 12);
    ApplyLayout(state, -1);
    EXPECT_EQ(state.layout, 7) << "numbers outside 0..11 change nothing";
    EXPECT_TRUE(IsLayoutCommand(32761) && IsLayoutCommand(32772));
    EXPECT_FALSE(IsLayoutCommand(32760) || IsLayoutCommand(32773));
}

TEST(ViewLayout, OrientationChangeReplacesTheBarOtherwiseThePixelStays) {
    ViewLayout state;
    ApplyLayout(state, 0);
    const RectI area{0, 0, 1000, 800};
    Arrange(state, area, 4);
    MoveBar(state, 1, 300);  // the user drags the bar between 1 and 2
    EXPECT_EQ(state.splitters[1].position, PositionFromPixel(300, 1000));
    ApplyLayout(state, 2);  // SP1 stays vertical: keeps its pixel
    Arrangement a = Arrange(state, area, 4);
    EXPECT_EQ(a.views[0].right, 300);
    ApplyLayout(state, 10);  // SP1 turns horizontal: placed from its ten-thousandths
    a = Arrange(state, area, 4);
    EXPECT_EQ(a.bars[1].top, PixelFromPosition(3000, Height(a.views[0]) + Height(a.views[1]) + 4));

    ApplyLayout(state, 0);  // 0 -> 11 -> 0: all four back
    ApplyLayout(state, 11);
    ApplyLayout(state, 0);
    a = Arrange(state, area, 4);
    for (const RectI& view : a.views) EXPECT_FALSE(Empty(view));
}

TEST(ViewLayout, PositionArithmeticAndRanges) {
    EXPECT_EQ(PixelFromPosition(5000, 801), 401) << "rounded";
    EXPECT_EQ(PixelFromPosition(10000, 1234), 1234);
    EXPECT_EQ(PositionFromPixel(401, 801), 5006);
    EXPECT_EQ(PositionFromPixel(0, 800), 1) << "at least 1";
    EXPECT_EQ(PositionFromPixel(5000, 800), 10000);
    EXPECT_EQ(PositionFromPixel(10, 0), 5000) << "no length: the default";
    EXPECT_EQ(ValidPosition(0, 2000), 2000);
    EXPECT_EQ(ValidPosition(10001, 2000), 2000);
    EXPECT_EQ(ValidPosition(1, 2000), 1);
    ViewLayout tiny;
    const Arrangement a = Arrange(tiny, {0, 0, 3, 3}, 4);  // smaller than a bar: nothing negative
    for (const RectI& view : a.views) EXPECT_GE(Width(view), 0);
}

}  // namespace
}  // namespace tessel

#include "frame/magnifier_area.h"

namespace tessel {
namespace {

TEST(Magnifier, TheAreaFollowsTheMouseButStaysOnTheScreen) {
    const Area screen{0, 0, 1280, 800};
    Area area = MagnifiedArea(640, 400, 300, 200, 4, screen);
    EXPECT_EQ(area.width, 75);
    EXPECT_EQ(area.height, 50);
    EXPECT_EQ(area.left, 640 - 37);
    EXPECT_EQ(area.top, 400 - 25);
    area = MagnifiedArea(2, 799, 300, 200, 4, screen);  // a corner: the area moves in
    EXPECT_EQ(area.left, 0);
    EXPECT_EQ(area.top, 750);
    area = MagnifiedArea(-500, -500, 300, 200, 4, Area{-1280, -100, 2560, 900});  // a screen left of the first
    EXPECT_EQ(area.left, -537);
    EXPECT_EQ(area.top, -100);
    area = MagnifiedArea(10, 10, 5000, 5000, 2, Area{0, 0, 640, 480});  // a window larger than the screen
    EXPECT_EQ(area.width, 640);
    EXPECT_EQ(area.left, 0);
    EXPECT_EQ(MagnifiedArea(0, 0, 300, 200, 99, screen).width, 300 / kMaxZoom);
    EXPECT_EQ(ClampZoom(1), kMinZoom);
    EXPECT_EQ(ClampZoom(-7), kMinZoom);
    EXPECT_EQ(ClampZoom(5), 5);
}

}  // namespace
}  // namespace tessel
