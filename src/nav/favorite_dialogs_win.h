#pragma once
// The dialogs of the favorites: adding one (`CFavDlg`), a name (`CInputDlg`) and a search
// favorite (`CAddFavSearch`). Each answers false when cancelled.
#include <windows.h>

#include <string>

#include "nav/search_favorite.h"

namespace tessel {

// The name and what a new favorite keeps besides the folders; the check boxes come from and
// go back to the "FAV" keys.
struct FavoriteChoice {
    std::wstring name;
    bool views = true;
    bool columns = false;
    bool placement = false;
};

class CFavDlg {
public:
    static bool Show(HWND owner, FavoriteChoice& choice);
};

class CInputDlg {
public:
    static bool Show(HWND owner, const std::wstring& title, std::wstring& text);
};

class CAddFavSearch {
public:
    static bool Show(HWND owner, std::wstring& name, SearchFavorite& search);
};

}  // namespace tessel
