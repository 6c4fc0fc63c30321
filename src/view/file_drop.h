#pragma once
// Files dropped on a folder of a navigation aid: whether the drop is copy or move, and which
// drops make no sense (a folder into itself or below itself).
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tessel {

// The platform's values, so this file stays free of it.
inline constexpr uint32_t kDropCopy = 1, kDropMove = 2, kDropLink = 4;
inline constexpr uint32_t kKeyShift = 0x4, kKeyControl = 0x8;

// Ctrl copies, Shift moves; without either a drop on the same volume moves and one elsewhere
// copies. Only what the source allows; 0 when that is neither.
uint32_t FileDropEffect(uint32_t keys, bool sameVolume, uint32_t allowed);

// The effect a drop that only opens what it names reports: a link where the source allows one,
// else a copy, never a move (the source must keep what was dragged).
inline uint32_t OpeningEffect(uint32_t allowed) {
    return (allowed & kDropLink) ? kDropLink : (allowed & kDropCopy) ? kDropCopy : 0;
}

// Drive letters compared without case; "\\server\share" paths by server and share.
bool SameVolume(std::wstring_view a, std::wstring_view b);

// True when the target is one of the dropped items or lies below one of them.
bool DropsIntoItself(const std::vector<std::wstring>& dropped, std::wstring_view target);

}  // namespace tessel
