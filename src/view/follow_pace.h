#pragma once
// How soon a folder changed by other programs is listed again. A change is listed 150 ms after it
// came. While changes keep coming (a copy into the folder), the next listings wait longer and
// longer (2.5 s, 5 s, 10 s, 20 s, at most 30 s after the change that asks for them): a long copy
// shows its progress without the folder being listed per file. Two seconds without a change end
// the burst.
#include <cstdint>

namespace tessel {

inline constexpr uint32_t kFollowFirstDelayMs = 150;
inline constexpr uint32_t kFollowBurstDelayMs = 2500;
inline constexpr uint32_t kFollowBurstDelayMaxMs = 30000;
inline constexpr uint32_t kFollowBurstOverMs = 2000;

class FollowPace {
public:
    // A change came at `nowMs` (a tick count that may wrap).
    void NoteChange(uint32_t nowMs);
    // The wait before the listing that the latest change asks for.
    uint32_t DelayMs() const;
    void Listed() { ++listings_; }

private:
    uint32_t lastChange_ = 0;
    int listings_ = 0;  // since the burst began
};

}  // namespace tessel
