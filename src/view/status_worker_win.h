#pragma once
// The status worker of a browser view: counts and sizes of what the list lists (a filter's or
// the hidden items are not in the list, so not in the totals) and the free space of the folder's
// drive. The rows are summed by the GUI thread in short batches the worker asks for; the drive is
// asked off the GUI thread. One job at a time; the result is posted back.
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

// The worker asks the GUI thread for the sizes of rows in batches: one posted message per batch
// instead of several per row, no batch holds the GUI thread for more than a few ms, and input is
// served between batches. The sizes travel in the rows' item identifiers: no disk is read.
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
    // On the GUI thread: sums the sizes of the next rows the worker asked for.
    LRESULT AnswerSelectionBatch(HWND list, IFolderView* view, IShellFolder* folder);

private:
    void Work(std::stop_token stop, HWND list, std::wstring folderPath, HWND done, UINT doneMessage);
    // Sums the selected rows, or all of them; false when stopped or left unanswered.
    bool SumRows(HWND owner, std::stop_token stop, bool selectedOnly, ListCounts& counts);

    struct Batch {
        bool asked = false;
        bool selectedOnly = false;
        int after = -1;  // list index to continue after
        int last = -1;   // the last row counted; -1 when the rows ended
        int folders = 0, files = 0;
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
