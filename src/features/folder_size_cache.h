#pragma once
// The sizes the folder-size walk found for the folders of one list, shared between the walk
// (writing) and the list's drawing (reading).
#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <string_view>

#include "features/folder_walk.h"
#include "features/size_format.h"

namespace tessel {

class FolderSizeCache {
public:
    void Clear();
    void Store(const std::wstring& name, const FolderTotals& totals);  // marks the entry done
    // The size column's text of a done entry: the size, then the share and the counts as the
    // settings ask; empty while the entry is not done.
    std::wstring Text(const std::wstring& name, const FolderSizeSettings& settings, std::wstring_view separator) const;
    bool Find(const std::wstring& name, FolderTotals& totals) const;
    uint64_t Largest() const;

private:
    mutable std::mutex mutex_;
    std::map<std::wstring, FolderTotals> done_;  // by the folder's name, upper-cased by the caller
    uint64_t largest_ = 0;
};

}  // namespace tessel
