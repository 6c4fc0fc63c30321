#pragma once
// The tabs a T-View closed last, newest first, so that the user can open them again where they
// were, with the back and forward history they had.
#include <cstddef>
#include <deque>
#include <string>

#include "view/navigation_history.h"

namespace tessel {

struct ClosedTab {
    ItemBytes folder;  // absolute
    std::wstring label;
    int index = 0;  // where the tab stood in the strip
    bool hasHistory = false;  // a tab never shown had no browser view, so no history
    NavigationHistory history;
};

class ClosedTabs {
public:
    static constexpr size_t kLimit = 10;

    // Newest first; beyond ten the oldest is forgotten. A tab without a folder is not kept.
    void Remember(ClosedTab tab);
    // Takes the tab at `position` (0: the newest) out of the list; false when there is none.
    bool Take(size_t position, ClosedTab& tab);
    const std::deque<ClosedTab>& List() const { return tabs_; }

private:
    std::deque<ClosedTab> tabs_;
};

}  // namespace tessel
