#include "features/folder_size_worker_win.h"

#include <mmsystem.h>

#include <cwctype>
#include <memory>
#include <vector>

#include "core/path_text.h"
#include "features/folder_walk.h"

namespace tessel {
namespace {

constexpr DWORD kRedrawInterval = 200;  // ms between two notices to the view

class FindListing final : public IDirectoryListing {
public:
    explicit FindListing(const std::wstring& folder) {
        std::wstring pattern = folder;
        if (!pattern.empty() && pattern.back() != L'\\') pattern += L'\\';
        pattern += L"*.*";
        // Deep trees pass the old path limit: such paths go to the system in their long form.
        pattern = LongPathForm(pattern);
        find_ = FindFirstFileExW(pattern.c_str(), FindExInfoBasic, &data_, FindExSearchNameMatch, nullptr,
                                 FIND_FIRST_EX_LARGE_FETCH);
        pending_ = find_ != INVALID_HANDLE_VALUE;
    }
    ~FindListing() override {
        if (find_ != INVALID_HANDLE_VALUE) FindClose(find_);
    }
    bool Valid() const { return find_ != INVALID_HANDLE_VALUE; }
    bool Next(DirectoryEntry& entry) override {
        if (!pending_) return false;
        held_ = data_;  // the entry's name points into it until the next call
        entry.name = held_.cFileName;
        entry.directory = held_.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY;
        entry.reparsePoint = held_.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT;
        entry.size = (static_cast<uint64_t>(held_.nFileSizeHigh) << 32) | held_.nFileSizeLow;
        pending_ = FindNextFileW(find_, &data_) != FALSE;
        return true;
    }

private:
    HANDLE find_ = INVALID_HANDLE_VALUE;
    WIN32_FIND_DATAW data_{};
    WIN32_FIND_DATAW held_{};
    bool pending_ = false;
};

class FindLister final : public IDirectoryLister {
public:
    std::unique_ptr<IDirectoryListing> Open(const std::wstring& folder) override {
        auto listing = std::make_unique<FindListing>(folder);
        if (!listing->Valid()) return nullptr;
        return listing;
    }
};

class WorkerControl final : public IWalkControl {
public:
    WorkerControl(std::stop_token stop, const std::atomic<bool>& paused) : stop_(std::move(stop)), paused_(paused) {}
    bool Cancelled() override { return stop_.stop_requested(); }
    bool Paused() override { return paused_; }
    void Sleep(unsigned milliseconds) override { ::Sleep(milliseconds); }

private:
    std::stop_token stop_;
    const std::atomic<bool>& paused_;
};

}  // namespace

std::wstring UpperName(std::wstring name) {
    CharUpperBuffW(name.data(), static_cast<DWORD>(name.size()));
    return name;
}

FolderSizeSettings& FolderSizeOptions() {
    static FolderSizeSettings settings;
    return settings;
}

IDirectoryLister& FileSystemLister() {
    static FindLister lister;
    return lister;
}

// What a walk shares with its owner; a walk left behind keeps it alive.
struct FolderSizeWorker::Walk {
    IDirectoryLister& lister;
    std::shared_ptr<FolderSizeCache> cache;
    std::atomic<bool> paused{false};
    std::atomic<int> measured{0};
};

void FolderSizeWorker::Start(const std::wstring& folder, bool recurse, HWND notify, UINT message,
                             std::vector<std::wstring> only) {
    Stop();
    walk_ = std::make_shared<Walk>(lister_, cache_);
    walk_->paused = paused_;
    thread_.Start([walk = walk_, folder, recurse, notify, message, only = std::move(only)](std::stop_token stop) {
        Run(std::move(stop), walk, folder, recurse, notify, message, only);
    });
}

void FolderSizeWorker::Stop() {
    if (!thread_.Stop()) cache_ = std::make_shared<FolderSizeCache>();  // the walk left behind keeps the old one
}

void FolderSizeWorker::SetPaused(bool paused) {
    paused_ = paused;
    if (walk_) walk_->paused = paused;
}

bool FolderSizeWorker::Running() const { return thread_.Running(); }

int FolderSizeWorker::Measured() const { return walk_ ? walk_->measured.load() : 0; }

void FolderSizeWorker::Run(std::stop_token stop, std::shared_ptr<Walk> walk, std::wstring folder, bool recurse,
                          HWND notify, UINT message, std::vector<std::wstring> names) {
    // The listed sub-folders, unless named; links are never measured.
    if (auto listing = names.empty() ? walk->lister.Open(folder) : nullptr) {
        DirectoryEntry entry;
        while (!stop.stop_requested() && listing->Next(entry))
            if (entry.directory && !entry.reparsePoint && entry.name != L"." && entry.name != L"..")
                names.emplace_back(entry.name);
    }
    if (!folder.empty() && folder.back() != L'\\') folder += L'\\';
    // Two walkers take the sub-folders in list order: much of a walk is waiting for the file
    // system, and the sizes still fill in from the top of the list.
    std::atomic<size_t> next{0};
    std::atomic<DWORD> lastNotice{timeGetTime()};
    std::atomic<bool> cancelled{false};
    auto measure = [&] {
        WorkerControl control(stop, walk->paused);
        for (size_t i = next++; i < names.size(); i = next++) {
            FolderTotals totals;
            if (!MeasureFolder(walk->lister, folder + names[i], recurse, control, totals)) {
                cancelled = true;
                return;
            }
            walk->cache->Store(UpperName(names[i]), totals);
            ++walk->measured;
            DWORD last = lastNotice;
            const DWORD now = timeGetTime();
            if (now - last >= kRedrawInterval && lastNotice.compare_exchange_strong(last, now))
                PostMessageW(notify, message, 0, 0);
        }
    };
    {
        std::jthread second(measure);  // joined before the result is told
        measure();
    }
    if (cancelled || stop.stop_requested()) return;
    PostMessageW(notify, message, 1, 0);
}

}  // namespace tessel
