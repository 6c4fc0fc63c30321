#include "nav/favorites_menu_win.h"

#include <shellapi.h>

#include <algorithm>

#include "core/language_packs_win.h"
#include "core/settings_store_win.h"
#include "core/text_case.h"
#include "nav/favorites_win.h"
#include "res/resource.h"

namespace tessel {
namespace {

constexpr int kFixedEntries = 5;

struct Found {
    std::wstring name;
    bool folder;
};

// Folders first, then files, each by name: as the shell's own menus list a folder.
std::vector<Found> ListFolder(const std::wstring& folder) {
    std::vector<Found> found;
    WIN32_FIND_DATAW data;
    HANDLE find = FindFirstFileExW((folder + L"*").c_str(), FindExInfoBasic, &data, FindExSearchNameMatch, nullptr, 0);
    if (find == INVALID_HANDLE_VALUE) return found;
    do {
        const std::wstring name = data.cFileName;
        if (name == L"." || name == L".." || (data.dwFileAttributes & (FILE_ATTRIBUTE_HIDDEN | FILE_ATTRIBUTE_SYSTEM)))
            continue;
        found.push_back({name, (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0});
    } while (FindNextFileW(find, &data));
    FindClose(find);
    std::sort(found.begin(), found.end(), [](const Found& a, const Found& b) {
        if (a.folder != b.folder) return a.folder;
        return CompareStringW(LOCALE_USER_DEFAULT, NORM_IGNORECASE, a.name.c_str(), -1, b.name.c_str(), -1) == CSTR_LESS_THAN;
    });
    return found;
}

// What the menu shows: the name without the extension of a folder set, link or search favorite.
std::wstring MenuText(const Found& item) {
    std::wstring text = item.name;
    const size_t dot = text.rfind(L'.');
    if (!item.folder && dot != std::wstring::npos) {
        const std::wstring_view extension = std::wstring_view(text).substr(dot);
        if (EqualNoCase(extension, L".tsf") || EqualNoCase(extension, L".lnk") || EqualNoCase(extension, L".tsq"))
            text.resize(dot);
    }
    std::wstring escaped;  // "&" would underline the next letter
    for (wchar_t c : text) escaped += c == L'&' ? std::wstring(L"&&") : std::wstring(1, c);
    return escaped;
}

void AppendText(HMENU menu, UINT flags, UINT_PTR id, const std::wstring& text) {
    AppendMenuW(menu, flags, id, text.c_str());
}

}  // namespace

void FavoritesMenu::Rebuild(HMENU menu) {
    while (GetMenuItemCount(menu) > kFixedEntries) DeleteMenu(menu, kFixedEntries, MF_BYPOSITION);
    entries_.clear();
    unfilled_.clear();
    FavoritesPlacesWin places;
    const std::wstring folder = FindFavoritesFolder(Settings(), places);
    if (!folder.empty() && places.FolderExists(folder)) {
        AppendFolder(menu, folder);
    } else {
        AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
        AppendText(menu, MF_STRING | MF_GRAYED, 0, GetText(40004));
        AppendText(menu, MF_STRING | MF_GRAYED, 0, GetText(40005));
    }
    // An empty favorites folder adds nothing after the fixed entries' separator: no second one.
    MENUITEMINFOW last{sizeof(last), MIIM_FTYPE};
    if (!GetMenuItemInfoW(menu, GetMenuItemCount(menu) - 1, TRUE, &last) || !(last.fType & MFT_SEPARATOR))
        AppendMenuW(menu, MF_SEPARATOR, 0, nullptr);
    // With room for a picture like the entries above, so the menu measures every line alike.
    for (UINT command : {ID_FAV_OPEN_IN_VIEW, ID_FAV_CHOOSE_FOLDER, ID_FAV_ADD_SEARCH}) {
        const std::wstring text = GetText(static_cast<int>(command));
        MENUITEMINFOW item{sizeof(item)};
        item.fMask = MIIM_STRING | MIIM_ID | MIIM_BITMAP;
        item.dwTypeData = const_cast<wchar_t*>(text.c_str());
        item.wID = command;
        item.hbmpItem = HBMMENU_CALLBACK;
        InsertMenuItemW(menu, GetMenuItemCount(menu), TRUE, &item);
    }
}

bool FavoritesMenu::IsFolderCommand(UINT id) {
    return id == ID_FAV_OPEN_IN_VIEW || id == ID_FAV_CHOOSE_FOLDER || id == ID_FAV_ADD_SEARCH;
}

bool FavoritesMenu::FillSubmenu(HMENU menu) {
    const auto found = unfilled_.find(menu);
    if (found == unfilled_.end()) return false;
    const std::wstring folder = found->second;
    unfilled_.erase(found);
    DeleteMenu(menu, 0, MF_BYPOSITION);  // the stand-in that let the sub-menu open
    AppendFolder(menu, folder);
    if (GetMenuItemCount(menu) == 0) AppendText(menu, MF_STRING | MF_GRAYED, 0, GetText(62081));
    return true;
}

void FavoritesMenu::AppendFolder(HMENU menu, const std::wstring& folder) {
    const std::wstring base = folder.back() == L'\\' ? folder : folder + L"\\";
    for (const Found& item : ListFolder(base)) {
        const size_t index = entries_.size();
        if (ID_FAV_FIRST_ENTRY + index > ID_FAV_LAST_ENTRY) break;
        Entry entry;
        entry.path = base + item.name;
        entry.folder = item.folder;
        SHFILEINFOW info{};
        if (SHGetFileInfoW(entry.path.c_str(), 0, &info, sizeof(info), SHGFI_ICON | SHGFI_SMALLICON)) entry.icon.reset(info.hIcon);
        entries_.push_back(std::move(entry));
        MENUITEMINFOW menuItem{sizeof(menuItem)};
        menuItem.fMask = MIIM_STRING | MIIM_ID | MIIM_BITMAP | MIIM_DATA;
        const std::wstring text = MenuText(item);
        menuItem.dwTypeData = const_cast<wchar_t*>(text.c_str());
        menuItem.wID = static_cast<UINT>(ID_FAV_FIRST_ENTRY + index);
        menuItem.hbmpItem = HBMMENU_CALLBACK;
        menuItem.dwItemData = index;
        if (item.folder) {
            HMENU sub = CreatePopupMenu();
            AppendMenuW(sub, MF_STRING | MF_GRAYED, 0, L"...");
            unfilled_[sub] = entries_.back().path;
            menuItem.fMask |= MIIM_SUBMENU;
            menuItem.hSubMenu = sub;  // owned by the menu from here on
        }
        InsertMenuItemW(menu, GetMenuItemCount(menu), TRUE, &menuItem);
    }
}

const FavoritesMenu::Entry* FavoritesMenu::EntryOf(UINT command) const {
    if (command < ID_FAV_FIRST_ENTRY || command > ID_FAV_LAST_ENTRY) return nullptr;
    const size_t index = command - ID_FAV_FIRST_ENTRY;
    return index < entries_.size() ? &entries_[index] : nullptr;
}

bool FavoritesMenu::Measure(MEASUREITEMSTRUCT* item) const {
    if (item->CtlType != ODT_MENU) return false;
    if (!IsFolderCommand(item->itemID) && (!EntryOf(item->itemID) || item->itemData >= entries_.size())) return false;
    item->itemWidth = static_cast<UINT>(GetSystemMetrics(SM_CXSMICON));
    item->itemHeight = static_cast<UINT>(GetSystemMetrics(SM_CYSMICON));
    return true;
}

bool FavoritesMenu::Draw(const DRAWITEMSTRUCT* item) const {
    if (item->CtlType != ODT_MENU) return false;
    if (IsFolderCommand(item->itemID)) return true;  // no picture
    if (!EntryOf(item->itemID) || item->itemData >= entries_.size()) return false;
    const Entry& entry = entries_[item->itemData];
    if (!entry.icon) return true;
    const int size = GetSystemMetrics(SM_CXSMICON);
    DrawIconEx(item->hDC, item->rcItem.left, item->rcItem.top + (item->rcItem.bottom - item->rcItem.top - size) / 2,
               entry.icon.get(), size, size, 0, nullptr, DI_NORMAL);
    return true;
}

}  // namespace tessel
