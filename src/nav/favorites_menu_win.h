#pragma once
// The main menu's favorites popup: five fixed entries, then the favorites folder's contents as
// the shell lists them (each with its icon; sub-folders as sub-menus filled when they open), then
// the commands that reach the folder itself. Rebuilt each time it opens.
#include <windows.h>
#include <shlobj.h>

#include <map>
#include <string>
#include <vector>

#include "win/handles_win.h"

namespace tessel {

class FavoritesMenu {
public:
    struct Entry {
        std::wstring path;  // the file-system path of the file, link or folder
        bool folder = false;
        win::UniqueIcon icon;
    };

    void Rebuild(HMENU menu);
    bool FillSubmenu(HMENU menu);  // false when `menu` is none of ours
    const Entry* EntryOf(UINT command) const;
    // The entries' icons, drawn beside the system's text.
    bool Measure(MEASUREITEMSTRUCT* item) const;
    bool Draw(const DRAWITEMSTRUCT* item) const;

private:
    static bool IsFolderCommand(UINT id);
    void AppendFolder(HMENU menu, const std::wstring& folder);
    std::vector<Entry> entries_;
    std::map<HMENU, std::wstring> unfilled_;  // sub-menus and the folders they list
};

}  // namespace tessel
