#include "view/follow_pace.h"

#include <gtest/gtest.h>

#include <vector>

namespace tessel {

TEST(FollowPace, ABurstOfChangesIsListedLessAndLessOftenUntilItStops) {
    FollowPace pace;
    uint32_t now = 0xFFFFF000u;  // the tick count wraps during the burst
    std::vector<uint32_t> delays;
    for (int listing = 0; listing < 7; ++listing) {
        pace.NoteChange(now);
        delays.push_back(pace.DelayMs());
        now += 1000;  // changes keep coming within two seconds
        pace.Listed();
    }
    EXPECT_EQ(delays, (std::vector<uint32_t>{150, 2500, 5000, 10000, 20000, 30000, 30000}));
    pace.NoteChange(now + 2001);  // a quiet spell ends the burst
    EXPECT_EQ(pace.DelayMs(), 150u);
}

}  // namespace tessel
