#include "nav/favorites_win.h"

#include <windows.h>
#include <shlobj.h>

#include "core/settings_store_win.h"
#include "win/file_system_win.h"

namespace tessel {

std::wstring FavoritesPlacesWin::AppDataFolder() {
    wchar_t path[MAX_PATH] = {};
    return SUCCEEDED(SHGetFolderPathW(nullptr, CSIDL_APPDATA, nullptr, SHGFP_TYPE_CURRENT, path)) ? path : L"";
}

std::wstring FavoritesPlacesWin::ProgramFolder() { return Settings().ExeFolder(); }

bool FavoritesPlacesWin::FolderExists(const std::wstring& path) { return win::IsDirectory(path); }

}  // namespace tessel
