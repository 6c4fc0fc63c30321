#include "panel/closed_tabs.h"

#include <utility>

namespace tessel {

void ClosedTabs::Remember(ClosedTab tab) {
    if (!IsItemList(tab.folder)) return;
    tabs_.push_front(std::move(tab));
    if (tabs_.size() > kLimit) tabs_.pop_back();
}

bool ClosedTabs::Take(size_t position, ClosedTab& tab) {
    if (position >= tabs_.size()) return false;
    tab = std::move(tabs_[position]);
    tabs_.erase(tabs_.begin() + static_cast<std::ptrdiff_t>(position));
    return true;
}

}  // namespace tessel
