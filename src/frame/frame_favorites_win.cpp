// The favorites commands of the main window: adding the arrangement as a favorite, the menu's
// entries, the folder itself, and search favorites.
#include <windows.h>
#include <shellapi.h>
#include <shlobj.h>

#include "core/language_packs_win.h"
#include "core/settings_store_win.h"
#include "core/text_case.h"
#include "core/user_text_file_win.h"
#include "frame/folder_set.h"
#include "frame/main_frame_win.h"
#include "nav/favorite_dialogs_win.h"
#include "nav/favorites_win.h"
#include "res/resource.h"
#include "win/file_system_win.h"
#include "win/shell_item_win.h"
#include "win/text_file_win.h"

namespace tessel {
namespace {

bool EndsWith(const std::wstring& path, std::wstring_view extension) {
    return path.size() >= extension.size() &&
           EqualNoCase(std::wstring_view(path).substr(path.size() - extension.size()), extension);
}


}  // namespace

bool CMainFrame::OnFavoritesCommand(int id) {
    switch (id) {
    case ID_FAV_ADD: AddFavorite(); return true;
    case ID_FAV_ORGANISE: {
        const std::wstring folder = EnsureFavoritesFolder();
        if (!folder.empty()) ShellExecuteW(hwnd(), L"explore", folder.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
        return true;
    }
    case ID_FAV_OPEN_IN_VIEW: {
        const std::wstring folder = EnsureFavoritesFolder();
        if (!folder.empty()) Panel(focusedView_).OpenTab(win::PidlFromPath(folder));
        return true;
    }
    case ID_FAV_CHOOSE_FOLDER: ChooseFavoritesFolder(); return true;
    case ID_FAV_ADD_SEARCH: AddSearchFavorite(); return true;
    }
    const FavoritesMenu::Entry* entry = favorites_.EntryOf(static_cast<UINT>(id));
    if (!entry) return false;
    OpenFavorite(entry->path, entry->folder, GetKeyState(VK_CONTROL) < 0);
    return true;
}

std::wstring CMainFrame::EnsureFavoritesFolder() {
    FavoritesPlacesWin places;
    std::wstring folder = FindFavoritesFolder(Settings(), places);
    if (folder.empty() && ChooseFavoritesFolder()) folder = FindFavoritesFolder(Settings(), places);
    return folder;
}

bool CMainFrame::ChooseFavoritesFolder() {
    BROWSEINFOW browse{};
    browse.hwndOwner = hwnd();
    browse.lpszTitle = L"Verzeichnisauswahl / Select a directory:";
    browse.ulFlags = BIF_RETURNONLYFSDIRS | BIF_NEWDIALOGSTYLE;
    PIDLIST_ABSOLUTE chosen = SHBrowseForFolderW(&browse);
    if (!chosen) return false;
    win::UniquePidl owned(chosen);
    wchar_t path[MAX_PATH] = {};
    if (!SHGetPathFromIDListW(owned.get(), path) || !path[0]) {
        MessageBoxW(hwnd(), L"Failed to get directory", GetText(60000).c_str(), MB_ICONERROR);
        return false;
    }
    StoreFavoritesFolder(Settings(), path);
    return true;
}

// A name already taken is asked for again; the user may keep it to replace the favorite.
std::wstring CMainFrame::FreeFavoritePath(const std::wstring& folder, std::wstring name, bool search) {
    for (;;) {
        const std::wstring path = search ? SearchFavoritePath(folder + name) : FolderSetPath(folder + name);
        if (!win::PathExists(path)) return path;
        const std::wstring asked = name;
        if (!CInputDlg::Show(hwnd(), L"", name) || name.empty()) return {};
        if (name == asked) return path;
    }
}

void CMainFrame::AddFavorite() {
    FavoritesPlacesWin places;
    const std::wstring folder = FindFavoritesFolder(Settings(), places);
    FavoriteChoice choice;
    if (!CFavDlg::Show(hwnd(), choice) || folder.empty()) return;  // no folder: nowhere to write
    const std::wstring path = FreeFavoritePath(folder, choice.name, false);
    if (path.empty()) return;
    if (!SaveFolderSet(path, choice.views, choice.columns, choice.placement))
        MessageBoxW(hwnd(), (GetText(62097) + L"\n" + path).c_str(), GetText(60000).c_str(), MB_ICONWARNING);
}

void CMainFrame::AddSearchFavorite() {
    const std::wstring favorites = EnsureFavoritesFolder();
    if (favorites.empty()) return;
    CPloder& panel = Panel(focusedView_);
    SearchFavorite search{panel.Active() ? panel.Active()->CurrentPath() : L"", panel.FilterText()};
    std::wstring name = search.filter.empty() ? L"" : search.filter;
    if (!CAddFavSearch::Show(hwnd(), name, search)) return;
    const std::wstring path = FreeFavoritePath(favorites, name, true);
    if (!path.empty() && !win::WriteUnicodeFile(path, WriteSearchFavorite(search)))
        MessageBoxW(hwnd(), (GetText(62097) + L"\n" + path).c_str(), GetText(60000).c_str(), MB_ICONWARNING);
}

// Ctrl held: a new window opens it. A folder set is loaded, a search reopens its folder with its
// filter, a folder or a link to one opens in the T-View in use, anything else the shell opens.
void CMainFrame::OpenFavorite(const std::wstring& path, bool folder, bool newWindow) {
    if (newWindow && !EndsWith(path, kSearchFavoriteExtension)) {
        ShellExecuteW(hwnd(), L"open", win::ModulePath().c_str(), (L"\"" + path + L"\"").c_str(), nullptr, SW_SHOWNORMAL);
        return;
    }
    if (!folder && EndsWith(path, L".tsf")) {
        LoadFolderSet(path, true);
        return;
    }
    CPloder& panel = Panel(focusedView_);
    if (!folder && EndsWith(path, kSearchFavoriteExtension)) {
        SearchFavorite search;
        if (ReadSearchFavorite(ReadUserTextFile(path, 64 * 1024), search)) {
            panel.ShowFilter(search.filter);
            panel.NavigateToText(search.folder);
        }
        return;
    }
    const std::wstring target = folder ? path : EndsWith(path, L".lnk") ? win::LinkedFolder(path) : L"";
    if (!target.empty()) {
        panel.NavigateToText(target);
        return;
    }
    ShellExecuteW(hwnd(), L"open", path.c_str(), nullptr, nullptr, SW_SHOWNORMAL);
}

}  // namespace tessel
