#pragma once
// Closing while dialogs of this process are open (the shell's copy progress, say): the main
// window hides into the notification area until they are gone.
#include <windows.h>

#include <string>

namespace tessel {

// Top-level dialog-box windows ("#32770") of this process other than the main window.
int CountOwnDialogs(HWND mainWindow);

// An icon in the notification area; removed when the owner goes.
class TrayIcon {
public:
    TrayIcon() = default;
    TrayIcon(const TrayIcon&) = delete;
    TrayIcon& operator=(const TrayIcon&) = delete;
    ~TrayIcon() { Remove(); }

    bool Add(HWND owner, UINT callbackMessage, HICON icon, const std::wstring& tooltip);
    void Remove();
    bool Shown() const { return owner_ != nullptr; }

private:
    HWND owner_ = nullptr;
};

}  // namespace tessel
