#include "view/status_worker_win.h"

#include <commctrl.h>

#include "win/wait_win.h"

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

}  // namespace

namespace {

constexpr int kBatchSize = 5000;
constexpr double kBatchTimeMs = 5;  // the GUI thread answers one batch at most this long

double NowMs() {  // the tick count moves in steps of up to 16 ms: too coarse for the limit
    LARGE_INTEGER frequency, counter;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&counter);
    return counter.QuadPart * 1000.0 / frequency.QuadPart;
}

}  // namespace

// The rows are summed by the GUI thread batch by batch, one posted request each: the GUI
// thread's loop comes round between them, so input waits at most one batch. The batch lives in
// the worker object, so an answer that comes late or never costs nothing.
bool StatusWorker::SumRows(HWND owner, std::stop_token stop, bool selectedOnly, ListCounts& counts) {
    int after = -1;
    HANDLE wake[2] = {answered_.get(), stopped_.get()};
    while (!stop.stop_requested()) {
        {
            std::lock_guard lock(batchMutex_);
            batch_ = Batch{true, selectedOnly, after};
        }
        ResetEvent(answered_.get());
        if (!PostMessageW(owner, kMsgSelectionBatch, 0, 0)) return false;
        if (WaitForMultipleObjects(2, wake, FALSE, kSendTimeoutMs) != WAIT_OBJECT_0) return false;
        std::lock_guard lock(batchMutex_);
        if (batch_.asked) return false;  // not answered after all
        counts.folders += batch_.folders;
        counts.files += batch_.files;
        counts.selectedBytes += batch_.bytes;
        if (batch_.last < 0) return true;  // the end of the rows
        after = batch_.last;
    }
    return false;
}

LRESULT StatusWorker::AnswerSelectionBatch(HWND list, IFolderView* view, IShellFolder* folder) {
    std::lock_guard lock(batchMutex_);
    struct Answered {  // the worker wakes however this ends
        HANDLE event;
        ~Answered() { SetEvent(event); }
    } answered{answered_.get()};
    if (!batch_.asked || !list || !view || !folder) return 0;
    int index = batch_.after;
    const UINT which = batch_.selectedOnly ? LVNI_SELECTED : LVNI_ALL;
    const double deadline = NowMs() + kBatchTimeMs;
    for (int n = 0; n < kBatchSize && (n % 64 != 0 || NowMs() < deadline); ++n) {
        index = static_cast<int>(SendMessageW(list, LVM_GETNEXTITEM, static_cast<WPARAM>(index), which));
        batch_.last = index;
        if (index < 0) break;
        // The size travels in the item's identifier: no file-system access per row.
        PITEMID_CHILD child = nullptr;
        WIN32_FIND_DATAW data{};
        if (SUCCEEDED(view->Item(index, &child)) &&
            SUCCEEDED(SHGetDataFromIDListW(folder, child, SHGDFIL_FINDDATA, &data, sizeof(data)))) {
            if (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
                ++batch_.folders;
            } else {
                ++batch_.files;
                batch_.bytes += (uint64_t(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
            }
        }
        CoTaskMemFree(child);
    }
    batch_.asked = false;
    return 1;
}

StatusWorker::StatusWorker()
    : answered_(CreateEventW(nullptr, TRUE, FALSE, nullptr)),
      stopped_(CreateEventW(nullptr, TRUE, FALSE, nullptr)),
      finished_(CreateEventW(nullptr, TRUE, TRUE, nullptr)) {}

StatusWorker::~StatusWorker() { Stop(); }

bool StatusWorker::Running() const { return WaitForSingleObject(finished_.get(), 0) == WAIT_TIMEOUT; }

bool StatusWorker::Start(HWND list, std::wstring folderPath, HWND done, UINT doneMessage) {
    if (Running()) return false;
    if (thread_.joinable()) thread_.join();  // finished: the join returns at once
    ResetEvent(finished_.get());
    ResetEvent(stopped_.get());
    thread_ = std::jthread([this, list, path = std::move(folderPath), done, doneMessage](std::stop_token stop) {
        Work(stop, list, path, done, doneMessage);
    });
    return true;
}

void StatusWorker::Stop() {
    if (!thread_.joinable()) return;
    thread_.request_stop();
    // An event of our own wakes a worker waiting for an answer: a stop callback would have to be
    // deregistered by the worker, and that wait can miss its wake-up with this runtime and hang.
    SetEvent(stopped_.get());
    win::WaitServingSentMessages(finished_.get());  // the worker may be asking the list something
    thread_.join();
}

StatusResult StatusWorker::TakeResult() {
    std::lock_guard lock(mutex_);
    return result_;
}

void StatusWorker::Work(std::stop_token stop, HWND list, std::wstring folderPath, HWND done, UINT doneMessage) {
    StatusResult result;
    ListCounts& counts = result.counts;
    LRESULT value = 0;
    if (list && Ask(list, LVM_GETITEMCOUNT, 0, 0, value)) counts.items = static_cast<int>(value);
    if (list && Ask(list, LVM_GETSELECTEDCOUNT, 0, 0, value)) counts.selected = static_cast<int>(value);
    if (!folderPath.empty() && !stop.stop_requested()) {
        // With part of the list selected only the selection's size is shown; otherwise every row
        // counts, and folders and files are told apart.
        const bool partial = counts.selected > 0 && counts.selected < counts.items;
        counts.sizesKnown = SumRows(done, stop, partial, counts);
        if (!partial) counts.totalBytes = counts.selectedBytes;
        ULARGE_INTEGER freeBytes{}, totalBytes{};
        if (!stop.stop_requested() && GetDiskFreeSpaceExW(folderPath.c_str(), &freeBytes, &totalBytes, nullptr)) {
            result.freeKnown = true;
            result.freeBytes = freeBytes.QuadPart;
            result.driveBytes = totalBytes.QuadPart;
        }
    }
    {
        std::lock_guard lock(mutex_);
        result_ = result;
    }
    if (!stop.stop_requested()) PostMessageW(done, doneMessage, 0, 0);
    SetEvent(finished_.get());
}

}  // namespace tessel
