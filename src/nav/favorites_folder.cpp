#include "nav/favorites_folder.h"

#include <algorithm>
#include <cwchar>
#include <cwctype>

#include "core/path_text.h"
#include "core/settings_store.h"

namespace tessel {
namespace {

constexpr wchar_t kSection[] = L"Favoriten";
constexpr wchar_t kKey[] = L"Ordner";

// A stored ".\" path made full with the program's folder.
std::wstring Resolved(const std::wstring& stored, IFavoritesPlaces& places) {
    if (!stored.starts_with(L".\\")) return stored;
    return NormaliseFolderPath(places.ProgramFolder() + L"\\" + stored.substr(2));
}

}  // namespace

std::wstring NormaliseFolderPath(std::wstring_view path) {
    while (!path.empty() && std::iswspace(path.front())) path.remove_prefix(1);
    while (!path.empty() && std::iswspace(path.back())) path.remove_suffix(1);
    if (path.empty()) return {};
    std::wstring text(path);
    std::replace(text.begin(), text.end(), L'/', L'\\');
    text += L'\\';
    CollapseBackslashes(text);
    return text;
}

void StoreFavoritesFolder(ISettingsStore& settings, std::wstring_view path) {
    settings.PutString(kSection, kKey, NormaliseFolderPath(path));
}

std::wstring FindFavoritesFolder(ISettingsStore& settings, IFavoritesPlaces& places) {
    std::wstring stored = NormaliseFolderPath(settings.GetString(kSection, kKey, L""));
    if (stored.empty()) {
        const std::wstring appData = places.AppDataFolder();
        if (appData.empty()) return {};
        const std::wstring fallback = NormaliseFolderPath(appData + L"\\Tessel\\Favoriten\\");
        if (!places.FolderExists(fallback)) return {};
        stored = fallback;
    }
    if (settings.GetString(kSection, kKey, L"") != stored) settings.PutString(kSection, kKey, stored);
    return Resolved(stored, places);
}

std::wstring QuickLinkFolder(ISettingsStore& settings, IFavoritesPlaces& places) {
    std::wstring stored = settings.GetString(L"T", L"Link", L"");
    if (stored.empty()) {
        const std::wstring appData = places.AppDataFolder();
        if (appData.empty()) return {};
        stored = appData + L"\\Tessel\\Favoriten\\Quick-Link";
        settings.PutString(L"T", L"Link", stored);
    }
    return Resolved(stored, places);
}

std::wstring DefaultFavoriteName(const std::tm& local) {
    wchar_t text[48];
    std::swprintf(text, 48, L"%d.%02d.%02d %02d-%02d", local.tm_mday, local.tm_mon + 1, local.tm_year + 1900,
                  local.tm_hour, local.tm_min);
    return text;
}

}  // namespace tessel
