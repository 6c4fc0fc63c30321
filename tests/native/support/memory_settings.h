#pragma once
// An in-memory settings store with the file's rules: case-insensitive sections and keys,
// first match wins, the 1,023-character read limit, registry values only in registry mode.
#include <map>
#include <string>
#include <vector>

#include "core/settings_store.h"

namespace tessel::testing {

class MemorySettings : public ISettingsStore {
public:
    bool fileMode = true;
    std::map<std::wstring, int> registry;
    int puts = 0;

    std::wstring GetString(std::wstring_view section, std::wstring_view key, std::wstring_view def) override {
        const Entry* entry = Find(section, key);
        std::wstring value = entry ? entry->value : std::wstring(def);
        if (value.size() >= kSettingsValueLimit) value.resize(kSettingsValueLimit - 1);
        return value;
    }
    bool PutString(std::wstring_view section, std::wstring_view key, std::wstring_view value) override {
        ++puts;
        if (Entry* entry = Find(section, key)) {
            entry->value = value;
        } else {
            entries_.push_back({std::wstring(section), std::wstring(key), std::wstring(value)});
        }
        return true;
    }
    std::wstring GetSection(std::wstring_view section) override {
        std::wstring lines;
        for (const Entry& e : entries_)
            if (EqualsNoCaseAscii(e.section, section)) lines += e.key + L"=" + e.value + L"\n";
        return lines;
    }
    bool PutSection(std::wstring_view section, std::wstring_view lines) override {
        std::erase_if(entries_, [&](const Entry& e) { return EqualsNoCaseAscii(e.section, section); });
        size_t start = 0;
        while (start < lines.size()) {
            size_t end = lines.find(L'\n', start);
            if (end == lines.npos) end = lines.size();
            std::wstring_view line = lines.substr(start, end - start);
            size_t eq = line.find(L'=');
            if (eq != line.npos) PutString(section, line.substr(0, eq), line.substr(eq + 1));
            start = end + 1;
        }
        return true;
    }
    bool IsFileMode() const override { return fileMode; }
    int RegGetInt(std::wstring_view name, int def) override {
        if (fileMode) return def;
        auto it = registry.find(std::wstring(name));
        return it == registry.end() ? def : it->second;
    }
    bool RegPutInt(std::wstring_view name, int value) override {
        if (fileMode) return false;
        registry[std::wstring(name)] = value;
        return true;
    }

private:
    struct Entry {
        std::wstring section, key, value;
    };
    Entry* Find(std::wstring_view section, std::wstring_view key) {
        for (Entry& e : entries_)
            if (EqualsNoCaseAscii(e.section, section) && EqualsNoCaseAscii(e.key, key)) return &e;
        return nullptr;
    }
    std::vector<Entry> entries_;
};

}  // namespace tessel::testing
