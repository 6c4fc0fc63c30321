#pragma once
// The icons of the quick-links and programs menus, found once per target off the GUI thread:
// finding one reads the disk (the program's file, the search path), and an entry on a network
// path would hold the menu. Until an icon is in, its entry draws a placeholder.
#include <windows.h>

#include <functional>
#include <map>
#include <memory>
#include <string>

#include "win/handles_win.h"
#include "win/worker_thread_win.h"

namespace tessel {

class MenuIcons {
public:
    using Finder = std::function<HICON(const std::wstring& target)>;  // the icon's owner is the caller
    // `message` is posted to `notify` each time icons came in.
    MenuIcons(HWND notify, UINT message, Finder finder = nullptr);
    ~MenuIcons();
    MenuIcons(const MenuIcons&) = delete;
    MenuIcons& operator=(const MenuIcons&) = delete;

    // The target's icon, or null while it is being found (or none was found); asked for once.
    HICON Find(const std::wstring& target);

private:
    struct Shared;
    static void Work(std::stop_token stop, Shared& shared);

    std::shared_ptr<Shared> shared_;
    win::WorkerThread thread_;  // last: stopped before the rest goes
};

// The icon of what an entry starts or opens; a generic program icon when the system knows none.
HICON IconOfTarget(const std::wstring& target);

}  // namespace tessel
