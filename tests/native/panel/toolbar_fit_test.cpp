#include "panel/toolbar_fit.h"

#include <gtest/gtest.h>

namespace tessel {
namespace {

// Back, forward, up, refresh, separator, cut, copy, paste: 24 pixels a button, 8 a separator.
ToolbarWidths Bars() {
    ToolbarWidths w;
    w.main = {24, 24, 24, 24, 8, 24, 24, 24};
    w.separators = {false, false, false, false, true, false, false, false};
    w.extra = 48;
    w.modes = 48;
    w.chevron = 16;
    return w;
}

}  // namespace

TEST(ToolbarFit, EverythingShowsWhenTheTextLeavesRoom) {
    const ToolbarFit fit = FitToolbars(Bars(), 1000, 200);
    EXPECT_EQ(fit.mainShown, 8);
    EXPECT_TRUE(fit.extraShown && fit.modesShown);
    EXPECT_FALSE(fit.chevron);
    EXPECT_EQ(fit.toolbarsWidth, 176 + 96);
}

TEST(ToolbarFit, TheModeBarThenTheExtraBarThenTheLastButtonsGoBehindTheChevron) {
    ToolbarFit fit = FitToolbars(Bars(), 200 + 176 + 48 + 16, 200);
    EXPECT_TRUE(fit.chevron);
    EXPECT_FALSE(fit.modesShown);
    EXPECT_TRUE(fit.extraShown);
    EXPECT_EQ(fit.mainShown, 8);

    fit = FitToolbars(Bars(), 200 + 176 + 16, 200);
    EXPECT_FALSE(fit.extraShown);
    EXPECT_EQ(fit.mainShown, 8);
    EXPECT_EQ(fit.toolbarsWidth, 192);

    fit = FitToolbars(Bars(), 200 + 110 + 16, 200);  // room for four buttons and the separator
    EXPECT_EQ(fit.mainShown, 4) << "no separator at the end";
    EXPECT_EQ(fit.toolbarsWidth, 96 + 16);
}

TEST(ToolbarFit, TheFirstButtonsStayAndTheTextGivesWayOnlyToThem) {
    const ToolbarFit fit = FitToolbars(Bars(), 100, 200);
    EXPECT_EQ(fit.mainShown, 3);
    EXPECT_EQ(fit.toolbarsWidth, 72 + 16);
}

TEST(ToolbarFit, HiddenButtonsNeitherTakeRoomNorCallForTheChevron) {
    ToolbarWidths w = Bars();
    w.extra = w.modes = 0;
    w.main = {24, 24, 24, 24, 8, 0, 0, 0};  // the user hid the last three
    ToolbarFit fit = FitToolbars(w, 200 + 104, 200);
    EXPECT_EQ(fit.mainShown, 8);
    EXPECT_FALSE(fit.chevron);
    fit = FitToolbars(w, 200 + 100, 200);
    EXPECT_EQ(fit.mainShown, 3);
    EXPECT_TRUE(fit.chevron) << "refresh is behind it";
}

}  // namespace tessel
