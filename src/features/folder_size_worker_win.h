#pragma once
// The folder-size worker of one browser view: lists the view's folder, walks its sub-folders on
// two threads of its own and tells the view, at most every 200 ms, that sizes are in the cache.
#include <windows.h>

#include <atomic>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "features/folder_size_cache.h"
#include "win/worker_thread_win.h"

namespace tessel {

// The system's own listing of a folder, for the walk: the basic information in large batches.
class IDirectoryLister;
IDirectoryLister& FileSystemLister();

class FolderSizeWorker {
public:
    // `lister` reads the folders; it must outlive every walk, also one left behind.
    explicit FolderSizeWorker(IDirectoryLister& lister = FileSystemLister()) : lister_(lister) {}
    FolderSizeWorker(const FolderSizeWorker&) = delete;
    FolderSizeWorker& operator=(const FolderSizeWorker&) = delete;

    // The sizes found, read by the list's drawing.
    FolderSizeCache& Cache() { return *cache_; }
    const FolderSizeCache& Cache() const { return *cache_; }
    // Measures every sub-folder of `folder` (sub-folders within when `recurse`), or only the ones
    // named in `only`; a running walk is stopped first. `message` is posted to `notify` as sizes
    // arrive and when all are done (wParam 1 then).
    void Start(const std::wstring& folder, bool recurse, HWND notify, UINT message,
               std::vector<std::wstring> only = {});
    // Cancels the walk; the GUI thread waits at most a moment. A walk stuck in a slow file system
    // is left to end on its own, writing into a cache no list reads any more.
    void Stop();
    void SetPaused(bool paused);
    bool Running() const;
    int Measured() const;  // folders measured by the latest walk

private:
    struct Walk;
    static void Run(std::stop_token stop, std::shared_ptr<Walk> walk, std::wstring folder, bool recurse, HWND notify,
                    UINT message, std::vector<std::wstring> names);

    IDirectoryLister& lister_;
    std::shared_ptr<FolderSizeCache> cache_ = std::make_shared<FolderSizeCache>();
    std::shared_ptr<Walk> walk_;
    bool paused_ = false;
    win::WorkerThread thread_;  // last: stopped before the rest goes
};

// The "X-Size" settings of the program, read once at start.
FolderSizeSettings& FolderSizeOptions();

// A folder's name as the cache keeps it.
std::wstring UpperName(std::wstring name);

}  // namespace tessel
