#include "view/shell_change.h"

namespace tessel {

bool ChangeAffectsFreeSpace(long event) {
    constexpr long kFreeSpaceEvents = kEventCreate | kEventDelete | kEventMkdir | kEventRmdir | kEventDriveRemoved |
                                      kEventDriveAdd | kEventFreeSpace;
    return (event & kFreeSpaceEvents) != 0;
}

std::wstring PathForFolderSizes(const ShellChange& change) {
    if (change.event & (kEventUpdateItem | kEventCreate)) return change.first;
    if (change.event & kEventRenameItem) return change.second;
    return {};
}

}  // namespace tessel
