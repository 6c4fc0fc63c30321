// Minimised into the notification area (option tray_icon): the window hides and an icon with
// a menu (open, new window, favorites, exit) stands for it until it is opened again.
#include "core/general_options.h"
#include "core/language_packs_win.h"
#include "frame/main_frame_win.h"
#include "res/resource.h"

namespace tessel {
namespace {

constexpr UINT kTrayOpen = 1;    // below every command of the main menu
constexpr int kFavoritesMenu = 3;  // the main menu's place of the favorites

// A copy of the main menu's favorites menu, filled by the frame when it opens like the original.
HMENU FavoritesPopup() {
    HMENU bar = LoadMenuW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDR_MAINFRAME));
    if (!bar) return nullptr;
    HMENU favorites = GetSubMenu(bar, kFavoritesMenu);
    if (favorites) RemoveMenu(bar, kFavoritesMenu, MF_BYPOSITION);  // now ours, not the bar's
    DestroyMenu(bar);
    if (favorites) LocalizeMenu(favorites);
    return favorites;
}

}  // namespace

bool CMainFrame::MinimiseToTray() {
    if (!Options().tray_icon || parked_) return false;
    HICON icon = LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_TRAY));
    if (!tray_.Add(hwnd(), kTrayMessage, icon, L"Tessel")) return false;  // without an icon the window stays in the taskbar
    inTray_ = true;
    ShowWindow(hwnd(), SW_HIDE);
    return true;
}

void CMainFrame::RestoreFromTray() {
    if (!inTray_) return;
    inTray_ = false;
    tray_.Remove();
    ShowWindow(hwnd(), SW_RESTORE);
    SetForegroundWindow(hwnd());
}

void CMainFrame::ShowTrayMenu() {
    win::UniqueMenu menu(CreatePopupMenu());
    AppendMenuW(menu.get(), MF_STRING, kTrayOpen, GetText(62340).c_str());
    SetMenuDefaultItem(menu.get(), kTrayOpen, FALSE);
    AppendMenuW(menu.get(), MF_STRING, ID_FILE_NEW_INSTANCE, GetText(62342).c_str());
    if (HMENU favorites = FavoritesPopup())  // owned by the menu from here on
        AppendMenuW(menu.get(), MF_POPUP, reinterpret_cast<UINT_PTR>(favorites), GetText(62009).c_str());
    AppendMenuW(menu.get(), MF_SEPARATOR, 0, nullptr);
    AppendMenuW(menu.get(), MF_STRING, ID_APP_EXIT, GetText(57665).c_str());
    POINT at{};
    GetCursorPos(&at);
    SetForegroundWindow(hwnd());  // so that the menu closes when the user clicks elsewhere
    const UINT chosen = TrackPopupMenu(menu.get(), TPM_RETURNCMD | TPM_RIGHTBUTTON, at.x, at.y, 0, hwnd(), nullptr);
    PostMessageW(hwnd(), WM_NULL, 0, 0);
    if (chosen == 0) return;
    // Everything but a new window and the exit acts in this window: it comes back first.
    if (chosen != ID_FILE_NEW_INSTANCE && chosen != ID_APP_EXIT) RestoreFromTray();
    if (chosen != kTrayOpen) OnCommand(static_cast<int>(chosen), 0);
}

}  // namespace tessel
