#include "view/navigation_history.h"

#include <climits>

namespace tessel {

size_t ItemListLength(const uint8_t* data, size_t available) {
    size_t at = 0;
    while (at + 2 <= available) {
        const size_t size = data[at] | (size_t{data[at + 1]} << 8);
        if (size == 0) return at + 2;
        if (size < 2 || size > available - at) return 0;
        at += size;
    }
    return 0;
}

bool IsItemList(const ItemBytes& bytes) {
    return !bytes.empty() && ItemListLength(bytes.data(), bytes.size()) == bytes.size();
}

const HistoryEntry* NavigationHistory::Find(int index) const {
    auto found = entries_.find(index);
    return found == entries_.end() ? nullptr : &found->second;
}

void NavigationHistory::Advance() {
    if (current_ == INT_MAX) return;  // the index is the only limit
    highest_ = ++current_;
}

void NavigationHistory::SetCurrent(int index) {
    if (index < 0) return;
    current_ = index;
    if (highest_ < current_) highest_ = current_;
}

void NavigationHistory::Clear() {
    entries_.clear();
    current_ = 0;
    highest_ = 0;
}

std::vector<int> NavigationHistory::BackIndices() const {
    std::vector<int> indices;
    for (int index = current_ - 1; index >= 0; --index) indices.push_back(index);
    return indices;
}

std::vector<int> NavigationHistory::ForwardIndices() const {
    std::vector<int> indices;
    for (long long index = current_ + 1LL; index <= highest_; ++index) indices.push_back(static_cast<int>(index));
    return indices;
}

void NavigationHistory::CopyFrom(const NavigationHistory& source) {
    if (&source == this) return;
    Clear();
    // Every entry under its own index; the vectors copy, so no selection is shared.
    const int count = static_cast<int>(source.Count());
    for (int index = 0; index < count; ++index)
        if (const HistoryEntry* entry = source.Find(index)) entries_[index] = *entry;
    current_ = source.current_;
    highest_ = source.highest_;
}

bool SameFilter(const HistoryEntry& entry, const ViewFilterState& filter, const std::wstring& filterText) {
    return entry.filter == filter && entry.filterText == filterText;
}

}  // namespace tessel
