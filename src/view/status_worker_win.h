#pragma once
// The status worker of a browser view: counts and sizes of the list and the free space of the
// folder's drive, worked out off the GUI thread. One job at a time; the result is posted back.
#include <windows.h>
#include <shlobj.h>

#include <mutex>
#include <stop_token>
#include <string>
#include <thread>

#include "view/status_text.h"
#include "win/handles_win.h"

namespace tessel {

struct StatusResult {
    ListCounts counts;
    bool freeKnown = false;
    uint64_t freeBytes = 0;
    uint64_t driveBytes = 0;
};

// The worker asks the GUI thread for the sizes of selected entries in batches: one posted
// message per batch instead of several per entry, no batch holds the GUI thread for more than a
// few ms, and input is served between batches. The worker reads the folder meanwhile.
inline constexpr UINT kMsgSelectionBatch = WM_APP + 0x121;

class StatusWorker {
public:
    StatusWorker();
    ~StatusWorker();  // stops and joins; sent messages are served meanwhile, so the join cannot deadlock
    StatusWorker(const StatusWorker&) = delete;
    StatusWorker& operator=(const StatusWorker&) = delete;

    bool Running() const;
    // Starts a job unless one runs; `done` gets message `doneMessage` when the result is ready.
    // `done` also answers kMsgSelectionBatch by calling AnswerSelectionBatch.
    bool Start(HWND list, std::wstring folderPath, HWND done, UINT doneMessage);
    void Stop();
    StatusResult TakeResult();
    // On the GUI thread: sums the sizes of the next selected entries the worker asked for.
    LRESULT AnswerSelectionBatch(HWND list, IFolderView* view, IShellFolder* folder);

private:
    void Work(std::stop_token stop, HWND list, std::wstring folderPath, HWND done, UINT doneMessage);
    class FolderScan;
    uint64_t SelectedBytes(HWND owner, std::stop_token stop, FolderScan& scan, ListCounts& counts);

    struct Batch {
        bool asked = false;
        int after = -1;  // list index to continue after
        int last = -1;   // the last entry counted; -1 when the selection ended
        uint64_t bytes = 0;
    };
    std::mutex batchMutex_;
    Batch batch_;
    win::UniqueHandle answered_;  // set by the GUI thread when it took a batch request
    win::UniqueHandle stopped_;   // set when the running job is asked to stop

    mutable std::mutex mutex_;
    StatusResult result_;
    win::UniqueHandle finished_;  // set by the worker as its last act
    std::jthread thread_;
};

}  // namespace tessel
