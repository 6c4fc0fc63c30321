#include "nav/sub_folder_probe_win.h"

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

SubFolderProbe::~SubFolderProbe() {
    if (!thread_.joinable()) return;
    thread_.request_stop();
    wake_.notify_all();
    thread_.join();
}

void SubFolderProbe::Ask(uint64_t ticket, LPARAM tag, std::wstring path) {
    {
        std::lock_guard lock(mutex_);
        questions_.push_back({ticket, tag, std::move(path)});
    }
    if (!thread_.joinable()) thread_ = std::jthread([this](std::stop_token stop) { Work(stop); });
    wake_.notify_one();
}

void SubFolderProbe::Forget() {
    std::lock_guard lock(mutex_);
    questions_.clear();
}

void SubFolderProbe::Work(std::stop_token stop) {
    for (;;) {
        Question question;
        {
            std::unique_lock lock(mutex_);
            if (!wake_.wait(lock, stop, [this] { return !questions_.empty(); })) return;
            question = std::move(questions_.front());
            questions_.pop_front();
        }
        // Not a directory (an archive the shell browses into): it keeps its button.
        const DWORD kind = GetFileAttributesW(question.path.c_str());
        const bool directory = kind != INVALID_FILE_ATTRIBUTES && (kind & FILE_ATTRIBUTE_DIRECTORY);
        const bool children = !directory || HasSubFolder(question.path);
        PostMessageW(answers_, kMsgSubFolderAnswer, static_cast<WPARAM>(question.ticket << 1 | (children ? 1 : 0)),
                     question.tag);
    }
}

}  // namespace tessel
