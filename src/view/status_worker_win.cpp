#include "view/status_worker_win.h"

#include <commctrl.h>

#include <cwctype>
#include <unordered_map>

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

std::wstring Lower(std::wstring text) {
    for (wchar_t& c : text) c = static_cast<wchar_t>(std::towlower(c));
    return text;
}

struct FolderScan {
    std::unordered_map<std::wstring, uint64_t> sizes;  // by lower-case name, only when asked for
    std::unordered_map<std::wstring, uint64_t> stems;  // names without extension; 0xFFFF... marks ambiguity
    bool ok = false;
};

FolderScan ScanFolder(const std::wstring& folder, ListCounts& counts, bool keepNames, std::stop_token stop) {
    FolderScan scan;
    WIN32_FIND_DATAW data;
    HANDLE find = FindFirstFileExW((folder + L"\\*").c_str(), FindExInfoBasic, &data, FindExSearchNameMatch,
                                   nullptr, FIND_FIRST_EX_LARGE_FETCH);
    if (find == INVALID_HANDLE_VALUE) return scan;
    do {
        if (stop.stop_requested()) break;
        if (!wcscmp(data.cFileName, L".") || !wcscmp(data.cFileName, L"..")) continue;
        const bool isFolder = data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY;
        const uint64_t size = isFolder ? 0 : (uint64_t(data.nFileSizeHigh) << 32) | data.nFileSizeLow;
        isFolder ? ++counts.folders : ++counts.files;
        counts.totalBytes += size;
        if (keepNames) {
            std::wstring name = Lower(data.cFileName);
            const size_t dot = name.rfind(L'.');
            if (dot != std::wstring::npos && dot > 0) {
                auto [it, added] = scan.stems.emplace(name.substr(0, dot), size);
                if (!added) it->second = UINT64_MAX;
            }
            scan.sizes.emplace(std::move(name), size);
        }
    } while (FindNextFileW(find, &data));
    FindClose(find);
    scan.ok = !stop.stop_requested();
    return scan;
}

// Sizes of the selected entries, matched by the text the list shows (with or without extension).
uint64_t SelectedBytes(HWND list, const FolderScan& scan, int selected, std::stop_token stop) {
    uint64_t bytes = 0;
    LRESULT index = -1;
    wchar_t text[MAX_PATH];
    for (int n = 0; n < selected && !stop.stop_requested(); ++n) {
        if (!Ask(list, LVM_GETNEXTITEM, static_cast<WPARAM>(index), LVNI_SELECTED, index) || index < 0) break;
        LVITEMW item{};
        item.iSubItem = 0;
        item.pszText = text;
        item.cchTextMax = MAX_PATH;
        LRESULT length = 0;
        if (!Ask(list, LVM_GETITEMTEXTW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item), length)) break;
        const std::wstring name = Lower(text);
        if (auto it = scan.sizes.find(name); it != scan.sizes.end())
            bytes += it->second;
        else if (auto stem = scan.stems.find(name); stem != scan.stems.end() && stem->second != UINT64_MAX)
            bytes += stem->second;
    }
    return bytes;
}

}  // namespace

StatusWorker::StatusWorker() : finished_(CreateEventW(nullptr, TRUE, TRUE, nullptr)) {}

StatusWorker::~StatusWorker() { Stop(); }

bool StatusWorker::Running() const { return WaitForSingleObject(finished_.get(), 0) == WAIT_TIMEOUT; }

bool StatusWorker::Start(HWND list, std::wstring folderPath, HWND done, UINT doneMessage) {
    if (Running()) return false;
    if (thread_.joinable()) thread_.join();  // finished: the join returns at once
    ResetEvent(finished_.get());
    thread_ = std::jthread([this, list, path = std::move(folderPath), done, doneMessage](std::stop_token stop) {
        Work(stop, list, path, done, doneMessage);
    });
    return true;
}

void StatusWorker::Stop() {
    if (!thread_.joinable()) return;
    thread_.request_stop();
    // The worker may be waiting on a message sent to this thread: serve sent messages until it ends.
    HANDLE finished = finished_.get();
    while (MsgWaitForMultipleObjects(1, &finished, FALSE, INFINITE, QS_SENDMESSAGE) == WAIT_OBJECT_0 + 1) {
        MSG message;
        PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
    }
    thread_.join();
}

StatusResult StatusWorker::TakeResult() {
    std::lock_guard lock(mutex_);
    return result_;
}

void StatusWorker::Work(std::stop_token stop, HWND list, std::wstring folderPath, HWND done, UINT doneMessage) {
    StatusResult result;
    LRESULT value = 0;
    if (list && Ask(list, LVM_GETITEMCOUNT, 0, 0, value)) result.counts.items = static_cast<int>(value);
    if (list && Ask(list, LVM_GETSELECTEDCOUNT, 0, 0, value)) result.counts.selected = static_cast<int>(value);
    if (!folderPath.empty() && !stop.stop_requested()) {
        const bool partial = result.counts.selected > 0 && result.counts.selected < result.counts.items;
        FolderScan scan = ScanFolder(folderPath, result.counts, partial, stop);
        result.counts.sizesKnown = scan.ok;
        result.counts.selectedBytes = !partial ? result.counts.totalBytes
                                               : SelectedBytes(list, scan, result.counts.selected, stop);
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
