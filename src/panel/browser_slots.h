#pragma once
// Which slot a panel's next browser view takes: a closed one is reused first; a panel holds at
// most 15 browser views although its message names 16.
#include <array>

namespace tessel {

inline constexpr int kBrowserSlots = 16;

struct SlotChoice {
    enum Kind { kReuse, kNew, kRefused } kind;
    int slot;
};

inline SlotChoice ChooseBrowserSlot(const std::array<bool, kBrowserSlots>& closed, int count) {
    for (int i = 0; i < count && i < kBrowserSlots; ++i)
        if (closed[i]) return {SlotChoice::kReuse, i};
    if (count + 1 >= kBrowserSlots) return {SlotChoice::kRefused, -1};
    return {SlotChoice::kNew, count};
}

}  // namespace tessel
