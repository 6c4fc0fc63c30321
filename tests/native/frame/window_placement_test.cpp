#include "frame/window_placement.h"

#include <gtest/gtest.h>

namespace tessel {

TEST(WindowPlacement, APlainStartComesBackMaximizedButALaunchersWishWins) {
    EXPECT_EQ(StartShowCommand(1, true), 3);    // normal
    EXPECT_EQ(StartShowCommand(10, true), 3);   // default
    EXPECT_EQ(StartShowCommand(1, false), 1);
    EXPECT_EQ(StartShowCommand(7, true), 7);    // minimised, not active
    EXPECT_EQ(StartShowCommand(0, true), 0);    // hidden
}

TEST(WindowPlacement, OnlyARectangleBigEnoughToWorkInAndOnAScreenIsUsed) {
    const std::vector<RectI> screens{{0, 0, 1920, 1080}, {1920, 0, 3200, 1024}};
    EXPECT_TRUE(UsableStartRectangle({10, 10, 210, 160}, screens));
    EXPECT_FALSE(UsableStartRectangle({10, 10, 209, 500}, screens));
    EXPECT_FALSE(UsableStartRectangle({10, 10, 500, 159}, screens));
    EXPECT_FALSE(UsableStartRectangle({500, 500, 10, 10}, screens));
    EXPECT_TRUE(UsableStartRectangle({2000, 100, 2600, 700}, screens)) << "on the second screen";
    EXPECT_TRUE(UsableStartRectangle({1800, 900, 2400, 1300}, screens)) << "partly on a screen";
    EXPECT_FALSE(UsableStartRectangle({3300, 100, 3900, 700}, screens)) << "where a screen was unplugged";
    EXPECT_FALSE(UsableStartRectangle({10, 10, 210, 160}, {})) << "no screen at all";
}

}  // namespace tessel
