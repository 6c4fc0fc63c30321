#include "nav/sub_folder_probe_win.h"
#include "win/file_system_win.h"

namespace tessel {

bool HasSubFolder(const std::wstring& path, int limit) {
    WIN32_FIND_DATAW data{};
    HANDLE find = FindFirstFileExW((path + L"\\*").c_str(), FindExInfoBasic, &data, FindExSearchLimitToDirectories,
                                   nullptr, 0);
    if (find == INVALID_HANDLE_VALUE) return false;
    bool found = false;
    int read = 0;
    do {
        const bool dots = data.cFileName[0] == L'.' &&
                          (data.cFileName[1] == 0 || (data.cFileName[1] == L'.' && data.cFileName[2] == 0));
        found = ((data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) && !dots) || ++read >= limit;
    } while (!found && FindNextFileW(find, &data));
    FindClose(find);
    return found;
}

void SubFolderProbe::Ask(uint64_t ticket, LPARAM tag, std::wstring path) {
    {
        std::lock_guard lock(shared_->mutex);
        shared_->questions.push_back({ticket, tag, std::move(path)});
    }
    if (!thread_.Running())
        thread_.Start([shared = shared_](std::stop_token stop) { Work(stop, *shared); },
                      [shared = shared_] { shared->wake.notify_all(); });
    shared_->wake.notify_one();
}

void SubFolderProbe::Forget() {
    std::lock_guard lock(shared_->mutex);
    shared_->questions.clear();
}

void SubFolderProbe::Work(std::stop_token stop, Shared& shared) {
    for (;;) {
        Question question;
        {
            std::unique_lock lock(shared.mutex);
            if (!shared.wake.wait(lock, stop, [&] { return !shared.questions.empty(); })) return;
            question = std::move(shared.questions.front());
            shared.questions.pop_front();
        }
        // Not a directory (an archive the shell browses into): it keeps its button.
        const bool directory = win::IsDirectory(question.path);
        const bool children = !directory || HasSubFolder(question.path);
        if (stop.stop_requested()) return;
        PostMessageW(shared.answers, kMsgSubFolderAnswer,
                     static_cast<WPARAM>(question.ticket << 1 | (children ? 1 : 0)), question.tag);
    }
}

}  // namespace tessel
