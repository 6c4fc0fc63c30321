#include "view/status_worker_win.h"

#include <commctrl.h>

#include <mutex>

#include "core/path_text.h"
#include "win/clock_win.h"
#include "win/handles_win.h"

namespace tessel {
namespace {

constexpr UINT kSendTimeoutMs = 2000;

// The list lives on the GUI thread: every read is a message with a time limit.
bool Ask(HWND list, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    DWORD_PTR value = 0;
    if (!SendMessageTimeoutW(list, message, wParam, lParam, SMTO_ABORTIFHUNG, kSendTimeoutMs, &value)) return false;
    result = static_cast<LRESULT>(value);
    return true;
}

constexpr int kBatchSize = 5000;
constexpr double kBatchTimeMs = 5;  // the GUI thread answers one batch at most this long

}  // namespace

// What a job shares with the GUI thread; a job left behind keeps it alive.
struct StatusWorker::Job {
    WPARAM number = 0;
    struct Batch {
        bool asked = false;
        bool selectedOnly = false;
        int after = -1;  // list index to continue after
        int last = -1;   // the last row counted; -1 when the rows ended
        int folders = 0, files = 0;
        uint64_t bytes = 0;
    };
    std::mutex batchMutex;
    Batch batch;
    win::UniqueHandle answered{CreateEventW(nullptr, TRUE, FALSE, nullptr)};  // the GUI thread took a request
    win::UniqueHandle stopped{CreateEventW(nullptr, TRUE, FALSE, nullptr)};   // the job is to stop
    mutable std::mutex resultMutex;
    StatusResult result;
};

// The rows are summed by the GUI thread batch by batch, one posted request each: the GUI
// thread's loop comes round between them, so input waits at most one batch. The batch lives in
// the job, so an answer that comes late or never costs nothing.
bool StatusWorker::SumRows(std::stop_token stop, Job& job, HWND owner, bool selectedOnly, ListCounts& counts) {
    int after = -1;
    HANDLE wake[2] = {job.answered.get(), job.stopped.get()};
    while (!stop.stop_requested()) {
        {
            std::lock_guard lock(job.batchMutex);
            job.batch = Job::Batch{true, selectedOnly, after};
        }
        ResetEvent(job.answered.get());
        if (!PostMessageW(owner, kMsgSelectionBatch, job.number, 0)) return false;
        if (WaitForMultipleObjects(2, wake, FALSE, kSendTimeoutMs) != WAIT_OBJECT_0) return false;
        std::lock_guard lock(job.batchMutex);
        if (job.batch.asked) return false;  // not answered after all
        counts.folders += job.batch.folders;
        counts.files += job.batch.files;
        counts.selectedBytes += job.batch.bytes;
        if (job.batch.last < 0) return true;  // the end of the rows
        after = job.batch.last;
    }
    return false;
}

LRESULT StatusWorker::AnswerSelectionBatch(WPARAM number, HWND list, IFolderView* view, IShellFolder* folder) {
    if (!job_ || job_->number != number) return 0;  // a job left behind: it is not answered
    Job& job = *job_;
    std::lock_guard lock(job.batchMutex);
    struct Answered {  // the worker wakes however this ends
        HANDLE event;
        ~Answered() { SetEvent(event); }
    } answered{job.answered.get()};
    Job::Batch& batch = job.batch;
    if (!batch.asked || !list || !view || !folder) return 0;
    int index = batch.after;
    const UINT which = batch.selectedOnly ? LVNI_SELECTED : LVNI_ALL;
    const double deadline = win::NowMs() + kBatchTimeMs;
    for (int n = 0; n < kBatchSize && (n % 64 != 0 || win::NowMs() < deadline); ++n) {
        index = static_cast<int>(SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(index), which));
        batch.last = index;
        if (index < 0) break;
        // The size travels in the item's identifier: no file-system access per row.
        PITEMID_CHILD child = nullptr;
        WIN32_FIND_DATAW data{};
        if (SUCCEEDED(view->Item(index, &child)) &&
            SUCCEEDED(SHGetDataFromIDListW(folder, child, SHGDFIL_FINDDATA, &data, sizeof(data)))) {
            if (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
                ++batch.folders;
            } else {
                ++batch.files;
                batch.bytes += (uint64_t(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
            }
        }
        CoTaskMemFree(child);
    }
    batch.asked = false;
    return 1;
}

bool StatusWorker::Start(HWND list, std::wstring folderPath, HWND done, UINT doneMessage) {
    if (Running()) return false;
    job_ = std::make_shared<Job>();
    job_->number = ++jobs_;
    std::shared_ptr<Job> job = job_;
    thread_.Start(
        [job, list, path = std::move(folderPath), done, doneMessage](std::stop_token stop) {
            Work(stop, job, list, path, done, doneMessage);
        },
        // An event of the job's own wakes a worker waiting for an answer.
        [job] { SetEvent(job->stopped.get()); });
    return true;
}

void StatusWorker::Stop() { thread_.Stop(); }

bool StatusWorker::TakeResult(WPARAM number, StatusResult& result) const {
    if (!job_ || job_->number != number) return false;
    std::lock_guard lock(job_->resultMutex);
    result = job_->result;
    return true;
}

void StatusWorker::Work(std::stop_token stop, std::shared_ptr<Job> job, HWND list, std::wstring folderPath, HWND done,
                        UINT doneMessage) {
    StatusResult result;
    ListCounts& counts = result.counts;
    LRESULT value = 0;
    if (list && Ask(list, LVM_GETITEMCOUNT, 0, 0, value)) counts.items = static_cast<int>(value);
    if (list && Ask(list, LVM_GETSELECTEDCOUNT, 0, 0, value)) counts.selected = static_cast<int>(value);
    if (!folderPath.empty() && !stop.stop_requested()) {
        // With part of the list selected only the selection's size is shown; otherwise every row
        // counts, and folders and files are told apart.
        const bool partial = counts.selected > 0 && counts.selected < counts.items;
        counts.sizesKnown = SumRows(stop, *job, done, partial, counts);
        if (!partial) counts.totalBytes = counts.selectedBytes;
        ULARGE_INTEGER freeBytes{}, totalBytes{};
        if (!stop.stop_requested() && GetDiskFreeSpaceExW(LongPathForm(folderPath).c_str(), &freeBytes, &totalBytes, nullptr)) {
            result.freeKnown = true;
            result.freeBytes = freeBytes.QuadPart;
            result.driveBytes = totalBytes.QuadPart;
        }
    }
    {
        std::lock_guard lock(job->resultMutex);
        job->result = result;
    }
    if (!stop.stop_requested()) PostMessageW(done, doneMessage, job->number, 0);
}

}  // namespace tessel
