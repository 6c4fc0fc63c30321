#include "features/view_filter.h"

#include <algorithm>

#include "core/settings_store.h"

namespace tessel {
namespace {

constexpr std::wstring_view kRecentSection = L"Last-File-Filter";

int Switch(ISettingsStore& settings, std::wstring_view section, std::wstring_view key, int value) {
    return settings.GetInt(section, key, value) != 0 ? 1 : 0;
}

}  // namespace

void ReadFilterSwitches(ISettingsStore& settings, std::wstring_view section, FilterSwitches& s) {
    s.by_filter = Switch(settings, section, L"by_filter", s.by_filter);
    s.by_negativ = Switch(settings, section, L"by_negativ", s.by_negativ);
    s.by_dir_filter = Switch(settings, section, L"by_dir_filter", s.by_dir_filter);
    s.show_filter = Switch(settings, section, L"show_filter", s.show_filter);
    s.by_auto_wildcard = Switch(settings, section, L"by_auto_wildcard", s.by_auto_wildcard);
}

void WriteFilterSwitches(ISettingsStore& settings, std::wstring_view section, const FilterSwitches& s) {
    settings.PutInt(section, L"by_filter", s.by_filter);
    settings.PutInt(section, L"by_negativ", s.by_negativ);
    settings.PutInt(section, L"by_dir_filter", s.by_dir_filter);
    settings.PutInt(section, L"show_filter", s.show_filter);
    settings.PutInt(section, L"by_auto_wildcard", s.by_auto_wildcard);
}

FilterTokens::FilterTokens(std::wstring_view text, CaseFold lower) {
    std::wstring all(text);
    std::replace(all.begin(), all.end(), L',', L';');
    lower(all.data(), all.size());
    for (size_t start = 0; start < all.size();) {
        const size_t end = std::min(all.find(L';', start), all.size());
        if (end > start) tokens_.push_back(all.substr(start, end - start));
        start = end + 1;
    }
    std::sort(tokens_.begin(), tokens_.end());
    tokens_.erase(std::unique(tokens_.begin(), tokens_.end()), tokens_.end());
    for (const std::wstring& token : tokens_) {
        // "*.ext" with nothing special after the star matches exactly the names whose extension is ".ext".
        const bool plainExtension = token.size() > 2 && token[0] == L'*' && token[1] == L'.' &&
                                    token.find_first_of(L"*?[\\.", 2) == std::wstring::npos;
        if (plainExtension) extensions_.push_back(token.substr(1));
        else patterns_.emplace_back(token);
    }
    if (tokens_.size() == 1 && tokens_[0].find(L'*') == std::wstring::npos) anywhere_ = WildcardPattern(L"*" + tokens_[0] + L"*");
}

bool FilterTokens::Matches(std::wstring_view lowerName, bool autoWildcard) const {
    if (autoWildcard && anywhere_.IsValid()) return anywhere_.Matches(lowerName);
    if (!extensions_.empty()) {
        size_t dot = lowerName.size();
        while (dot > 0 && lowerName[dot - 1] != L'.') --dot;
        const std::wstring_view extension = dot > 0 ? lowerName.substr(dot - 1) : std::wstring_view();
        for (const std::wstring& wanted : extensions_) {  // a plain loop: names are short, lists of types too
            if (wanted.size() != extension.size()) continue;
            size_t i = 0;
            while (i < wanted.size() && wanted[i] == extension[i]) ++i;
            if (i == wanted.size()) return true;
        }
    }
    for (const WildcardPattern& pattern : patterns_)
        if (pattern.Matches(lowerName)) return true;
    return false;
}

bool FilterShows(const FilterSwitches& switches, const FilterTokens& tokens, std::wstring_view lowerName,
                 bool isFolder) {
    if (!switches.show_filter || !switches.by_filter) return true;
    if (!switches.by_dir_filter && isFolder) return true;
    if (tokens.Empty()) return true;
    return tokens.Matches(lowerName, switches.by_auto_wildcard != 0) != (switches.by_negativ != 0);
}

std::wstring_view InFolderName(std::wstring_view name) {
    const size_t slash = name.rfind(L'\\');
    return slash == std::wstring_view::npos ? name : name.substr(slash + 1);
}

// Kept as "0".."15" with the newest first; an empty value ends the list.
std::vector<std::wstring> ReadRecentFilters(ISettingsStore& settings) {
    std::vector<std::wstring> texts;
    for (int i = 0; i < kRecentFilterCount; ++i) {
        std::wstring text = settings.GetString(kRecentSection, std::to_wstring(i), L"");
        if (text.empty()) break;
        if (std::find(texts.begin(), texts.end(), text) == texts.end()) texts.push_back(std::move(text));
    }
    return texts;
}

void RememberFilter(ISettingsStore& settings, std::wstring_view text) {
    if (text.empty()) return;
    std::vector<std::wstring> texts = ReadRecentFilters(settings);
    std::erase(texts, text);
    texts.insert(texts.begin(), std::wstring(text));
    if (texts.size() > kRecentFilterCount) texts.resize(kRecentFilterCount);
    for (size_t i = 0; i < texts.size(); ++i) settings.PutString(kRecentSection, std::to_wstring(i), texts[i]);
}

}  // namespace tessel
