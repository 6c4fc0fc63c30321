#pragma once
// Whether local folders have sub-folders, found out off the GUI thread: the file system reads a
// whole folder on the first look into it, about 150 ms for 100,000 files under Wine, even when
// one entry would answer. Answers are posted to a window as they come.
#include <windows.h>

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <stop_token>
#include <string>

#include "win/worker_thread_win.h"
#include <memory>

namespace tessel {

// Posted for each answer: wParam = ticket << 1 | has sub-folders, lParam = what Ask was given.
inline constexpr UINT kMsgSubFolderAnswer = WM_APP + 0x150;

class SubFolderProbe {
public:
    explicit SubFolderProbe(HWND answers) : shared_(std::make_shared<Shared>(answers)) {}
    ~SubFolderProbe() { thread_.Stop(); }  // a folder being read on a slow drive is left behind
    SubFolderProbe(const SubFolderProbe&) = delete;
    SubFolderProbe& operator=(const SubFolderProbe&) = delete;

    // Queues a path (a directory is read; anything else counts as having children). The worker
    // starts with the first question.
    void Ask(uint64_t ticket, LPARAM tag, std::wstring path);
    // Drops the questions not yet taken (the tree was emptied).
    void Forget();

private:
    struct Question {
        uint64_t ticket;
        LPARAM tag;
        std::wstring path;
    };
    // What the thread uses; a read left behind keeps it alive.
    struct Shared {
        explicit Shared(HWND answers) : answers(answers) {}
        HWND answers;
        std::mutex mutex;
        std::condition_variable_any wake;
        std::deque<Question> questions;
    };
    static void Work(std::stop_token stop, Shared& shared);

    std::shared_ptr<Shared> shared_;
    win::WorkerThread thread_;  // last: stopped before the rest goes
};

// At most `limit` entries are read; a folder with more counts as having sub-folders.
bool HasSubFolder(const std::wstring& path, int limit = 1000);

}  // namespace tessel
