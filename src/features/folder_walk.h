#pragma once
// The folder-size walk: every entry of a folder and its sub-folders counted, links and
// junctions counted as entries and never entered (so a loop cannot trap the walk), yielding,
// pausing and stopping as its view asks.
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

namespace tessel {

struct DirectoryEntry {
    std::wstring_view name;
    bool directory = false;
    bool reparsePoint = false;
    uint64_t size = 0;
};

// One open listing of a folder's entries ("." and ".." included, as the system gives them).
class IDirectoryListing {
public:
    virtual ~IDirectoryListing() = default;
    virtual bool Next(DirectoryEntry& entry) = 0;  // false at the end
};

class IDirectoryLister {
public:
    virtual ~IDirectoryLister() = default;
    virtual std::unique_ptr<IDirectoryListing> Open(const std::wstring& folder) = 0;  // null when unreadable
};

// What the walk asks of its owner while it runs.
class IWalkControl {
public:
    virtual ~IWalkControl() = default;
    virtual bool Cancelled() = 0;
    virtual bool Paused() = 0;
    virtual void Sleep(unsigned milliseconds) = 0;  // 0 gives the processor to other threads
};

struct FolderTotals {
    uint64_t bytes = 0;
    uint64_t files = 0;    // entries that are not real sub-folders
    uint64_t folders = 0;  // real sub-folders, at any depth when walked
};

// Measures `folder`; sub-folders are entered when `recurse`. False when cancelled.
bool MeasureFolder(IDirectoryLister& lister, const std::wstring& folder, bool recurse, IWalkControl& control,
                   FolderTotals& totals);

}  // namespace tessel
