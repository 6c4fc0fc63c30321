#pragma once
// Where favorites live and how a new one is named. The folder is kept in "Favoriten"/"Ordner",
// always with a trailing backslash; ".\" at its start means the program's own folder, so a
// portable copy keeps its favorites beside it.
#include <ctime>
#include <string>
#include <string_view>

namespace tessel {

class ISettingsStore;

class IFavoritesPlaces {
public:
    virtual std::wstring AppDataFolder() = 0;  // the user's application-data folder
    virtual std::wstring ProgramFolder() = 0;  // the folder of tessel.exe
    virtual bool FolderExists(const std::wstring& path) = 0;

protected:
    ~IFavoritesPlaces() = default;
};

// "/" becomes "\", blanks at both ends go, a doubled backslash becomes one (the two that begin a
// network path stay), and the path ends in one backslash. "" stays "".
std::wstring NormaliseFolderPath(std::wstring_view path);

// The stored folder, or else "<application data>\Tessel\Favoriten\" when that exists; what is
// found is stored back normalised (the ".\" form kept). Returns the full path, "" for none.
std::wstring FindFavoritesFolder(ISettingsStore& settings, IFavoritesPlaces& places);
void StoreFavoritesFolder(ISettingsStore& settings, std::wstring_view path);

// "T"/"Link", defaulting to "<application data>\Tessel\Favoriten\Quick-Link" (stored back);
// ".\" is the program's folder here too.
std::wstring QuickLinkFolder(ISettingsStore& settings, IFavoritesPlaces& places);

// "14.11.2026 18-07": day without, month with a leading zero.
std::wstring DefaultFavoriteName(const std::tm& local);

}  // namespace tessel
