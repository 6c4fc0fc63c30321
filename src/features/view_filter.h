#pragma once
// The view filter: which items a T-View lists, decided by name while the view enumerates.
#include <string>
#include <string_view>
#include <vector>

#include "features/rule_index.h"
#include "features/wildcard.h"

namespace tessel {

class ISettingsStore;

struct FilterSwitches {  // kept in the T-View's section under these names
    int by_filter = 0;
    int by_negativ = 0;
    int by_dir_filter = 0;
    int show_filter = 0;
    int by_auto_wildcard = 1;
};

void ReadFilterSwitches(ISettingsStore& settings, std::wstring_view section, FilterSwitches& switches);
void WriteFilterSwitches(ISettingsStore& settings, std::wstring_view section, const FilterSwitches& switches);

// The lower-cased, sorted, distinct tokens of a filter text and their compiled patterns.
class FilterTokens {
public:
    FilterTokens() = default;
    FilterTokens(std::wstring_view text, CaseFold lower);

    bool Empty() const { return tokens_.empty(); }
    const std::vector<std::wstring>& Tokens() const { return tokens_; }
    // `lowerName` is the item's name after its last "\", lower-cased.
    bool Matches(std::wstring_view lowerName, bool autoWildcard) const;

private:
    std::vector<std::wstring> tokens_;
    std::vector<std::wstring> extensions_;  // ".txt" of the plain "*.txt" tokens, looked up by the name's extension
    std::vector<WildcardPattern> patterns_;  // the other tokens
    WildcardPattern anywhere_;  // "*token*" of a single token without "*"
};

// A T-View's filter as its browser views ask it while they list a folder.
struct ViewFilter {
    FilterSwitches switches;
    FilterTokens tokens;
    bool Acts() const { return switches.show_filter && switches.by_filter && !tokens.Empty(); }
};

// Whether the view lists an item: the switches first, then the tokens. `lowerName` is the
// item's own name (see InFolderName), lower-cased.
bool FilterShows(const FilterSwitches& switches, const FilterTokens& tokens, std::wstring_view lowerName,
                 bool isFolder);
// The part of a name after its last backslash: the filter compares an item's own name.
std::wstring_view InFolderName(std::wstring_view name);

// The recently used filter texts kept in "Last-File-Filter", newest first.
inline constexpr int kRecentFilterCount = 16;
std::vector<std::wstring> ReadRecentFilters(ISettingsStore& settings);
// Puts `text` first (once), keeps the newest kRecentFilterCount and writes them back.
void RememberFilter(ISettingsStore& settings, std::wstring_view text);

}  // namespace tessel
