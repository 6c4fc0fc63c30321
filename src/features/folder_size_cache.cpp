#include "features/folder_size_cache.h"

#include <cstdio>

namespace tessel {

void FolderSizeCache::Clear() {
    std::lock_guard lock(mutex_);
    done_.clear();
    largest_ = 0;
}

void FolderSizeCache::Store(const std::wstring& name, const FolderTotals& totals) {
    std::lock_guard lock(mutex_);
    done_[name] = totals;
    if (totals.bytes > largest_) largest_ = totals.bytes;
}

bool FolderSizeCache::Find(const std::wstring& name, FolderTotals& totals) const {
    std::lock_guard lock(mutex_);
    const auto found = done_.find(name);
    if (found == done_.end()) return false;
    totals = found->second;
    return true;
}

uint64_t FolderSizeCache::Largest() const {
    std::lock_guard lock(mutex_);
    return largest_;
}

std::wstring FolderSizeCache::Text(const std::wstring& name, const FolderSizeSettings& settings,
                                   std::wstring_view separator) const {
    FolderTotals totals;
    if (!Find(name, totals)) return {};
    std::wstring text = FormatColumnSize(totals.bytes, settings, separator);
    if (settings.precent) {
        wchar_t share[32];
        std::swprintf(share, 32, L"  %.0f %%", SizeShare(totals.bytes, Largest()) * 100.0);
        text += share;
    }
    if (settings.ff_cnt) {
        wchar_t counts[64];
        std::swprintf(counts, 64, L"  %d / %d", static_cast<int>(totals.files), static_cast<int>(totals.folders));
        text += counts;
    }
    return text;
}

}  // namespace tessel
