#pragma once
// The column memory of one browser view: per column key the shell view's state stream, loaded
// from and saved to the view's settings section; beside it one stream per history entry, used
// once when the view jumps back to that entry or receives another view's folder.
#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "core/settings_store.h"

namespace tessel {

using StreamBytes = std::vector<uint8_t>;

class ColumnStore {
public:
    // Replaces the map by the section's valid values; damaged values are skipped.
    void Load(ISettingsStore& settings, std::wstring_view section);
    // Writes the keys this store changed over what the section holds now, and takes the
    // section's other keys in: the tabs of one T-View share the section, and a save from one
    // of them never drops what another wrote. Nothing is written when nothing changed.
    void Save(ISettingsStore& settings, std::wstring_view section);

    // Every entry of this memory written into `section`, whose other entries stay: the columns a
    // view hands to another.
    void SaveInto(ISettingsStore& settings, std::wstring_view section) const;
    const StreamBytes* Find(const std::wstring& key) const;
    // The slot a write fills; replaces what the key held.
    StreamBytes& Replace(const std::wstring& key);
    size_t Size() const { return columns_.size(); }

    // One-shot history streams: arm an index, and the next read or write goes to that entry.
    void ArmHistoryRead(int index) { pendingRead_ = index; }
    void ArmHistoryWrite(int index) { pendingWrite_ = index; }
    bool HistoryReadPending() const { return pendingRead_ >= 0; }
    bool HistoryWritePending() const { return pendingWrite_ >= 0; }
    // Take the armed entry and disarm; null when nothing is stored for a read.
    const StreamBytes* TakeHistoryRead();
    int TakeHistoryWriteIndex();
    void StoreHistory(int index, StreamBytes bytes);

private:
    std::map<std::wstring, StreamBytes> columns_;
    std::set<std::wstring> changed_;  // keys replaced since the last load or save
    std::map<std::wstring, StreamBytes> history_;  // keyed by the history index as "%d"
    int pendingRead_ = -1;
    int pendingWrite_ = -1;
};

}  // namespace tessel
