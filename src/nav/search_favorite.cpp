#include "nav/search_favorite.h"

#include <algorithm>

#include "core/text_case.h"

namespace tessel {
namespace {

std::wstring_view Trimmed(std::wstring_view text) {
    while (!text.empty() && (text.front() == L' ' || text.front() == L'\t' || text.front() == L'\uFEFF'))
        text.remove_prefix(1);
    while (!text.empty() && (text.back() == L' ' || text.back() == L'\t' || text.back() == L'\r')) text.remove_suffix(1);
    return text;
}

// Line breaks would end the value early: they become blanks.
std::wstring OneLine(std::wstring text) {
    for (wchar_t& c : text)
        if (c == L'\r' || c == L'\n') c = L' ';
    return text;
}

}  // namespace

std::wstring WriteSearchFavorite(const SearchFavorite& search) {
    return L"[Search]\r\nFolder=" + OneLine(search.folder) + L"\r\nFilter=" + OneLine(search.filter) + L"\r\n";
}

bool ReadSearchFavorite(std::wstring_view text, SearchFavorite& search) {
    search = {};
    bool inSection = false;
    while (!text.empty()) {
        const size_t end = std::min(text.find(L'\n'), text.size());
        const std::wstring_view line = Trimmed(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
        if (line.starts_with(L"[")) {
            inSection = EqualNoCase(line, L"[Search]");
            continue;
        }
        const size_t equals = line.find(L'=');
        if (!inSection || equals == std::wstring_view::npos) continue;
        const std::wstring_view key = Trimmed(line.substr(0, equals));
        const std::wstring_view value = Trimmed(line.substr(equals + 1));
        if (EqualNoCase(key, L"Folder")) search.folder = value;
        if (EqualNoCase(key, L"Filter")) search.filter = value;
    }
    return !search.folder.empty();
}

std::wstring SearchFavoritePath(std::wstring path) {
    const std::wstring_view extension = kSearchFavoriteExtension;
    if (path.size() < extension.size() || !EqualNoCase(std::wstring_view(path).substr(path.size() - extension.size()), extension))
        path += extension;
    return path;
}

}  // namespace tessel
