#include "features/folder_walk.h"

#include <vector>

namespace tessel {
namespace {

constexpr unsigned kYieldEvery = 10;          // entries between two yields
constexpr unsigned kPauseBetweenFolders = 50;  // ms per step while paused
constexpr unsigned kPauseInsideListing = 20;

// Waits while paused; false when cancelled meanwhile.
bool WaitWhilePaused(IWalkControl& control, unsigned step) {
    while (control.Paused()) {
        if (control.Cancelled()) return false;
        control.Sleep(step);
    }
    return !control.Cancelled();
}

}  // namespace

// Depth first with an explicit stack of open listings, so a deep tree cannot exhaust the stack.
bool MeasureFolder(IDirectoryLister& lister, const std::wstring& folder, bool recurse, IWalkControl& control,
                   FolderTotals& totals) {
    struct Level {
        std::wstring path;
        std::unique_ptr<IDirectoryListing> listing;
    };
    std::vector<Level> stack;
    if (auto listing = lister.Open(folder)) stack.push_back({folder, std::move(listing)});
    unsigned sinceYield = 0;
    DirectoryEntry entry;
    while (!stack.empty()) {
        if (!WaitWhilePaused(control, kPauseInsideListing)) return false;
        if (!stack.back().listing->Next(entry)) {
            stack.pop_back();
            if (!stack.empty() && !WaitWhilePaused(control, kPauseBetweenFolders)) return false;
            continue;
        }
        if (++sinceYield >= kYieldEvery) {
            sinceYield = 0;
            control.Sleep(0);
        }
        if (entry.name == L"." || entry.name == L"..") continue;
        if (!entry.directory || entry.reparsePoint) {
            totals.bytes += entry.size;
            ++totals.files;
            continue;
        }
        ++totals.folders;
        if (!recurse) continue;
        std::wstring path = stack.back().path;
        if (!path.empty() && path.back() != L'\\') path += L'\\';
        path += entry.name;
        if (auto listing = lister.Open(path)) stack.push_back({std::move(path), std::move(listing)});
    }
    return true;
}

}  // namespace tessel
