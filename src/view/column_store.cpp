#include "view/column_store.h"

#include "core/profile_values.h"
#include "view/column_memory.h"

#include <utility>

namespace tessel {

namespace {

std::map<std::wstring, StreamBytes> ReadSection(ISettingsStore& settings, std::wstring_view section) {
    std::map<std::wstring, StreamBytes> columns;
    const std::wstring lines = settings.GetSection(section);
    std::wstring_view rest = lines;
    while (!rest.empty()) {
        size_t end = rest.find(L'\n');
        std::wstring_view line = rest.substr(0, end);
        rest = end == std::wstring_view::npos ? std::wstring_view() : rest.substr(end + 1);
        size_t eq = line.find(L'=');
        if (eq == std::wstring_view::npos || eq == 0) continue;
        StreamBytes bytes;
        if (DecodeColumnValue(line.substr(eq + 1), bytes)) columns[std::wstring(line.substr(0, eq))] = std::move(bytes);
    }
    return columns;
}

}  // namespace

void ColumnStore::Load(ISettingsStore& settings, std::wstring_view section) {
    columns_ = ReadSection(settings, section);
    changed_.clear();
}

void ColumnStore::Save(ISettingsStore& settings, std::wstring_view section) {
    if (changed_.empty()) return;
    std::map<std::wstring, StreamBytes> merged = ReadSection(settings, section);
    for (const std::wstring& key : changed_) merged[key] = columns_[key];
    std::wstring lines;
    for (const auto& [key, bytes] : merged) lines += key + L"=" + EncodeColumnValue(bytes) + L"\n";
    settings.PutSection(section, lines);
    columns_ = std::move(merged);
    changed_.clear();
}

void ColumnStore::SaveInto(ISettingsStore& settings, std::wstring_view section) const {
    std::map<std::wstring, StreamBytes> merged = ReadSection(settings, section);
    for (const auto& [key, bytes] : columns_) merged[key] = bytes;
    std::wstring lines;
    for (const auto& [key, bytes] : merged) lines += key + L"=" + EncodeColumnValue(bytes) + L"\n";
    settings.PutSection(section, lines);
}

const StreamBytes* ColumnStore::Find(const std::wstring& key) const {
    auto it = columns_.find(key);
    return it == columns_.end() ? nullptr : &it->second;
}

StreamBytes& ColumnStore::Replace(const std::wstring& key) {
    changed_.insert(key);
    StreamBytes& slot = columns_[key];
    slot.clear();
    return slot;
}

const StreamBytes* ColumnStore::TakeHistoryRead() {
    const int index = pendingRead_;
    pendingRead_ = -1;
    auto it = history_.find(FormatInt(index));
    return index < 0 || it == history_.end() ? nullptr : &it->second;
}

int ColumnStore::TakeHistoryWriteIndex() { return std::exchange(pendingWrite_, -1); }

void ColumnStore::StoreHistory(int index, StreamBytes bytes) {
    if (index >= 0) history_[FormatInt(index)] = std::move(bytes);
}

}  // namespace tessel
