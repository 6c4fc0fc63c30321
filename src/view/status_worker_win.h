#pragma once
// The status worker of a browser view: counts and sizes of the list and the free space of the
// folder's drive, worked out off the GUI thread. One job at a time; the result is posted back.
#include <windows.h>

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

class StatusWorker {
public:
    StatusWorker();
    ~StatusWorker();  // stops and joins; sent messages are served meanwhile, so the join cannot deadlock
    StatusWorker(const StatusWorker&) = delete;
    StatusWorker& operator=(const StatusWorker&) = delete;

    bool Running() const;
    // Starts a job unless one runs; `done` gets message `doneMessage` when the result is ready.
    bool Start(HWND list, std::wstring folderPath, HWND done, UINT doneMessage);
    void Stop();
    StatusResult TakeResult();

private:
    void Work(std::stop_token stop, HWND list, std::wstring folderPath, HWND done, UINT doneMessage);

    mutable std::mutex mutex_;
    StatusResult result_;
    win::UniqueHandle finished_;  // set by the worker as its last act
    std::jthread thread_;
};

}  // namespace tessel
