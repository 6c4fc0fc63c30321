#pragma once
// The directory watcher: a thread that reads a folder's changes and sends each one to a window
// (the record, a DirChange, is valid during the send). At most one watch runs per watcher: a new
// Start replaces the old watch at once, and stopping cancels the pending read and joins the thread.
#include <windows.h>

#include <string>
#include <thread>

#include "win/handles_win.h"

namespace tessel {

class CMyReadDirectoryChanges {
public:
    CMyReadDirectoryChanges();
    virtual ~CMyReadDirectoryChanges();
    CMyReadDirectoryChanges(const CMyReadDirectoryChanges&) = delete;
    CMyReadDirectoryChanges& operator=(const CMyReadDirectoryChanges&) = delete;

    // 0 when the system cannot watch folders; else 1, watching when `path` is a folder.
    int Start(const std::wstring& path, HWND window, UINT message, DWORD watchSubtree);
    // Safe on the window's own thread: messages sent meanwhile are served.
    void Stop();
    bool Running() const;

private:
    void Run(std::stop_token stop, std::wstring path, HWND window, UINT message, DWORD subtree);

    DWORD filter_;  // names of files and folders, and sizes
    win::UniqueHandle stopped_;   // set to end the watch
    win::UniqueHandle finished_;  // set by the thread as its last act
    std::jthread thread_;
};

// Whether the program runs under Wine, whose shell view hears of no change made by another
// process: there the watcher runs and the view lists its folder again itself.
bool ShellMissesOutsideChanges();

}  // namespace tessel
