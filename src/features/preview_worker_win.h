#pragma once
// The preview's worker: one thread that reads what the pane is to show (a picture scaled to
// fit, the first 64 KB of a text, a folder's counts, a file's icon and facts), always for the
// latest request only, and posts each result to the pane's window.
#include <windows.h>

#include <cstdint>
#include <memory>
#include <string>

#include "core/latest_request.h"
#include "features/folder_walk.h"
#include "features/preview_content.h"
#include "win/handles_win.h"
#include "win/worker_thread_win.h"

namespace tessel {

struct PreviewRequest {
    win::UniquePidl item;  // absolute; its icon and type come from the shell
    std::wstring path;  // empty for an item outside the file system
    std::wstring name;  // as the list shows it
    bool folder = false;
    SIZE box{};         // the picture is scaled to fit into it
    bool shellThumbnails = false;  // pictures through the shell's thumbnails first
    COLORREF background = RGB(255, 255, 255);  // what shows through a picture's transparent parts
};

struct PreviewResult {
    uint64_t number = 0;
    PreviewKind kind = PreviewKind::kOther;
    std::wstring name;
    std::wstring typeName;
    uint64_t size = 0;
    FILETIME written{};
    bool found = true;       // false: the file went away or cannot be opened
    bool unreadable = false; // a picture that could not be decoded
    win::UniqueBitmap picture;  // 32-bit top-down, scaled to fit the request's box
    SIZE pictureSize{};         // the picture's own size
    std::wstring text;
    bool textCut = false;    // the file goes on beyond the text shown
    win::UniqueIcon icon;
    FolderTotals inside;     // the folder's own entries
    FolderTotals all;        // at every depth, once `measured`
    bool measured = false;
};

class PreviewWorker {
public:
    // Results are posted to `window` as `message` with the result in lParam, which the receiver
    // takes over (delete it).
    PreviewWorker(HWND window, UINT message);
    ~PreviewWorker();
    PreviewWorker(const PreviewWorker&) = delete;
    PreviewWorker& operator=(const PreviewWorker&) = delete;

    uint64_t Request(PreviewRequest request) { return shared_->slot.Put(std::move(request)); }

private:
    // What the thread uses; a read left behind keeps it alive.
    struct Shared {
        Shared(HWND window, UINT message) : window(window), message(message) {}
        HWND window;
        UINT message;
        LatestRequest<PreviewRequest> slot;
    };
    static void Work(Shared& shared);
    static void Serve(Shared& shared, const PreviewRequest& request, uint64_t number);
    static void Post(Shared& shared, std::unique_ptr<PreviewResult> result);

    std::shared_ptr<Shared> shared_;
    win::WorkerThread thread_;  // last: stopped before the rest goes
};

}  // namespace tessel
