#pragma once
// A search favorite: a folder reopened with a filter text. It is a small file of its own in the
// favorites folder ("<name>.tsq", UTF-16LE with a byte-order mark, as the settings file):
//   [Search]
//   Folder=C:\Projects
//   Filter=*.cpp;*.h
#include <string>
#include <string_view>

namespace tessel {

inline constexpr wchar_t kSearchFavoriteExtension[] = L".tsq";

struct SearchFavorite {
    std::wstring folder;
    std::wstring filter;
    bool operator==(const SearchFavorite&) const = default;
};

std::wstring WriteSearchFavorite(const SearchFavorite& search);
// The "Folder" and "Filter" lines of the "[Search]" section; false without a folder.
bool ReadSearchFavorite(std::wstring_view text, SearchFavorite& search);
// The name with ".tsq" unless it ends in it (case ignored).
std::wstring SearchFavoritePath(std::wstring path);

}  // namespace tessel
