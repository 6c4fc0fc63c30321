#include "view/shell_change.h"

#include "core/text_case.h"

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

bool ChangeRemovesFolder(const ShellChange& change, std::wstring_view shown) {
    if (!(change.event & (kEventRmdir | kEventRenameFolder | kEventDelete)) || change.first.empty()) return false;
    std::wstring_view removed = change.first;
    if (removed.back() == L'\\') removed.remove_suffix(1);
    if (shown.size() < removed.size() || !EqualNoCase(shown.substr(0, removed.size()), removed)) return false;
    return shown.size() == removed.size() || shown[removed.size()] == L'\\';
}

}  // namespace tessel
