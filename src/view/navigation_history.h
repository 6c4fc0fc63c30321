#pragma once
// The back/forward history of one browser view: one entry per visited folder with the view
// state it was left in (view mode, filter, selection), so that going back restores more than
// the folder. The same entries are what a view hands to another T-View in a transfer.
#include <cstdint>
#include <map>
#include <string>
#include <vector>

namespace tessel {

// An item identifier list as its bytes (the terminating zero included); the holder owns them.
using ItemBytes = std::vector<uint8_t>;

// The length of the item identifier list at the start of `data`, its ending two-byte zero
// included: items of at least two bytes each, all inside `available`. 0 when there is none.
size_t ItemListLength(const uint8_t* data, size_t available);
// True when the bytes are exactly one item identifier list.
bool IsItemList(const ItemBytes& bytes);

// The view filter's four switches as they travel with a history entry.
struct ViewFilterState {
    int by_filter = 0;
    int by_negativ = 0;
    int by_dir_filter = 0;
    int show_filter = 0;
    bool operator==(const ViewFilterState&) const = default;
};

struct HistoryEntry {
    ItemBytes folder;  // absolute; empty until the entry was first left
    ViewFilterState filter;
    std::wstring filterText;  // at most kHistoryFilterTextLimit characters
    std::vector<ItemBytes> selection;  // the selected items' own identifiers; empty: none selected
    uint32_t viewMode = 0;  // the view's settings when it was left; 0: none recorded
    uint32_t viewFlags = 0;
};

inline constexpr size_t kHistoryFilterTextLimit = 2048;
inline constexpr int kHistoryClearCommand = 65535;  // the last item of the history menus

class NavigationHistory {
public:
    int Current() const { return current_; }
    int Highest() const { return highest_; }
    size_t Count() const { return entries_.size(); }

    // The entry of an index, made empty the first time the index is used.
    HistoryEntry& Entry(int index) { return entries_[index]; }
    const HistoryEntry* Find(int index) const;
    // The entry the view is leaving (every navigation writes its outgoing state here).
    HistoryEntry& RecordCurrent() { return Entry(current_); }

    // After a navigation that counts: one step on, and forward ends here. Entries beyond stay
    // in the map, out of reach, until their index is used again.
    void Advance();
    bool CanGoBack() const { return current_ >= 1; }
    bool CanGoForward() const { return highest_ > current_; }
    // Where a jump lands, whether or not its folder could be shown: the index follows the request.
    void SetCurrent(int index);
    void Clear();

    // The items of the history menus, nearest first: back from current - 1 down to 0, forward
    // from current + 1 up to the highest index. A menu item's command is its index + 1.
    std::vector<int> BackIndices() const;
    std::vector<int> ForwardIndices() const;

    // The whole history of another view, entry by entry under the same indices; the copy owns
    // its own selections, so either view may go first.
    void CopyFrom(const NavigationHistory& source);

private:
    std::map<int, HistoryEntry> entries_;
    int current_ = 0;
    int highest_ = 0;
};

// True when an entry was left with the filter the view has now: only then is its selection
// worth restoring (exact, case-sensitive text).
bool SameFilter(const HistoryEntry& entry, const ViewFilterState& filter, const std::wstring& filterText);

// The program-wide "a history jump is running" flag: a jump asked for during another is refused.
class HistoryJumpGuard {
public:
    HistoryJumpGuard() : owns_(!running_) { running_ = true; }
    ~HistoryJumpGuard() {
        if (owns_) running_ = false;
    }
    HistoryJumpGuard(const HistoryJumpGuard&) = delete;
    HistoryJumpGuard& operator=(const HistoryJumpGuard&) = delete;
    bool Acquired() const { return owns_; }
    static bool Running() { return running_; }

private:
    bool owns_;
    static inline bool running_ = false;  // GUI thread only
};

}  // namespace tessel
