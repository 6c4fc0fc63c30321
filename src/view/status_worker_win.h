#pragma once
// The status worker of a browser view: counts and sizes of what the list lists (a filter's or
// the hidden items are not in the list, so not in the totals) and the free space of the folder's
// drive. The rows are summed by the GUI thread in short batches the worker asks for; the drive is
// asked off the GUI thread. One job at a time; the result is posted back.
#include <windows.h>
#include <shlobj.h>

#include <memory>
#include <string>

#include "view/status_text.h"
#include "win/worker_thread_win.h"

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
// wParam is the job's number, as it is in the done message.
inline constexpr UINT kMsgSelectionBatch = WM_APP + 0x121;

class StatusWorker {
public:
    StatusWorker() = default;
    StatusWorker(const StatusWorker&) = delete;
    StatusWorker& operator=(const StatusWorker&) = delete;

    bool Running() const { return thread_.Running(); }
    // Starts a job unless one runs; `done` gets message `doneMessage` with the job's number in
    // wParam when the result is ready. `done` also answers kMsgSelectionBatch by calling
    // AnswerSelectionBatch.
    bool Start(HWND list, std::wstring folderPath, HWND done, UINT doneMessage);
    // The GUI thread waits at most a moment: a job stuck asking a slow drive is left behind,
    // and what it posts later is dropped.
    void Stop();
    // The result of job `number`; false when that is not the latest job.
    bool TakeResult(WPARAM number, StatusResult& result) const;
    // On the GUI thread: sums the sizes of the next rows job `number` asked for.
    LRESULT AnswerSelectionBatch(WPARAM number, HWND list, IFolderView* view, IShellFolder* folder);

private:
    struct Job;
    static void Work(std::stop_token stop, std::shared_ptr<Job> job, HWND list, std::wstring folderPath, HWND done,
                     UINT doneMessage);
    // Sums the selected rows, or all of them; false when stopped or left unanswered.
    static bool SumRows(std::stop_token stop, Job& job, HWND owner, bool selectedOnly, ListCounts& counts);

    std::shared_ptr<Job> job_;
    WPARAM jobs_ = 0;
    win::WorkerThread thread_;  // last: stopped before the rest goes
};

}  // namespace tessel
