#pragma once
// The folder-size worker of one browser view: lists the view's folder, walks its sub-folders on
// two threads of its own and tells the view, at most every 200 ms, that sizes are in the cache.
#include <windows.h>

#include <atomic>
#include <string>
#include <thread>
#include <vector>

#include "features/folder_size_cache.h"

namespace tessel {

class FolderSizeWorker {
public:
    explicit FolderSizeWorker(FolderSizeCache& cache) : cache_(cache) {}
    ~FolderSizeWorker() { Stop(); }
    FolderSizeWorker(const FolderSizeWorker&) = delete;
    FolderSizeWorker& operator=(const FolderSizeWorker&) = delete;

    // Measures every sub-folder of `folder` (sub-folders within when `recurse`), or only the ones
    // named in `only`; a running walk is stopped first. `message` is posted to `notify` as sizes
    // arrive and when all are done (wParam 1 then).
    void Start(const std::wstring& folder, bool recurse, HWND notify, UINT message,
               std::vector<std::wstring> only = {});
    // Cancels the walk and waits for its thread; the open listing is closed on the way out.
    void Stop();
    void SetPaused(bool paused) { paused_ = paused; }
    bool Running() const { return thread_.joinable() && !finished_; }
    int Measured() const { return measured_; }  // folders measured by the latest walk

private:
    void Run(std::stop_token stop, std::wstring folder, bool recurse, HWND notify, UINT message,
             std::vector<std::wstring> names);

    FolderSizeCache& cache_;
    std::atomic<bool> paused_{false};
    std::atomic<bool> finished_{false};
    std::atomic<int> measured_{0};
    std::jthread thread_;
};

// A folder's name as the cache keeps it.
std::wstring UpperName(std::wstring name);

// The "X-Size" settings of the program, read once at start.
FolderSizeSettings& FolderSizeOptions();

// The system's own listing of a folder, for the walk: the basic information in large batches.
class IDirectoryLister;
IDirectoryLister& FileSystemLister();

}  // namespace tessel
