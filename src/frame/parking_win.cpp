#include "frame/parking_win.h"

#include <shellapi.h>

namespace tessel {
namespace {

struct DialogCount {
    HWND main;
    DWORD process;
    int count;
};

BOOL CALLBACK CountDialog(HWND window, LPARAM param) {
    auto* state = reinterpret_cast<DialogCount*>(param);
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    if (window == state->main || process != state->process) return TRUE;
    wchar_t className[64] = {};
    GetClassNameW(window, className, 64);
    if (wcsstr(className, L"#32770")) ++state->count;
    return TRUE;
}

}  // namespace

int CountOwnDialogs(HWND mainWindow) {
    DialogCount state{mainWindow, GetCurrentProcessId(), 0};
    EnumWindows(CountDialog, reinterpret_cast<LPARAM>(&state));
    return state.count;
}

bool TrayIcon::Add(HWND owner, UINT callbackMessage, HICON icon, const std::wstring& tooltip) {
    Remove();
    NOTIFYICONDATAW data{sizeof(data)};
    data.hWnd = owner;
    data.uID = 1;
    data.uFlags = NIF_ICON | NIF_MESSAGE | NIF_TIP;
    data.uCallbackMessage = callbackMessage;
    data.hIcon = icon;
    lstrcpynW(data.szTip, tooltip.c_str(), static_cast<int>(std::size(data.szTip)));
    if (!Shell_NotifyIconW(NIM_ADD, &data)) return false;
    owner_ = owner;
    return true;
}

void TrayIcon::Remove() {
    if (!owner_) return;
    NOTIFYICONDATAW data{sizeof(data)};
    data.hWnd = owner_;
    data.uID = 1;
    Shell_NotifyIconW(NIM_DELETE, &data);
    owner_ = nullptr;
}

}  // namespace tessel
