#pragma once
// What a browser view does with a shell change notice: the event and its two paths decide
// whether the free space is worked out again and which path the folder sizes hear of.
#include <string>
#include <string_view>

namespace tessel {

// The shell's event bits this view registers for and reacts to.
enum ShellEvent : long {
    kEventRenameItem = 0x1,
    kEventCreate = 0x2,
    kEventDelete = 0x4,
    kEventMkdir = 0x8,
    kEventRmdir = 0x10,
    kEventDriveRemoved = 0x80,
    kEventDriveAdd = 0x100,
    kEventUpdateItem = 0x2000,
    kEventRenameFolder = 0x20000,
    kEventFreeSpace = 0x40000,
};
inline constexpr long kRegisteredEvents = 0x6201F;

struct ShellChange {
    long event = 0;
    std::wstring first;   // the item's path; the old name of a rename
    std::wstring second;  // the new name of a rename
};

// Events after which the free space may have changed (the two drive events included).
bool ChangeAffectsFreeSpace(long event);

// The path the folder-size cache is told about: the item of a create or update, the new name
// of a renamed item; "" for every other event.
std::wstring PathForFolderSizes(const ShellChange& change);

// What a change at `changed` asks of the folder sizes of the list of `shown`: everything measured
// again (the folder itself changed), or the one listed folder the path lies in (empty: none).
struct SizeChange {
    bool all = false;
    std::wstring folder;
};
SizeChange SizeChangeOf(std::wstring_view shown, std::wstring_view changed);

// A folder removed or renamed that is the folder shown or one above it.
bool ChangeRemovesFolder(const ShellChange& change, std::wstring_view shownPath);

}  // namespace tessel
