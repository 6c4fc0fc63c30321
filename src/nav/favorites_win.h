#pragma once
// The places the favorites rules ask about, answered by the system.
#include <string>

#include "nav/favorites_folder.h"

namespace tessel {

class FavoritesPlacesWin : public IFavoritesPlaces {
public:
    std::wstring AppDataFolder() override;
    std::wstring ProgramFolder() override;
    bool FolderExists(const std::wstring& path) override;
};

}  // namespace tessel
