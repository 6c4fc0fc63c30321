#include "core/string_table.h"

#include <cwchar>
#include <iterator>

#include "core/profile_values.h"

namespace tessel {

static std::wstring_view TrimBlanks(std::wstring_view s) {
    while (!s.empty() && (s.front() == L' ' || s.front() == L'\t')) s.remove_prefix(1);
    while (!s.empty() && (s.back() == L' ' || s.back() == L'\t')) s.remove_suffix(1);
    return s;
}

static std::wstring Unescape(std::wstring_view text) {
    std::wstring out;
    out.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        if (text[i] == L'\\' && i + 1 < text.size()) {
            wchar_t next = text[i + 1];
            wchar_t replaced = next == L't' ? L'\t' : next == L'r' ? L'\r' : next == L'n' ? L'\n' : 0;
            if (replaced) {
                out += replaced;
                ++i;
                continue;
            }
        }
        out += text[i];
    }
    return out;
}

static bool IsDecimalId(std::wstring_view s) {
    if (!s.empty() && (s.front() == L'-' || s.front() == L'+')) s.remove_prefix(1);
    if (s.empty()) return false;
    for (wchar_t c : s)
        if (c < L'0' || c > L'9') return false;
    return true;
}

void StringTable::Parse(std::wstring_view text) {
    clear();
    if (!text.empty() && text.front() == 0xFEFF) text.remove_prefix(1);
    size_t start = 0;
    while (start < text.size()) {
        size_t end = text.find(L'\n', start);
        if (end == std::wstring_view::npos) end = text.size();
        std::wstring_view line = text.substr(start, end - start);
        start = end + 1;
        if (!line.empty() && line.back() == L'\r') line.remove_suffix(1);
        size_t eq = line.find(L'=');
        if (eq == std::wstring_view::npos) continue;
        std::wstring_view idText = TrimBlanks(line.substr(0, eq));
        if (!IsDecimalId(idText)) continue;
        int id = ParseLeadingInt(idText);
        if (id <= 0 || id >= 2000000) continue;
        ids_.push_back(id);
        texts_.push_back(Unescape(TrimBlanks(line.substr(eq + 1))));
    }
}

const std::wstring* StringTable::Find(int id) const {
    for (size_t i = 0; i < ids_.size(); ++i)
        if (ids_[i] == id) return &texts_[i];
    return nullptr;
}

static const wchar_t* const kCodes[] = {L"DE", L"EN", L"FR", L"IT", L"EN", L"CH", L"JA",
                                        L"KR", L"PL", L"CHS", L"RU", L"NL", L"TR", L"GR",
                                        L"AR", L"SK", L"CZ", L"DA", L"BR"};

const wchar_t* LanguageCode(int languageId) {
    if (languageId < 0 || languageId >= static_cast<int>(std::size(kCodes))) return L"EN";
    return kCodes[languageId];
}

std::vector<int> LanguageIds() {
    std::vector<int> ids;
    for (int id = 0; id < static_cast<int>(std::size(kCodes)); ++id)
        if (id != 4) ids.push_back(id);
    return ids;
}

void Strings::Reload() {
    current_.Parse(packs_.LoadText(LanguageCode(languageId_)));
    if (!englishLoaded_) {
        english_.Parse(packs_.LoadText(L"EN"));
        englishLoaded_ = true;
    }
    loadedLanguage_ = languageId_;
    loaded_ = true;
}

std::wstring Strings::GetText(int id) {
    if (!loaded_ || loadedLanguage_ != languageId_) Reload();
    if (const std::wstring* text = current_.Find(id); text && !text->empty()) return *text;
    wchar_t placeholder[48];
    std::swprintf(placeholder, std::size(placeholder), L"String %d is not in list", id);
    if (showMissing_) return placeholder;
    if (id == 0) return L"Tessel";
    if (const std::wstring* text = english_.Find(id)) return *text;
    return placeholder;
}

}  // namespace tessel
