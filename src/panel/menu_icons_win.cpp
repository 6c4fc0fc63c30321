#include "panel/menu_icons_win.h"

#include <shellapi.h>

#include <condition_variable>
#include <deque>
#include <mutex>

#include "features/quick_links.h"
#include "view/command_placeholders_win.h"
#include "win/file_system_win.h"

namespace tessel {

// What the finding thread uses; one left behind in a slow drive keeps it alive.
struct MenuIcons::Shared {
    HWND notify = nullptr;
    UINT message = 0;
    Finder finder;
    std::mutex mutex;
    std::condition_variable_any wake;
    std::deque<std::wstring> asked;
    std::map<std::wstring, win::UniqueIcon> found;  // an entry without icon: asked, not found yet
};

MenuIcons::MenuIcons(HWND notify, UINT message, Finder finder) : shared_(std::make_shared<Shared>()) {
    shared_->notify = notify;
    shared_->message = message;
    shared_->finder = finder ? std::move(finder) : Finder(&IconOfTarget);
}

MenuIcons::~MenuIcons() { thread_.Stop(); }

void MenuIcons::Work(std::stop_token stop, Shared& shared) {
    const HRESULT com = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED);
    for (;;) {
        std::wstring target;
        {
            std::unique_lock lock(shared.mutex);
            if (!shared.wake.wait(lock, stop, [&] { return !shared.asked.empty(); })) break;
            target = std::move(shared.asked.front());
            shared.asked.pop_front();
        }
        win::UniqueIcon icon(shared.finder(target));
        if (stop.stop_requested()) break;
        {
            std::lock_guard lock(shared.mutex);
            shared.found[target] = std::move(icon);
        }
        PostMessageW(shared.notify, shared.message, 0, 0);
    }
    if (SUCCEEDED(com)) CoUninitialize();
}

HICON MenuIcons::Find(const std::wstring& target) {
    std::lock_guard lock(shared_->mutex);
    if (auto it = shared_->found.find(target); it != shared_->found.end()) return it->second.get();
    shared_->found.emplace(target, win::UniqueIcon());
    shared_->asked.push_back(target);
    if (!thread_.Running())
        thread_.Start([shared = shared_](std::stop_token stop) { Work(stop, *shared); },
                      [shared = shared_] { shared->wake.notify_all(); });
    shared_->wake.notify_one();
    return nullptr;
}

HICON IconOfTarget(const std::wstring& target) {
    std::wstring text = target;
    ExpandSystemPathVariables(text);
    const CommandParts parts = SplitCommand(text, win::PathExists);
    std::wstring program = parts.program;
    wchar_t found[MAX_PATH] = {};
    if (!win::PathExists(program) &&
        SearchPathW(nullptr, program.c_str(), L".exe", MAX_PATH, found, nullptr))
        program = found;  // "notepad.exe" as the shell would find it
    SHFILEINFOW info{};
    if (SHGetFileInfoW(program.c_str(), 0, &info, sizeof(info), SHGFI_ICON | SHGFI_SMALLICON) && info.hIcon)
        return info.hIcon;
    if (SHGetFileInfoW(program.c_str(), FILE_ATTRIBUTE_NORMAL, &info, sizeof(info),
                       SHGFI_ICON | SHGFI_SMALLICON | SHGFI_USEFILEATTRIBUTES) && info.hIcon)
        return info.hIcon;
    return nullptr;
}

}  // namespace tessel
