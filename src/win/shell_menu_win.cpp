#include "win/shell_menu_win.h"

#include "win/com_ptr_win.h"
#include "win/subclass_win.h"

namespace tessel::win {
namespace {

bool IsShellMenuMessage(UINT message, LPARAM lParam) {
    switch (message) {
    case WM_INITMENUPOPUP:
    case WM_MENUCHAR:
        return true;
    case WM_DRAWITEM:  // the owner's own controls draw themselves meanwhile
        return reinterpret_cast<const DRAWITEMSTRUCT*>(lParam)->CtlType == ODT_MENU;
    case WM_MEASUREITEM:
        return reinterpret_cast<const MEASUREITEMSTRUCT*>(lParam)->CtlType == ODT_MENU;
    }
    return false;
}

// True when the shell menu took the message, with its result in `result`.
bool ForwardShellMenuMessage(IContextMenu* shellMenu, UINT message, WPARAM wParam, LPARAM lParam, LRESULT& result) {
    if (!shellMenu || !IsShellMenuMessage(message, lParam)) return false;
    ComPtr<IContextMenu3> menu3;
    if (SUCCEEDED(shellMenu->QueryInterface(IID_IContextMenu3, menu3.put_void())) &&
        SUCCEEDED(menu3->HandleMenuMsg2(message, wParam, lParam, &result)))
        return true;
    ComPtr<IContextMenu2> menu2;
    if (message == WM_MENUCHAR || FAILED(shellMenu->QueryInterface(IID_IContextMenu2, menu2.put_void())) ||
        FAILED(menu2->HandleMenuMsg(message, wParam, lParam)))
        return false;
    result = message == WM_INITMENUPOPUP ? 0 : TRUE;
    return true;
}

LRESULT ForwardingProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam, void* data) {
    LRESULT result = 0;
    if (ForwardShellMenuMessage(static_cast<IContextMenu*>(data), message, wParam, lParam, result)) return result;
    return CallOriginal(window, message, wParam, lParam);
}

}  // namespace

UINT TrackShellMenu(HMENU popup, UINT flags, POINT screen, HWND owner, IContextMenu* shellMenu) {
    const bool forwarding = shellMenu && Subclass(owner, &ForwardingProc, shellMenu);
    const UINT chosen = TrackPopupMenu(popup, flags | TPM_RETURNCMD, screen.x, screen.y, 0, owner, nullptr);
    if (forwarding) Unsubclass(owner);
    return chosen;
}

}  // namespace tessel::win
