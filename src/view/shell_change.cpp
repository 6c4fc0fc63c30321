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

SizeChange SizeChangeOf(std::wstring_view shown, std::wstring_view changed) {
    while (!shown.empty() && shown.back() == L'\\') shown.remove_suffix(1);
    while (!changed.empty() && changed.back() == L'\\') changed.remove_suffix(1);
    if (shown.empty() || changed.size() < shown.size() || !EqualNoCase(changed.substr(0, shown.size()), shown))
        return {};
    if (changed.size() == shown.size()) return {true, {}};
    if (changed[shown.size()] != L'\\') return {};
    std::wstring_view below = changed.substr(shown.size() + 1);
    return {false, std::wstring(below.substr(0, below.find(L'\\')))};
}

bool ChangeRemovesFolder(const ShellChange& change, std::wstring_view shown) {
    if (!(change.event & (kEventRmdir | kEventRenameFolder | kEventDelete)) || change.first.empty()) return false;
    std::wstring_view removed = change.first;
    if (removed.back() == L'\\') removed.remove_suffix(1);
    if (shown.size() < removed.size() || !EqualNoCase(shown.substr(0, removed.size()), removed)) return false;
    return shown.size() == removed.size() || shown[removed.size()] == L'\\';
}

}  // namespace tessel
