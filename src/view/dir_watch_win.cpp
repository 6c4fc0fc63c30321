#include "view/dir_watch_win.h"

#include <vector>

#include "core/path_text.h"
#include "view/dir_change_records.h"
#include "win/wait_win.h"

namespace tessel {
namespace {

using ReadChanges = BOOL(WINAPI*)(HANDLE, LPVOID, DWORD, BOOL, DWORD, LPDWORD, LPOVERLAPPED,
                                  LPOVERLAPPED_COMPLETION_ROUTINE);

ReadChanges ReadChangesFunction() {
    static const ReadChanges function = reinterpret_cast<ReadChanges>(
        reinterpret_cast<void*>(GetProcAddress(GetModuleHandleW(L"kernel32"), "ReadDirectoryChangesW")));
    return function;
}

constexpr DWORD kBufferBytes = 4096;  // one buffer, reused for every read

// Ends a pending read: cancelled, then waited for, so the buffer is no longer written.
void CancelRead(HANDLE directory, OVERLAPPED& overlapped) {
    CancelIoEx(directory, &overlapped);
    DWORD ignored = 0;
    GetOverlappedResult(directory, &overlapped, &ignored, TRUE);
}

}  // namespace

CMyReadDirectoryChanges::CMyReadDirectoryChanges()
    : filter_(FILE_NOTIFY_CHANGE_FILE_NAME | FILE_NOTIFY_CHANGE_DIR_NAME | FILE_NOTIFY_CHANGE_SIZE),
      stopped_(CreateEventW(nullptr, TRUE, FALSE, nullptr)),
      finished_(CreateEventW(nullptr, TRUE, TRUE, nullptr)) {
    ReadChangesFunction();
}

CMyReadDirectoryChanges::~CMyReadDirectoryChanges() { Stop(); }

bool CMyReadDirectoryChanges::Running() const { return WaitForSingleObject(finished_.get(), 0) == WAIT_TIMEOUT; }

int CMyReadDirectoryChanges::Start(const std::wstring& path, HWND window, UINT message, DWORD watchSubtree) {
    if (!ReadChangesFunction() || !stopped_ || !finished_) return 0;
    Stop();
    const DWORD attributes = path.empty() ? INVALID_FILE_ATTRIBUTES : GetFileAttributesW(LongPathForm(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_DIRECTORY)) return 1;
    ResetEvent(stopped_.get());
    ResetEvent(finished_.get());
    thread_ = std::jthread([this, path, window, message, watchSubtree](std::stop_token stop) {
        Run(stop, path, window, message, watchSubtree);
        SetEvent(finished_.get());
    });
    return 1;
}

void CMyReadDirectoryChanges::Stop() {
    if (!thread_.joinable()) return;
    thread_.request_stop();
    SetEvent(stopped_.get());
    win::WaitServingSentMessages(finished_.get());  // the thread may be sending a change to this one
    thread_.join();
}

void CMyReadDirectoryChanges::Run(std::stop_token stop, std::wstring path, HWND window, UINT message,
                                  DWORD subtree) {
    win::UniqueHandle directory(CreateFileW(LongPathForm(path).c_str(), FILE_LIST_DIRECTORY,
                                            FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                            OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS | FILE_FLAG_OVERLAPPED,
                                            nullptr));
    win::UniqueHandle readDone(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    if (!directory || !readDone) return;
    std::vector<DWORD> buffer(kBufferBytes / sizeof(DWORD));  // DWORD-aligned, as the records must be
    DirChangeReader reader(path);
    const HANDLE wake[2] = {readDone.get(), stopped_.get()};
    while (!stop.stop_requested()) {
        OVERLAPPED overlapped{};
        overlapped.hEvent = readDone.get();
        ResetEvent(readDone.get());
        // The folder gone or no longer watchable: told as a change of the folder itself, once.
        const DirChange itself{kActionModified, L"", path, L""};
        if (!ReadChangesFunction()(directory.get(), buffer.data(), kBufferBytes, subtree, filter_, nullptr,
                                   &overlapped, nullptr)) {
            if (!stop.stop_requested()) SendMessageW(window, message, reinterpret_cast<WPARAM>(&itself), 0);
            return;
        }
        if (WaitForMultipleObjects(2, wake, FALSE, INFINITE) != WAIT_OBJECT_0) {
            CancelRead(directory.get(), overlapped);
            return;
        }
        DWORD bytes = 0;
        const bool read = GetOverlappedResult(directory.get(), &overlapped, &bytes, FALSE);
        if (!read && GetLastError() != ERROR_NOTIFY_ENUM_DIR) {
            if (!stop.stop_requested()) SendMessageW(window, message, reinterpret_cast<WPARAM>(&itself), 0);
            return;
        }
        if (!read || bytes == 0) {  // more changes than the buffer holds: the folder itself changed
            SendMessageW(window, message, reinterpret_cast<WPARAM>(&itself), 0);
            continue;
        }
        reader.Read(reinterpret_cast<const uint8_t*>(buffer.data()), bytes, [&](const DirChange& change) {
            if (!stop.stop_requested()) SendMessageW(window, message, reinterpret_cast<WPARAM>(&change), 0);
        });
    }
}

bool ShellMissesOutsideChanges() {
    static const bool wine = GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
    return wine;
}

}  // namespace tessel
