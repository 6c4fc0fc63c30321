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

TEST(WindowPlacement, OnlyARectangleBigEnoughToWorkInIsUsed) {
    EXPECT_TRUE(UsableStartRectangle({10, 10, 210, 160}));
    EXPECT_FALSE(UsableStartRectangle({10, 10, 209, 500}));
    EXPECT_FALSE(UsableStartRectangle({10, 10, 500, 159}));
    EXPECT_FALSE(UsableStartRectangle({500, 500, 10, 10}));
}

}  // namespace tessel
