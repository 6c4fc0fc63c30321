#include "view/follow_pace.h"

#include <algorithm>

namespace tessel {

void FollowPace::NoteChange(uint32_t nowMs) {
    if (nowMs - lastChange_ > kFollowBurstOverMs) listings_ = 0;
    lastChange_ = nowMs;
}

uint32_t FollowPace::DelayMs() const {
    if (listings_ == 0) return kFollowFirstDelayMs;
    return std::min<uint32_t>(kFollowBurstDelayMs << std::min(listings_ - 1, 4), kFollowBurstDelayMaxMs);
}

}  // namespace tessel
